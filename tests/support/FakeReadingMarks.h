#pragma once

#include <optional>
#include <utility>

#include "ports/ReadingMarks.h"

namespace lorelin {

class FakeReadingMarks final : public ReadingMarks {
 public:
  [[nodiscard]] bool CanShow() const override { return canShow; }
  void Show(std::optional<MarkedRange> newWord, std::optional<MarkedRange> newSentence) override {
    word = newWord;
    sentence = newSentence;
  }
  void Hide() override {
    word.reset();
    sentence.reset();
  }
  void Return() override { ++returns; }
  void PlaceCaret(std::size_t character) override { caret = character; }
  void OnEdited(std::function<void(std::size_t, std::size_t, std::size_t)> handler) override {
    edited = std::move(handler);
  }

  bool canShow = true;
  std::optional<MarkedRange> word;
  std::optional<MarkedRange> sentence;
  int returns = 0;
  std::optional<std::size_t> caret;
  std::function<void(std::size_t, std::size_t, std::size_t)> edited;
};

}  // namespace lorelin
