#include "engine/speakableText.h"

#include <algorithm>

#include "base/textEncoding.h"

namespace lorelin::engine {
namespace {

constexpr std::size_t kEnoughStops = 40;   // from here on a sentence end is a place to cut
constexpr std::size_t kTooManyStops = 60;  // here it is cut by force, well below 85
constexpr std::size_t kEnoughBytes = 4000;
constexpr std::size_t kTooManyBytes = 20000;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\t' && c != '\n' && c != '\r') || byte == 0x7F;
}

bool IsSentenceSign(char c) {
  return c == '.' || c == '!' || c == '?' || c == ':' || c == ';';
}

// Whether a sentence ends right before `at`: a sign behind a word that is too long for an abbreviation like
// "z. B.".
bool IsSentenceEnd(std::string_view text, std::size_t at) {
  constexpr std::size_t kShortestWord = 3;
  if (at <= kShortestWord || !IsSentenceSign(text[at - 1])) return false;
  const std::string_view word = text.substr(at - 1 - kShortestWord, kShortestWord);
  return std::none_of(word.begin(), word.end(), [](char c) { return IsBlank(c) || IsSentenceSign(c); });
}

bool IsCapital(std::string_view text) {
  if (text.empty()) return false;
  if (text[0] >= 'A' && text[0] <= 'Z') return true;
  return text.starts_with("Ä") || text.starts_with("Ö") || text.starts_with("Ü");
}

// Blanks at `at` and behind.
std::size_t BlanksEnd(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

bool IsParagraphEnd(std::string_view text, std::size_t at, std::size_t end) {
  return std::count(text.begin() + static_cast<std::ptrdiff_t>(at),
                    text.begin() + static_cast<std::ptrdiff_t>(end), '\n') >= 2;
}

// Whether a sentence can begin with what stands there.
bool MayBegin(std::string_view text) {
  if (IsCapital(text) || text[0] == '"' || text[0] == '(' || (text[0] >= '0' && text[0] <= '9')) return true;
  return text.starts_with("„") || text.starts_with("»") || text.starts_with("‚") || text.starts_with("–");
}

// The place in front of closing quotes and brackets that stand before `at`.
std::size_t BeforeClosing(std::string_view text, std::size_t at) {
  for (const std::string_view closing : {"\"", ")", "“", "”", "«", "‘", "’"}) {
    if (text.substr(0, at).ends_with(closing)) return BeforeClosing(text, at - closing.size());
  }
  return at;
}

std::size_t CharacterStart(std::string_view text, std::size_t at) {
  while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) ++at;
  return at;
}

}  // namespace

std::string SpeakableText(std::string_view text) {
  std::string speakable;
  speakable.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) {
      speakable.append("\xEF\xBF\xBD");
    } else if (length > 1 || !IsControl(text[0])) {
      speakable.append(text.substr(0, length));
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return speakable;
}

std::size_t NextPiece(std::string_view text) {
  std::size_t stops = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '.') ++stops;
    const bool blank = IsBlank(text[at]);
    if (blank) {
      const std::size_t end = BlanksEnd(text, at);
      if (end == text.size()) return end;
      if (at > 0 && IsParagraphEnd(text, at, end)) return end;
      const bool enough = stops >= kEnoughStops || at >= kEnoughBytes;
      if (enough && IsSentenceEnd(text, at) && IsCapital(text.substr(end))) return end;
      if (stops >= kTooManyStops || at >= kTooManyBytes) return end;
      at = end - 1;
    } else if (stops >= kTooManyStops + 10 || at >= 2 * kTooManyBytes) {
      return CharacterStart(text, at + 1);
    }
  }
  return text.size();
}

std::size_t NextSentence(std::string_view text) {
  constexpr std::size_t kLong = 500;
  constexpr std::size_t kTooLong = 900;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (IsBlank(text[at])) {
      const std::size_t end = BlanksEnd(text, at);
      if (end == text.size() || (at > 0 && IsParagraphEnd(text, at, end))) return end;
      const std::size_t signs = BeforeClosing(text, at);
      const bool called = signs > 0 && (text[signs - 1] == '!' || text[signs - 1] == '?');
      if ((called || IsSentenceEnd(text, signs)) && MayBegin(text.substr(end))) return end;
      if (at >= kTooLong || (at >= kLong && text[at - 1] == ',')) return end;
      at = end - 1;
    } else if (at >= 2 * kTooLong) {
      return CharacterStart(text, at + 1);
    }
  }
  return text.size();
}

}  // namespace lorelin::engine
