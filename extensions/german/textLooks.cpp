#include "extensions/german/textLooks.h"

#include <algorithm>
#include <charconv>

#include "extensions/german/numberWords.h"

namespace lorelin {
namespace {

constexpr std::string_view kBlanks[] = {" ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"};
constexpr std::string_view kDashes[] = {"\xE2\x80\x93", "\xE2\x80\x94", "\xE2\x80\x91", "-"};
constexpr std::size_t kLongestWord = 60;    // bytes that are looked at
constexpr std::size_t kLongestNumber = 15;  // digits

std::size_t CountDigits(std::string_view text, std::size_t at) {
  std::size_t count = 0;
  while (at + count < text.size() && IsDigit(text[at + count])) ++count;
  return count;
}

}  // namespace

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetterByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0xC3;
}

namespace {

// All bytes of "ä" belong to a word, those of a dash or a blank do not.
bool IsWordAt(std::string_view text, std::size_t at, std::size_t& length) {
  const auto byte = static_cast<unsigned char>(text[at]);
  length = 1;
  if (byte < 0x80) return IsLetterByte(text[at]);
  if ((byte & 0xE0) != 0xC0 || byte < 0xC3) return false;
  length = 2;
  return at + 1 < text.size() && text.substr(at, 2) != "\xC3\x97" && text.substr(at, 2) != "\xC3\xB7";
}

}  // namespace

bool IsUpperAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return false;
  if (text[at] >= 'A' && text[at] <= 'Z') return true;
  const auto two = text.substr(at, 2);
  return two == "Ä" || two == "Ö" || two == "Ü";
}

std::size_t SkipBlanks(std::string_view text, std::size_t at, int most) {
  for (; most > 0; --most) {
    const std::size_t before = at;
    for (const auto blank : kBlanks) {
      if (text.substr(at).starts_with(blank)) {
        at += blank.size();
        break;
      }
    }
    if (at == before) break;
  }
  return at;
}

std::string_view WordAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  std::size_t length = 0;
  while (end < text.size() && end - at < kLongestWord && IsWordAt(text, end, length)) end += length;
  return text.substr(at, end - at);
}

std::string_view WordBefore(std::string_view text, std::size_t at) {
  std::size_t end = at;
  for (int i = 0; i < 2 && end > 0; ++i) {
    for (const auto blank : kBlanks) {
      if (text.substr(0, end).ends_with(blank)) {
        end -= blank.size();
        break;
      }
    }
  }
  std::size_t begin = end;
  while (begin > 0 && end - begin < kLongestWord) {
    const char c = text[begin - 1];
    const bool second = (static_cast<unsigned char>(c) & 0xC0) == 0x80 && begin > 1 &&
                        static_cast<unsigned char>(text[begin - 2]) == 0xC3;
    if (second) {
      begin -= 2;
    } else if (static_cast<unsigned char>(c) < 0x80 && IsLetterByte(c)) {
      --begin;
    } else {
      break;
    }
  }
  return text.substr(begin, end - begin);
}

bool StandsAt(std::string_view text, std::size_t at, std::string_view wanted) {
  if (at > text.size() || !text.substr(at).starts_with(wanted)) return false;
  const std::size_t end = at + wanted.size();
  std::size_t length = 0;
  return end >= text.size() || !IsLetterByte(wanted.back()) || !IsWordAt(text, end, length);
}

std::optional<WrittenNumber> DigitsAt(std::string_view text, std::size_t at, std::size_t most) {
  const std::size_t count = at < text.size() ? CountDigits(text, at) : 0;
  if (count == 0 || count > most) return std::nullopt;
  WrittenNumber number;
  number.digits = text.substr(at, count);
  number.end = at + count;
  std::from_chars(number.digits.data(), number.digits.data() + count, number.value);
  return number;
}

std::optional<WrittenNumber> NumberAt(std::string_view text, std::size_t at) {
  auto number = DigitsAt(text, at, kLongestNumber);
  if (!number) return std::nullopt;
  if (number->digits.size() <= 3 && number->digits.front() != '0') {
    while (number->end < text.size() && text[number->end] == '.' && CountDigits(text, number->end + 1) == 3 &&
           number->end - at < kLongestNumber) {
      const auto group = DigitsAt(text, number->end + 1, 3);
      number->value = number->value * 1000 + group->value;
      number->end = group->end;
      number->grouped = true;
    }
  }
  number->digits = text.substr(at, number->end - at);
  if (number->end < text.size() && text[number->end] == ',') {
    if (const auto decimals = DigitsAt(text, number->end + 1, kLongestNumber)) {
      number->decimals = decimals->digits;
      number->end = decimals->end;
    }
  }
  if (number->value >= kNumberWordsEnd) return std::nullopt;
  return number;
}

std::size_t DashAt(std::string_view text, std::size_t at) {
  for (const auto dash : kDashes) {
    if (at < text.size() && text.substr(at).starts_with(dash)) return dash.size();
  }
  return 0;
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

char CharAt(std::string_view text, std::size_t at) {
  return at < text.size() ? text[at] : '\0';
}

bool DigitFollows(std::string_view text, std::size_t at) {
  return IsDigit(CharAt(text, at));
}

std::string NumberWords(const WrittenNumber& number, std::string_view one) {
  if (number.IsWhole()) return CardinalWords(number.value, one);
  return CardinalWords(number.value, "eins") + " Komma " + DigitWords(number.decimals);
}

}  // namespace lorelin
