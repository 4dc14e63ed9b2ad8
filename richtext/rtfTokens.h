#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace lorelin::rtf {

enum class TokenKind : std::uint8_t {
  End,
  GroupBegin,
  GroupEnd,
  Byte,    // of the text, in the code page that holds where it stands; `byte`
  Word,    // a control word; `name`, and `number` where it has one
  Symbol,  // a control symbol; `byte`
};

struct Token {
  TokenKind kind = TokenKind::End;
  unsigned byte = 0;
  std::string_view name{};  // part of the file's bytes
  std::optional<int> number{};
};

// Cuts the bytes of a file into tokens. Broken ones are passed over, what is no RTF is text. Pure.
class Tokens {
 public:
  explicit Tokens(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] Token Next();
  // Passes over bytes that are no text.
  void Skip(int bytes);

 private:
  [[nodiscard]] std::optional<Token> Control();
  [[nodiscard]] std::optional<Token> HexByte();
  [[nodiscard]] Token ControlWord();
  [[nodiscard]] std::optional<int> Number();
  char Take();

  std::string_view rest_;
};

}  // namespace lorelin::rtf
