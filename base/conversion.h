#pragma once

#include <cstdint>
#include <string_view>

namespace lorelin {

// A decimal number text as a number: blanks around it are ignored, a sign and a decimal comma or point are
// allowed. Throws RuntimeError 13 when the text is no such number and 6 when the number is too large.
[[nodiscard]] double ToDouble(std::string_view text);

// Whether ToDouble takes the text.
[[nodiscard]] bool IsNumeric(std::string_view text);

// A decimal number text as a 32-bit whole number: like ToDouble, fractions rounded with halves to even.
// Throws RuntimeError 6 also when the number does not fit.
[[nodiscard]] std::int32_t ToLong(std::string_view text);

// Rounds to the nearest whole number, halves to even. Throws RuntimeError 6 when it does not fit 32 bits.
[[nodiscard]] std::int32_t RoundToLong(double number);

}  // namespace lorelin
