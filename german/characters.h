#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lorelin {

// A character of a text in UTF-8; a byte that belongs to none has the code kNoCharacter and the length 1.
struct Character {
  char32_t code = 0;
  std::size_t length = 0;
};
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

[[nodiscard]] Character CharacterAt(std::string_view text, std::size_t at);

// Letters of any script, "µ" and the marks drawn over letters among them; not the signs that lie between
// them.
[[nodiscard]] bool IsLetter(char32_t code);
// Capitals of the Latin alphabet with all its accents.
[[nodiscard]] bool IsUpperLetter(char32_t code);
[[nodiscard]] bool IsBlankCharacter(char32_t code);
// Pictures: emoji, dingbats, and what joins or colours them.
[[nodiscard]] bool IsPicture(char32_t code);

}  // namespace lorelin
