#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "richtext/RichText.h"

namespace lorelin {

// A piece of a text that stands out: bytes of it.
struct Emphasis {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool bold = false;
  bool italic = false;

  bool operator==(const Emphasis&) const = default;
};

// A text and where each of its bytes comes from.
struct SourcedText {
  std::string text;
  std::vector<std::size_t> sources;
};

// Without blanks at the ends of lines and signs that no page may hold; blanks as one. `first`: where the text
// begins, for the sources.
[[nodiscard]] SourcedText Tidied(std::string_view text, std::size_t first);

// What stands out in a document, asked for from its beginning to its end. Owns nothing.
class Emphases {
 public:
  // `runs` cover the text from its beginning. Places behind them are in no format.
  explicit Emphases(std::span<const TextRun> runs) : runs_(runs) {}

  // Without blanks at the ends of the pieces.
  [[nodiscard]] std::vector<Emphasis> Of(const SourcedText& text);

 private:
  [[nodiscard]] CharacterFormat At(std::size_t source);

  std::span<const TextRun> runs_;
  std::size_t passed_ = 0;  // bytes of the runs that lie behind
};

}  // namespace lorelin
