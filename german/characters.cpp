#include "german/characters.h"

namespace lorelin {
namespace {

bool IsFollower(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

char32_t Bits(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]) & 0x3F;
}

Character Long(std::string_view text, std::size_t at, std::size_t length, char32_t start, char32_t least) {
  char32_t code = start;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsFollower(text, at + i)) return {kNoCharacter, 1};
    code = code << 6 | Bits(text, at + i);
  }
  const bool real = code >= least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return real ? Character{code, length} : Character{kNoCharacter, 1};
}

}  // namespace

Character CharacterAt(std::string_view text, std::size_t at) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (byte < 0x80) return {byte, 1};
  if ((byte & 0xE0) == 0xC0) return Long(text, at, 2, byte & 0x1F, 0x80);
  if ((byte & 0xF0) == 0xE0) return Long(text, at, 3, byte & 0x0F, 0x800);
  if ((byte & 0xF8) == 0xF0) return Long(text, at, 4, byte & 0x07, 0x10000);
  return {kNoCharacter, 1};
}

bool IsLetter(char32_t code) {
  if (code < 0x80) return (code >= U'a' && code <= U'z') || (code >= U'A' && code <= U'Z');
  if (code < 0xC0) return code == 0xB5;
  if (code == 0xD7 || code == 0xF7 || code == kNoCharacter) return false;
  if (code >= 0x2000 && code <= 0x2BFF) return code == 0x2126;  // the ohm sign
  if (code >= 0x3000 && code <= 0x303F) return false;
  if (code >= 0xE000 && code <= 0xF8FF) return false;
  if (code >= 0xFE00 && code <= 0xFE6F) return false;
  return code < 0xFEFF || (code > 0xFF20 && code < 0x1F000 && !(code >= 0xFFF0 && code <= 0xFFFF)) ||
         (code >= 0x20000 && code < 0xE0000);
}

bool IsUpperLetter(char32_t code) {
  if (code < 0x80) return code >= U'A' && code <= U'Z';
  if (code >= 0xC0 && code <= 0xDE) return code != 0xD7;
  // Capital and small letter by turns.
  if (code >= 0x100 && code <= 0x137) return code % 2 == 0;
  if (code >= 0x139 && code <= 0x148) return code % 2 == 1;
  if (code >= 0x14A && code <= 0x177) return code % 2 == 0;
  return code == 0x178 || code == 0x179 || code == 0x17B || code == 0x17D || code == 0x1E9E ||
         (code >= 0x391 && code <= 0x3A9) || (code >= 0x400 && code <= 0x42F);
}

bool IsBlankCharacter(char32_t code) {
  return code == U' ' || code == U'\t' || code == 0xA0 || (code >= 0x2000 && code <= 0x200A) ||
         code == 0x202F || code == 0x205F || code == 0x3000;
}

bool IsPicture(char32_t code) {
  if (code == kNoCharacter) return false;
  return (code >= 0x1F000 && code <= 0x1FAFF) || (code >= 0x2600 && code <= 0x27BF) ||
         (code >= 0x2B50 && code <= 0x2B55) || (code >= 0x231A && code <= 0x231B) ||
         (code >= 0x23E9 && code <= 0x23FA) || code == 0x200D || code == 0xFE0F || code == 0x20E3;
}

}  // namespace lorelin
