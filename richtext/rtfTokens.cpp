#include "richtext/rtfTokens.h"

#include <algorithm>
#include <charconv>

namespace lorelin::rtf {
namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

Token ByteToken(unsigned byte) {
  return {.kind = TokenKind::Byte, .byte = byte};
}

}  // namespace

char Tokens::Take() {
  const char c = rest_.front();
  rest_.remove_prefix(1);
  return c;
}

Token Tokens::Next() {
  while (!rest_.empty()) {
    const char c = Take();
    if (c == '{') return {.kind = TokenKind::GroupBegin};
    if (c == '}') return {.kind = TokenKind::GroupEnd};
    if (c == '\r' || c == '\n' || c == '\0') continue;
    if (c != '\\') return ByteToken(static_cast<unsigned char>(c));
    if (const std::optional<Token> token = Control()) return *token;
  }
  return {};
}

std::optional<Token> Tokens::Control() {
  if (rest_.empty()) return std::nullopt;
  if (IsLetter(rest_.front())) return ControlWord();
  const char symbol = Take();
  if (symbol == '\'') return HexByte();
  const auto byte = static_cast<unsigned char>(symbol);
  if (symbol == '\\' || symbol == '{' || symbol == '}') return ByteToken(byte);
  return Token{.kind = TokenKind::Symbol, .byte = byte};
}

std::optional<Token> Tokens::HexByte() {
  const int high = rest_.size() >= 2 ? HexDigit(rest_[0]) : -1;
  const int low = rest_.size() >= 2 ? HexDigit(rest_[1]) : -1;
  if (high < 0 || low < 0) return std::nullopt;
  rest_.remove_prefix(2);
  return ByteToken(static_cast<unsigned>(high * 16 + low));
}

Token Tokens::ControlWord() {
  const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
  Token token{.kind = TokenKind::Word,
              .name = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()))};
  rest_.remove_prefix(token.name.size());
  token.number = Number();
  if (rest_.starts_with(' ')) rest_.remove_prefix(1);
  return token;
}

// A number that does not fit is as good as none.
std::optional<int> Tokens::Number() {
  std::size_t length = rest_.starts_with('-') ? 1 : 0;
  while (length < rest_.size() && rest_[length] >= '0' && rest_[length] <= '9') ++length;
  int number = 0;
  const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + length, number);
  if (stop == rest_.data()) return std::nullopt;
  rest_.remove_prefix(length);
  return error == std::errc{} ? std::optional(number) : std::nullopt;
}

void Tokens::Skip(int bytes) {
  rest_.remove_prefix(std::min(static_cast<std::size_t>(std::max(bytes, 0)), rest_.size()));
}

}  // namespace lorelin::rtf
