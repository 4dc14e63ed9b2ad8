#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "german/tokens.h"

namespace lorelin {

// A number as it is written: "12.500", "12 500", "3,14".
struct WrittenNumber {
  std::uint64_t value = 0;    // before the comma
  std::string_view whole;     // as it is written before the comma, gaps and all
  std::string_view decimals;  // behind it
  bool grouped = false;
  std::size_t end = 0;  // the token behind

  [[nodiscard]] bool IsWhole() const { return decimals.empty(); }
  [[nodiscard]] bool IsOne() const { return IsWhole() && value == 1; }
  [[nodiscard]] bool IsYear() const { return IsWhole() && !grouped && whole.size() == 4; }
};

// The number that begins at the token; nothing when there is none, or one of more digits than have words.
[[nodiscard]] std::optional<WrittenNumber> NumberAt(const Tokens& tokens, std::size_t i);

// Digits only, this many at most.
[[nodiscard]] std::optional<std::uint64_t> DigitsAt(const Tokens& tokens, std::size_t i, std::size_t most);

// In words, "drei Komma eins vier"; a 1 is said as `one`.
[[nodiscard]] std::string NumberText(const WrittenNumber& number, std::string_view one = "eins");

// The number as it is said when it may be a year: "neunzehnhundertzehn".
[[nodiscard]] std::string NumberOrYearText(const WrittenNumber& number);

struct Fraction {
  std::uint64_t numerator = 0;
  std::uint64_t denominator = 1;
  std::size_t end = 0;  // the token behind
};

// "½" or "3/4"; any two numbers with a stroke between them that make a proper fraction.
[[nodiscard]] std::optional<Fraction> FractionAt(const Tokens& tokens, std::size_t i);
[[nodiscard]] bool IsFractionSign(std::string_view sign);

// "ein viertel", "zwei drittel".
[[nodiscard]] std::string FractionText(const Fraction& fraction);

}  // namespace lorelin
