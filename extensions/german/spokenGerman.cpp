#include "extensions/german/spokenGerman.h"

#include <algorithm>

#include "base/text.h"
#include "base/textEncoding.h"
#include "extensions/german/abbreviationRule.h"
#include "extensions/german/numberRule.h"

namespace lorelin {
namespace {

std::optional<SpokenMatch> OwnWordAt(std::string_view text, std::size_t at, const WordList& own) {
  for (const auto& [written, spoken] : own) {
    if (StandsAt(text, at, written)) return SpokenMatch{written.size(), spoken};
  }
  return std::nullopt;
}

// "§ 5", "§§ 5 und 6", "Müller & Sohn".
std::optional<SpokenMatch> SignAt(std::string_view text, std::size_t at) {
  const auto rest = text.substr(at);
  if (rest.starts_with("§§")) return SpokenMatch{4, "Paragrafen"};
  if (rest.starts_with("§"))
    return SpokenMatch{2, SkipBlanks(text, at + 2, 1) > at + 2 ? "Paragraf" : "Paragraf "};
  if (rest.starts_with("& ") && at > 0 && text[at - 1] == ' ') return SpokenMatch{1, "und"};
  return std::nullopt;
}

// "Hauptstr. 5".
std::optional<SpokenMatch> StreetAt(std::string_view text, std::size_t at) {
  const std::string_view word = WordAt(text, at);
  if (word.size() < 6 || !word.ends_with("str") || !text.substr(at + word.size()).starts_with('.'))
    return std::nullopt;
  return SpokenMatch{word.size() + 1, std::string(word.substr(0, word.size() - 3)) + "straße"};
}

std::optional<SpokenMatch> RuleAt(std::string_view text, std::size_t at, const WordList& own) {
  if (auto found = OwnWordAt(text, at, own)) return found;
  if (auto found = AbbreviationAt(text, at)) return found;
  if (auto found = RomanAt(text, at)) return found;
  if (auto found = SignAt(text, at)) return found;
  if (auto found = StreetAt(text, at)) return found;
  return NumberPhraseAt(text, at);
}

// What is copied when no rule takes it: a word, or one sign.
std::size_t PlainLength(std::string_view text, std::size_t at) {
  const std::size_t word = WordAt(text, at).size();
  if (word > 0) return word;
  if (!IsDigit(text[at])) return std::max<std::size_t>(Utf8Length(text.substr(at)), 1);
  std::size_t end = at;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end - at;
}

}  // namespace

WordList ParseWordList(std::string_view text) {
  WordList list;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (!text.empty()) {
    const auto end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = WithoutBlanks(line);
    const auto equals = line.find('=');
    if (line.starts_with('#') || equals == std::string_view::npos) continue;
    const auto written = WithoutBlanks(line.substr(0, equals));
    if (!written.empty()) list.emplace_back(written, WithoutBlanks(line.substr(equals + 1)));
  }
  std::stable_sort(list.begin(), list.end(),
                   [](const auto& a, const auto& b) { return a.first.size() > b.first.size(); });
  return list;
}

std::string SpokenGerman(std::string_view text, const WordList& own) {
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  bool boundary = true;  // no letter or digit stands right before
  for (std::size_t at = 0; at < text.size();) {
    const auto found = boundary ? RuleAt(text, at, own) : std::nullopt;
    const std::size_t length = found && found->length > 0 ? found->length : PlainLength(text, at);
    if (found && found->length > 0) {
      out += found->words;
    } else {
      out += text.substr(at, length);
    }
    const char last = text[at + length - 1];
    boundary = !IsDigit(last) && (WordAt(text, at).size() != length);
    // A word right behind a number that was spoken needs a gap.
    at += length;
    const bool glued = !WordAt(text, at).empty() || (at < text.size() && IsDigit(text[at]));
    if (found && found->length > 0 && glued && out.back() != ' ') out += ' ';
    if (found && found->length > 0) boundary = true;
  }
  return out;
}

}  // namespace lorelin
