#include "german/numberWords.h"

#include <array>

namespace lorelin {
namespace {

constexpr std::array<std::string_view, 20> kSmall{"null",     "eins",     "zwei",     "drei",     "vier",
                                                  "fünf",     "sechs",    "sieben",   "acht",     "neun",
                                                  "zehn",     "elf",      "zwölf",    "dreizehn", "vierzehn",
                                                  "fünfzehn", "sechzehn", "siebzehn", "achtzehn", "neunzehn"};
constexpr std::array<std::string_view, 10> kTens{"",        "",        "zwanzig", "dreißig", "vierzig",
                                                 "fünfzig", "sechzig", "siebzig", "achtzig", "neunzig"};
constexpr std::uint64_t kMillion = 1'000'000;
constexpr std::uint64_t kMilliard = 1'000'000'000;

std::string BelowHundred(std::uint64_t number, std::string_view one) {
  if (number == 1) return std::string(one);
  const auto index = static_cast<std::size_t>(number);
  if (index < kSmall.size()) return std::string(kSmall[index]);
  const std::string tens(kTens[index / 10]);
  const auto units = index % 10;
  if (units == 0) return tens;
  return (units == 1 ? std::string("ein") : std::string(kSmall[units])) + "und" + tens;
}

std::string BelowThousand(std::uint64_t number, std::string_view one) {
  if (number < 100) return BelowHundred(number, one);
  const std::string hundreds = BelowHundred(number / 100, "ein") + "hundert";
  return number % 100 == 0 ? hundreds : hundreds + BelowHundred(number % 100, "eins");
}

std::string BelowMillion(std::uint64_t number, std::string_view one) {
  if (number < 1000) return BelowThousand(number, one);
  const std::string thousands = BelowThousand(number / 1000, "ein") + "tausend";
  return number % 1000 == 0 ? thousands : thousands + BelowThousand(number % 1000, "eins");
}

std::string Large(std::uint64_t count, std::string_view singular, std::string_view plural) {
  return BelowThousand(count, "eine") + " " + std::string(count == 1 ? singular : plural);
}

}  // namespace

std::string CardinalWords(std::uint64_t number, std::string_view one) {
  if (number < kMillion) return BelowMillion(number, one);
  std::string words;
  if (number >= kMilliard) words = Large(number / kMilliard, "Milliarde", "Milliarden");
  if (const auto millions = number % kMilliard / kMillion; millions > 0) {
    words += (words.empty() ? "" : " ") + Large(millions, "Million", "Millionen");
  }
  if (const auto rest = number % kMillion; rest > 0) words += " " + BelowMillion(rest, "eins");
  return words;
}

std::string YearWords(std::uint64_t year) {
  if (year < 1100 || year >= 2000) return CardinalWords(year);
  const std::string hundreds = BelowHundred(year / 100, "ein") + "hundert";
  return year % 100 == 0 ? hundreds : hundreds + BelowHundred(year % 100, "eins");
}

std::string OrdinalWords(std::uint64_t number, std::string_view ending) {
  std::string stem;
  const auto last = static_cast<std::size_t>(number % 100);
  if (last == 1 || last == 3 || last == 7 || last == 8) {
    constexpr std::array<std::string_view, 9> kOdd{"", "erst", "", "dritt", "", "", "", "siebt", "acht"};
    if (number > 100) stem = CardinalWords(number - last);
    stem += kOdd[last];
  } else if (number == 100 || number == 1000) {
    stem = number == 100 ? "hundertst" : "tausendst";
  } else {
    stem = CardinalWords(number) + (last > 0 && last < 20 ? "t" : "st");
  }
  return stem + std::string(ending);
}

std::string DigitWords(std::string_view digits) {
  std::string words;
  for (const char c : digits) {
    if (c < '0' || c > '9') continue;
    if (!words.empty()) words += ' ';
    words += kSmall[static_cast<std::size_t>(c - '0')];
  }
  return words;
}

std::uint64_t RomanValue(std::string_view text) {
  struct Sign {
    std::string_view letters;
    std::uint64_t value;
  };
  constexpr std::array<Sign, 13> kSigns{Sign{"M", 1000}, Sign{"CM", 900}, Sign{"D", 500}, Sign{"CD", 400},
                                        Sign{"C", 100},  Sign{"XC", 90},  Sign{"L", 50},  Sign{"XL", 40},
                                        Sign{"X", 10},   Sign{"IX", 9},   Sign{"V", 5},   Sign{"IV", 4},
                                        Sign{"I", 1}};
  std::uint64_t value = 0;
  std::size_t at = 0;
  for (const Sign& sign : kSigns) {
    const int most =
        sign.letters.size() == 2 || sign.letters == "D" || sign.letters == "L" || sign.letters == "V" ? 1 : 3;
    for (int i = 0; i < most && text.substr(at).starts_with(sign.letters); ++i) {
      value += sign.value;
      at += sign.letters.size();
    }
  }
  return at == text.size() && !text.empty() ? value : 0;
}

}  // namespace lorelin
