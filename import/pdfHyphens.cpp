#include "import/pdfHyphens.h"

#include <algorithm>
#include <array>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::array<std::string_view, 14> kConjunctions{
    "und", "oder", "bzw.", "sowie",           "bis", "noch", "als", "wie", "statt",
    "mit", "and",  "or",   "beziehungsweise", "aber"};

// The hyphen at the end of the line, "" for none.
std::string_view HyphenOf(std::string_view line) {
  for (const std::string_view hyphen : {"-", "\u2010", "\u00AD"}) {
    if (line.ends_with(hyphen)) return hyphen;
  }
  return {};
}

// Letters of German and its neighbours; others count as large, and keep their hyphen.
bool IsLower(char32_t c) {
  return (c >= 'a' && c <= 'z') || (c >= 0xDF && c <= 0xFF && c != 0xF7) ||
         (c > 0x100 && c < 0x180 && c % 2 == 1);
}

bool IsLetter(char32_t c) {
  return IsLower(c) || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE) || (c >= 0x100 && c < 0x250);
}

std::string_view LastWord(std::string_view line) {
  const auto blank = line.find_last_of(" \t");
  return blank == std::string_view::npos ? line : line.substr(blank + 1);
}

char32_t LastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) --at;
  return Utf8Length(text.substr(at)) > 0 ? FirstCharacter(text.substr(at)) : U' ';
}

bool BeginsWithConjunction(std::string_view next) {
  const std::string_view word = next.substr(0, next.find_first_of(" ,;"));
  return std::find(kConjunctions.begin(), kConjunctions.end(), word) != kConjunctions.end();
}

}  // namespace

LineJoint JointOf(std::string_view line, std::string_view next) {
  const std::string_view hyphen = HyphenOf(line);
  if (hyphen.empty() || Utf8Length(next) == 0) return LineJoint::Blank;
  if (hyphen == "\u00AD") return LineJoint::WithoutHyphen;
  std::string_view word = LastWord(line);
  word.remove_suffix(hyphen.size());
  if (word.empty()) return LineJoint::Blank;
  const char32_t before = LastCharacter(word);
  if (!IsLetter(before)) return before >= '0' && before <= '9' ? LineJoint::None : LineJoint::Blank;
  if (BeginsWithConjunction(next)) return LineJoint::Blank;
  // A single letter is no syllable.
  if (!IsLower(FirstCharacter(next)) || CharacterCount(word) == 1) return LineJoint::None;
  return LineJoint::WithoutHyphen;
}

}  // namespace lorelin
