#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "german/SpokenText.h"
#include "speech/writtenRange.h"

namespace lorelin {

// A text on its way from a document to the ear, and what in it comes from where. Every step that changes the
// text keeps the trace; places are characters. Memory beside the text: one run for each place that differs.
class TracedText {
 public:
  // A text whose first character stands at `begin` of the document, or one that comes from no document.
  TracedText(std::string text, std::optional<std::size_t> begin) : text_(std::move(text)), begin_(begin) {}

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] bool HasSource() const { return begin_.has_value(); }
  [[nodiscard]] std::size_t SourceBegin() const { return begin_.value_or(0); }

  // What is put before and behind has no source.
  void Surround(std::string_view before, std::string_view behind);
  // `name` becomes `value` everywhere.
  void Replace(std::string_view name, std::string_view value);
  // Another text was made of it, nobody knows how: its words are aligned, and what matches no word comes from
  // all that lies between those that do.
  void Rewritten(std::string text);

  // What is written in the document where this is spoken; nothing where that has no source.
  [[nodiscard]] std::optional<CharacterRange> Source(CharacterRange spoken) const;
  // The first character that comes from this place of the document or one behind it.
  [[nodiscard]] std::size_t SpokenFrom(std::size_t source) const;

 private:
  void Add(const std::vector<SpokenRun>& step);

  std::string text_;
  std::optional<std::size_t> begin_;
  std::vector<SpokenRun> runs_;
};

}  // namespace lorelin
