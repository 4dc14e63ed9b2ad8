#include "german/tokens.h"

#include <algorithm>

#include "german/characters.h"

namespace lorelin {
namespace {

TokenKind KindOf(char32_t c) {
  if (c >= U'0' && c <= U'9') return TokenKind::Number;
  if (c == U'\n' || c == U'\r' || c == U'\x2028' || c == U'\x2029') return TokenKind::Line;
  if (IsBlankCharacter(c)) return TokenKind::Blank;
  return IsLetter(c) ? TokenKind::Word : TokenKind::Sign;
}

std::size_t EndOfLine(std::string_view text, std::size_t at, std::size_t length) {
  return text.substr(at).starts_with("\r\n") ? at + 2 : at + length;
}

// Marks that are drawn on the letter before.
bool Continues(TokenKind kind, char32_t c) {
  return KindOf(c) == kind || (kind == TokenKind::Word && ((c >= 0x300 && c <= 0x36F) || c == 0xAD));
}

}  // namespace

Token TokenAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {TokenKind::End, text.size(), text.size()};
  Character first = CharacterAt(text, at);
  const TokenKind kind = KindOf(first.code);
  std::size_t end = at + first.length;
  if (kind == TokenKind::Line) return {kind, at, EndOfLine(text, at, first.length)};
  if (kind == TokenKind::Sign) return {kind, at, end};
  while (end < text.size()) {
    const Character next = CharacterAt(text, end);
    if (!Continues(kind, next.code)) break;
    end += next.length;
  }
  return {kind, at, end};
}

bool IsUpperWord(std::string_view word) {
  return !word.empty() && IsUpperLetter(CharacterAt(word, 0).code);
}

bool IsAllCaps(std::string_view word) {
  std::size_t letters = 0;
  for (std::size_t at = 0; at < word.size(); ++letters) {
    const Character c = CharacterAt(word, at);
    if (!IsUpperLetter(c.code)) return false;
    at += c.length;
  }
  return letters >= 2;
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  // Most differ in their size or first letter.
  for (const std::string_view one : words) {
    if (one.size() == word.size() && (one.empty() || (one.front() == word.front() && one == word)))
      return true;
  }
  return false;
}

bool HasPrefix(std::string_view word, std::initializer_list<std::string_view> beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [&](auto beginning) { return word.starts_with(beginning); });
}

bool HasSuffix(std::string_view word, std::initializer_list<std::string_view> endings) {
  for (const std::string_view ending : endings) {
    if (ending.empty() ||
        (word.size() >= ending.size() && word.back() == ending.back() && word.ends_with(ending)))
      return true;
  }
  return false;
}

bool IsDash(std::string_view sign) {
  return IsOneOf(sign, {"-", "–", "—", "−", "‐", "‑", "‒"});
}

namespace {

constexpr std::string_view kLowerUmlauts[] = {"ä", "ö", "ü"};
constexpr std::string_view kUpperUmlauts[] = {"Ä", "Ö", "Ü"};

}  // namespace

std::string WithUpperStart(std::string_view word) {
  std::string result(word);
  if (!result.empty() && result[0] >= 'a' && result[0] <= 'z')
    result[0] = static_cast<char>(result[0] - 'a' + 'A');
  for (std::size_t i = 0; i < 3; ++i) {
    if (word.starts_with(kLowerUmlauts[i])) result.replace(0, 2, kUpperUmlauts[i]);
  }
  return result;
}

std::string WithLowerStart(std::string_view word) {
  std::string result(word);
  if (!result.empty() && result[0] >= 'A' && result[0] <= 'Z')
    result[0] = static_cast<char>(result[0] - 'A' + 'a');
  for (std::size_t i = 0; i < 3; ++i) {
    if (word.starts_with(kUpperUmlauts[i])) result.replace(0, 2, kLowerUmlauts[i]);
  }
  return result;
}

std::string_view Tokens::View(std::size_t first, std::size_t last) const {
  if (first >= list_.size() || last <= first) return {};
  const std::size_t end = list_[std::min(last, list_.size()) - 1].end;
  return text_.substr(list_[first].begin, end - list_[first].begin);
}

bool Tokens::IsNumber(std::size_t i, std::size_t least, std::size_t most) const {
  const Token token = At(i);
  const std::size_t digits = token.end - token.begin;
  return token.kind == TokenKind::Number && digits >= least && digits <= most;
}

bool Tokens::IsGap(std::size_t i) const {
  const TokenKind kind = Kind(i);
  return kind == TokenKind::Blank || kind == TokenKind::Line || kind == TokenKind::End;
}

bool Tokens::FreeBefore(std::size_t i) const {
  if (i >= 2 && Is(i - 1, "x") && IsNumber(i - 2)) return true;  // "4x100"
  return i == 0 || (!IsWord(i - 1) && !IsNumber(i - 1));
}

bool Tokens::FreeBehind(std::size_t i) const {
  return !IsWord(i + 1) && !IsNumber(i + 1);
}

std::size_t Tokens::Before(std::size_t i) const {
  if (i == 0) return kNone;
  --i;
  if (Kind(i) != TokenKind::Blank && Kind(i) != TokenKind::Line) return i;
  return i == 0 || IsGap(i - 1) ? kNone : i - 1;
}

std::size_t Tokens::WordIndexBefore(std::size_t i) const {
  const std::size_t before = Before(i);
  return before != kNone && IsWord(before) ? before : kNone;
}

std::string_view Tokens::WordBefore(std::size_t i) const {
  const std::size_t before = WordIndexBefore(i);
  return before == kNone ? std::string_view() : View(before);
}

bool Tokens::IsLast(std::size_t i) const {
  for (std::size_t next = i + 1; next < Count(); ++next) {
    if (!IsGap(next) && !IsOneOf(View(next), {"“", "\"", "”", "«", "»", "’", "'", ")", "]", "‘"}))
      return false;
  }
  return true;
}

std::size_t Tokens::WithoutLastPoint(std::size_t end) const {
  return end > 0 && Is(end - 1, ".") && IsLast(end - 1) ? end - 1 : end;
}

bool Tokens::OpensClause(std::size_t i) const {
  while (i > 0) {
    --i;
    if (IsGap(i)) continue;
    return IsOneOf(View(i), {"„", "\"", "“", "»", "«", "(", "[", ":", ";", ",", "•", "–", "-", "*", "!", "?",
                             "/", "‚", "·"});
  }
  return true;
}

bool Tokens::OpensLine(std::size_t i) const {
  while (i > 0) {
    --i;
    if (IsBlank(i)) continue;
    return Kind(i) == TokenKind::Line;
  }
  return true;
}

}  // namespace lorelin
