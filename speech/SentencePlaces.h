#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "speech/writtenRange.h"

namespace lorelin {

// The sentences of a text, found as far as somebody has asked: a long text costs nothing before it is read.
// Places are characters.
class SentencePlaces {
 public:
  explicit SentencePlaces(std::string text)
      : SentencePlaces(std::make_shared<const std::string>(std::move(text))) {}
  // A text that several look through.
  explicit SentencePlaces(std::shared_ptr<const std::string> text) : text_(std::move(text)) {}

  [[nodiscard]] const std::shared_ptr<const std::string>& Text() const { return text_; }
  // Finds all of them, unless it is abandoned from another thread; whether it was not.
  bool FindAll(const std::atomic<bool>& abandoned);
  // Whether the last sentence goes on in what stands behind the text; all of them have to be found.
  [[nodiscard]] bool GoesOnIn(std::string_view behind) const;
  // How many there are, and characters; only when all of them are found.
  [[nodiscard]] std::size_t Count() const { return begins_.size() - 1; }
  [[nodiscard]] std::size_t Characters() const { return begins_.back().character; }

  // The number of the sentence that holds the character, from 0; the last one's behind the end.
  [[nodiscard]] std::size_t At(std::size_t character);
  [[nodiscard]] bool Exists(std::size_t number);
  // Without the blanks around it; of a sentence that exists.
  [[nodiscard]] CharacterRange Range(std::size_t number);
  // The first sentence of the paragraph that this one belongs to. A paragraph ends with its line.
  [[nodiscard]] std::size_t ParagraphOf(std::size_t number);
  // The first sentence of the paragraph behind; the number behind the last sentence when there is none.
  [[nodiscard]] std::size_t NextParagraph(std::size_t number);

 private:
  struct Place {
    std::size_t byte = 0;
    std::size_t character = 0;
    bool beginsParagraph = true;
  };

  // False at the end of the text.
  bool FindNext();
  [[nodiscard]] bool BeginsParagraph(std::size_t number);

  std::shared_ptr<const std::string> text_;
  std::vector<Place> begins_{Place{}};  // the last one is where the next sentence begins
  bool complete_ = false;
};

}  // namespace lorelin
