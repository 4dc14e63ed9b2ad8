#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/wordMarks.h"
#include "ports/DirectSS.h"

namespace lorelin {

// Where the words lie of which an engine of Windows tells. It is given a text in one or more goes and counts
// the units of what it was given; words are told in characters of the whole text, each once and in order.
class HeardWords {
 public:
  using Take = std::function<void(const HeardWord&)>;
  // So many of the engine's units is a character of the text long.
  using Units = std::size_t (*)(std::string_view character);

  explicit HeardWords(Units units) : units_(units) {}

  // A new text.
  void Clear();
  // The engine gets `speakable`, made of the next piece of the text as it was `given`.
  void Add(std::string_view given, std::string speakable);
  // It tells of a word at this unit of what it was given in this go (from 0). What leads back is not told.
  void Event(std::size_t go, std::size_t unit, const Take& take);

 private:
  // What was given in one go, and how far it was heard: in bytes, units and characters.
  struct Go {
    std::string text;
    std::size_t begin = 0;  // in the whole text
    std::optional<engine::DroppedCharacters> dropped;
    std::size_t byte = 0;
    std::size_t unit = 0;
    std::size_t character = 0;
    std::optional<engine::WordMarker> words;  // of the stretch that is heard
    std::size_t stretchBegin = 0;
    std::size_t stretchEndByte = 0;
  };

  void Enter(Go& go) const;
  // To the character that the unit belongs to.
  void Advance(Go& go, std::size_t unit, const Take& take) const;
  static engine::WordMarker::Take InWholeText(const Go& go, const Take& take);

  Units units_;
  std::deque<Go> goes_;
  std::size_t gone_ = 0;        // goes that are over
  std::size_t characters_ = 0;  // of all goes
};

// Of the character as automation texts hold it.
[[nodiscard]] std::size_t Utf16Units(std::string_view character);

}  // namespace lorelin
