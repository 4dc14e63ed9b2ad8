#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// What a rule found at a place: so many bytes are spoken as these words.
struct SpokenMatch {
  std::size_t length = 0;
  std::string words;
};

// A number as it stands in a text.
struct WrittenNumber {
  std::uint64_t value = 0;
  std::string_view digits;    // of the whole part, with its points
  std::string_view decimals;  // behind the comma
  bool grouped = false;       // with points between the thousands
  std::size_t end = 0;

  [[nodiscard]] bool IsWhole() const { return decimals.empty(); }
};

[[nodiscard]] bool IsDigit(char c);
// A letter, beyond ASCII all bytes of words count.
[[nodiscard]] bool IsLetterByte(char c);
[[nodiscard]] bool IsUpperAt(std::string_view text, std::size_t at);

// Behind the blanks (also the non-breaking ones) from `at` on, `most` at most; line ends are none.
[[nodiscard]] std::size_t SkipBlanks(std::string_view text, std::size_t at, int most = 2);
// The letters from `at` on.
[[nodiscard]] std::string_view WordAt(std::string_view text, std::size_t at);
// The word that ends before `at`, blanks between skipped; "" at another sign or a line end.
[[nodiscard]] std::string_view WordBefore(std::string_view text, std::size_t at);
// Whether the text goes on with `wanted`, and no letter follows when it ends in one.
[[nodiscard]] bool StandsAt(std::string_view text, std::size_t at, std::string_view wanted);
// A whole number, its thousands parted or not, and decimals; absent when there is none or it is too large.
[[nodiscard]] std::optional<WrittenNumber> NumberAt(std::string_view text, std::size_t at);
// One to `most` digits without any point.
[[nodiscard]] std::optional<WrittenNumber> DigitsAt(std::string_view text, std::size_t at, std::size_t most);
// The length of a hyphen or dash with which a range is written, 0 for anything else.
[[nodiscard]] std::size_t DashAt(std::string_view text, std::size_t at);

[[nodiscard]] bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words);
// NUL behind the end.
[[nodiscard]] char CharAt(std::string_view text, std::size_t at);
[[nodiscard]] bool DigitFollows(std::string_view text, std::size_t at);

// "drei Komma eins vier".
[[nodiscard]] std::string NumberWords(const WrittenNumber& number, std::string_view one);

}  // namespace lorelin
