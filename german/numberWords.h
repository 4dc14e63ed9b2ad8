#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lorelin {

// Numbers below this one have words here.
inline constexpr std::uint64_t kNumberWordsEnd = 1'000'000'000'000;

// "zweihunderteinundfünfzig"; 1 is "eins", or `one` before a noun ("ein", "eine").
[[nodiscard]] std::string CardinalWords(std::uint64_t number, std::string_view one = "eins");

// A year as people say it: 1998 is "neunzehnhundertachtundneunzig".
[[nodiscard]] std::string YearWords(std::uint64_t year);

// "dritte" with the ending of its case in the place of the last "e": "dritter", "dritten".
[[nodiscard]] std::string OrdinalWords(std::uint64_t number, std::string_view ending);

// "eins vier eins": each digit for itself.
[[nodiscard]] std::string DigitWords(std::string_view digits);

// The value of a Roman numeral in its usual spelling, up to 3999; 0 for anything else.
[[nodiscard]] std::uint64_t RomanValue(std::string_view text);

}  // namespace lorelin
