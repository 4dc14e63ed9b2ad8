#include "german/numbers.h"

#include <array>
#include <charconv>

#include "german/numberWords.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostDigits = 12;
constexpr std::size_t kMostDecimals = 20;

std::uint64_t ValueOf(std::string_view digits) {
  std::uint64_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

// Between the groups of thousands: a point, an apostrophe, or a gap.
bool PartsGroups(const Tokens& tokens, std::size_t i, std::string_view first) {
  const std::string_view sign = tokens.View(i);
  if (first.empty()) return IsOneOf(sign, {".", "'", "’", " ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"});
  return sign == first;
}

// "5.000jährig", "250.000DM".
bool MayTouchNumber(std::string_view word) {
  return HasPrefix(word, {"jähr", "fach", "mal"}) ||
         IsOneOf(word, {"er", "DM", "EUR", "CHF", "km",  "m", "cm", "mm", "kg", "g",  "t",
                        "ha", "qm", "ml",  "l",   "kWh", "W", "kW", "MB", "GB", "mg", "x"});
}

bool GroupFollows(const Tokens& tokens, std::size_t i, std::string_view sign) {
  return PartsGroups(tokens, i, sign) && tokens.IsNumber(i + 1, 3, 3) &&
         (!tokens.IsWord(i + 2) || (tokens.Is(i, ".") && MayTouchNumber(tokens.View(i + 2))));
}

// A group behind a mere blank may be the next number: "Platz 3 100 Meter".
bool MayBeGrouped(const Tokens& tokens, std::size_t i) {
  const bool blank = tokens.IsBlank(i + 1);
  if (!blank) return true;
  const std::size_t before = tokens.Before(i);
  return before == Tokens::kNone ||
         !(tokens.IsNumber(before) || IsOneOf(tokens.View(before), {"/", "-", "+", ")"}));
}

void ReadGroups(const Tokens& tokens, std::size_t i, WrittenNumber& number) {
  if (number.whole.size() > 3 || number.whole.front() == '0') return;
  if (!GroupFollows(tokens, number.end, {}) || !MayBeGrouped(tokens, i)) return;
  const std::string_view sign = tokens.View(number.end);
  std::uint64_t value = number.value;
  std::size_t end = number.end;
  for (std::size_t groups = 0; GroupFollows(tokens, end, sign); ++groups) {
    if (groups == 3) return;
    value = value * 1000 + ValueOf(tokens.View(end + 1));
    end += 2;
  }
  // "1.234.5" is no number, and digits that go on behind a gap are no groups.
  if (PartsGroups(tokens, end, sign) && tokens.IsNumber(end + 1)) return;
  number.value = value;
  number.grouped = true;
  number.end = end;
  number.whole = tokens.View(i, end);
}

// "(38,31,207)": three numbers without blanks are a row and no decimals.
bool StandsInRow(const Tokens& tokens, std::size_t i, std::size_t comma) {
  const bool more = tokens.Is(comma + 2, ",") && tokens.IsNumber(comma + 3);
  return more || (i > 1 && tokens.Is(i - 1, ",") && tokens.IsNumber(i - 2));
}

}  // namespace

std::optional<std::uint64_t> DigitsAt(const Tokens& tokens, std::size_t i, std::size_t most) {
  if (!tokens.IsNumber(i, 1, most)) return std::nullopt;
  return ValueOf(tokens.View(i));
}

std::optional<WrittenNumber> NumberAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 1, kMostDigits)) return std::nullopt;
  WrittenNumber number;
  number.whole = tokens.View(i);
  number.value = ValueOf(number.whole);
  number.end = i + 1;
  ReadGroups(tokens, i, number);
  if (tokens.Is(number.end, ",") && tokens.IsNumber(number.end + 1, 1, kMostDecimals) &&
      !StandsInRow(tokens, i, number.end)) {
    number.decimals = tokens.View(number.end + 1);
    number.end += 2;
  }
  if (number.value >= kNumberWordsEnd) return std::nullopt;
  return number;
}

std::string NumberText(const WrittenNumber& number, std::string_view one) {
  if (number.IsWhole()) return CardinalWords(number.value, one);
  return CardinalWords(number.value, "eins") + " Komma " + DigitWords(number.decimals);
}

std::string NumberOrYearText(const WrittenNumber& number) {
  return number.IsYear() ? YearWords(number.value) : NumberText(number);
}

namespace {

struct FractionSign {
  std::string_view sign;
  std::uint64_t numerator;
  std::uint64_t denominator;
};

constexpr std::array kFractionSigns{
    FractionSign{"½", 1, 2}, FractionSign{"¼", 1, 4}, FractionSign{"¾", 3, 4}, FractionSign{"⅓", 1, 3},
    FractionSign{"⅔", 2, 3}, FractionSign{"⅛", 1, 8}, FractionSign{"⅜", 3, 8}, FractionSign{"⅝", 5, 8},
    FractionSign{"⅞", 7, 8}, FractionSign{"⅕", 1, 5}, FractionSign{"⅖", 2, 5}, FractionSign{"⅗", 3, 5},
    FractionSign{"⅘", 4, 5}, FractionSign{"⅙", 1, 6}, FractionSign{"⅚", 5, 6}};

}  // namespace

bool IsFractionSign(std::string_view sign) {
  for (const FractionSign& one : kFractionSigns) {
    if (one.sign == sign) return true;
  }
  return false;
}

std::optional<Fraction> FractionAt(const Tokens& tokens, std::size_t i) {
  for (const FractionSign& one : kFractionSigns) {
    if (tokens.Is(i, one.sign)) return Fraction{one.numerator, one.denominator, i + 1};
  }
  const auto numerator = DigitsAt(tokens, i, 2);
  const bool stroke = tokens.Is(i + 1, "/") || tokens.Is(i + 1, "⁄");
  const auto denominator = DigitsAt(tokens, i + 2, 3);
  if (!numerator || !stroke || !denominator || tokens.View(i).front() == '0') return std::nullopt;
  if (IsOneOf(tokens.View(i + 3), {".", ","}) && tokens.IsNumber(i + 4)) return std::nullopt;
  if (*numerator < 1 || *numerator >= *denominator || tokens.View(i + 2).front() == '0') return std::nullopt;
  if (*numerator == 24 && *denominator == 7) return std::nullopt;  // all day, all week
  return Fraction{*numerator, *denominator, i + 3};
}

std::string FractionText(const Fraction& fraction) {
  if (fraction.denominator == 2) return "ein halb";
  return CardinalWords(fraction.numerator, "ein") + " " + OrdinalWords(fraction.denominator, "el");
}

}  // namespace lorelin
