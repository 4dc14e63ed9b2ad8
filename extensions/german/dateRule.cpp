#include "extensions/german/dateRule.h"

#include <array>

#include "extensions/german/numberRule.h"
#include "extensions/german/numberWords.h"

namespace lorelin {
namespace {

using Found = std::optional<SpokenMatch>;

constexpr std::array<std::string_view, 12> kMonths{"Januar",    "Februar", "März",     "April",
                                                   "Mai",       "Juni",    "Juli",     "August",
                                                   "September", "Oktober", "November", "Dezember"};
constexpr std::array<std::string_view, 12> kShortMonths{"Jan.", "Feb.", "Mär.", "Apr.", "Mai.", "Jun.",
                                                        "Jul.", "Aug.", "Sep.", "Okt.", "Nov.", "Dez."};

// What follows a day: a month by name or number, and a year.
struct Month {
  std::size_t number = 0;  // from 1; 0 for none
  std::size_t end = 0;
};

Month MonthNameAt(std::string_view text, std::size_t at) {
  for (std::size_t i = 0; i < kMonths.size(); ++i) {
    if (StandsAt(text, at, kMonths[i])) return {i + 1, at + kMonths[i].size()};
    if (text.substr(at).starts_with(kShortMonths[i])) return {i + 1, at + kShortMonths[i].size()};
  }
  return {};
}

Month MonthAt(std::string_view text, std::size_t at) {
  if (at >= text.size()) return {};
  if (const Month named = MonthNameAt(text, at); named.number != 0) return named;
  const auto number = DigitsAt(text, at, 2);
  if (!number || number->value < 1 || number->value > 12 || CharAt(text, number->end) != '.') return {};
  return {static_cast<std::size_t>(number->value), number->end + 1};
}

// A year behind a date: two or four digits, and nothing else of a number.
std::optional<WrittenNumber> YearAt(std::string_view text, std::size_t at) {
  const auto year = DigitsAt(text, at, 4);
  if (!year || (year->digits.size() != 4 && year->digits.size() != 2)) return std::nullopt;
  const char next = CharAt(text, year->end);
  if ((next == '.' || next == ',' || next == ':') && DigitFollows(text, year->end + 1)) return std::nullopt;
  return year;
}

std::string YearText(const WrittenNumber& year) {
  if (year.digits.size() == 4) return YearWords(year.value);
  return year.value == 0 ? "zweitausend" : CardinalWords(year.value);
}

std::string_view DateEnding(std::string_view text, std::size_t at) {
  const auto ending = OrdinalEnding(text, at);
  return ending.empty() ? "er" : ending;
}

}  // namespace

Found DateAt(std::string_view text, std::size_t at) {
  const auto day = DigitsAt(text, at, 2);
  if (!day || day->value < 1 || day->value > 31 || CharAt(text, day->end) != '.') return std::nullopt;
  const Month month = MonthAt(text, SkipBlanks(text, day->end + 1, 1));
  if (month.number == 0) return std::nullopt;
  std::string words =
      OrdinalWords(day->value, DateEnding(text, at)) + " " + std::string(kMonths[month.number - 1]);
  const std::size_t behind = SkipBlanks(text, month.end, 1);
  const auto year = YearAt(text, behind);
  const bool byName = text[month.end - 1] != '.' || !IsDigit(text[month.end - 2]);
  const bool glued = behind == month.end;
  const bool fits = year && (year->digits.size() == 4 || (glued && !byName)) &&
                    !StandsAt(text, SkipBlanks(text, year->end), "Uhr") && !(CharAt(text, year->end) == ':');
  if (fits) return SpokenMatch{year->end - at, words + " " + YearText(*year)};
  // A date of numbers that goes on with more digits is no date.
  if (!byName && glued && DigitFollows(text, month.end)) return std::nullopt;
  // Its last point is also that of the sentence.
  std::size_t end = month.end;
  if (!byName) {
    const std::size_t next = SkipBlanks(text, end);
    if (next >= text.size() || text[next] == '\n' || (next > end && IsUpperAt(text, next))) words += '.';
  }
  return SpokenMatch{end - at, words};
}

namespace {}  // namespace

Found DayBeforeDateAt(std::string_view text, std::size_t at) {
  const auto day = DigitsAt(text, at, 2);
  if (!day || day->value < 1 || day->value > 31 || CharAt(text, day->end) != '.') return std::nullopt;
  std::size_t next = SkipBlanks(text, day->end + 1, 1);
  std::string_view between;
  for (const std::string_view word : {"bis", "und", "oder"}) {
    if (StandsAt(text, next, word)) between = word;
  }
  std::size_t length = between.size();
  if (between.empty()) {
    length = DashAt(text, next);
    if (length == 0) return std::nullopt;
    between = "bis";
  }
  next = SkipBlanks(text, next + length, 1);
  const auto second = DigitsAt(text, next, 2);
  if (!second || CharAt(text, second->end) != '.') return std::nullopt;
  if (MonthAt(text, SkipBlanks(text, second->end + 1, 1)).number == 0) return std::nullopt;
  const auto ending = DateEnding(text, at);
  auto date = DateAt(text, next);
  if (!date) return std::nullopt;
  // The second day is in the case of the first.
  const std::string own = OrdinalWords(second->value, DateEnding(text, next));
  date->words = OrdinalWords(second->value, ending) + date->words.substr(own.size());
  return SpokenMatch{next + date->length - at,
                     OrdinalWords(day->value, ending) + " " + std::string(between) + " " + date->words};
}

namespace {

struct Clock {
  std::uint64_t hour = 0;
  std::optional<std::uint64_t> minute;
  std::optional<std::uint64_t> second;
  std::size_t end = 0;
};

std::optional<Clock> ClockAt(std::string_view text, std::size_t at, bool withPoint) {
  const auto hour = DigitsAt(text, at, 2);
  if (!hour || hour->value > 24) return std::nullopt;
  Clock clock{hour->value, std::nullopt, std::nullopt, hour->end};
  const char sign = CharAt(text, clock.end);
  if (sign != ':' && !(withPoint && sign == '.')) return clock;
  const auto minute = DigitsAt(text, clock.end + 1, 2);
  if (!minute || minute->digits.size() != 2 || minute->value > 59) return clock;
  clock.minute = minute->value;
  clock.end = minute->end;
  if (sign == ':' && CharAt(text, clock.end) == ':') {
    const auto second = DigitsAt(text, clock.end + 1, 2);
    if (second && second->digits.size() == 2 && second->value < 60) {
      clock.second = second->value;
      clock.end = second->end;
    }
  }
  return clock;
}

std::string ClockWords(const Clock& clock) {
  std::string words = CardinalWords(clock.hour, "ein") + " Uhr";
  if (clock.minute && *clock.minute != 0) words += " " + CardinalWords(*clock.minute);
  if (clock.second) {
    if (*clock.minute == 0) words += " null";
    words += " und " + CardinalWords(*clock.second, "eine") + (*clock.second == 1 ? " Sekunde" : " Sekunden");
  }
  return words;
}

std::size_t HourWordAt(std::string_view text, std::size_t at) {
  const std::size_t next = SkipBlanks(text, at, 1);
  if (StandsAt(text, next, "Uhr")) return next + 3;
  return StandsAt(text, next, "h") ? next + 1 : 0;
}

}  // namespace

Found TimeAt(std::string_view text, std::size_t at) {
  const auto first = ClockAt(text, at, true);
  if (!first) return std::nullopt;
  const bool hours =
      first->end < text.size() && first->minute && StandsAt(text, SkipBlanks(text, first->end, 1), "h");
  if (const std::size_t end = HourWordAt(text, first->end); end != 0 && (hours || text[end - 1] != 'h')) {
    return SpokenMatch{end - at, ClockWords(*first)};
  }
  std::size_t dash = SkipBlanks(text, first->end, 1);
  const bool word = StandsAt(text, dash, "bis") || StandsAt(text, dash, "und");
  const std::string_view between = StandsAt(text, dash, "und") ? " und " : " bis ";
  const std::size_t length = word ? 3 : DashAt(text, dash);
  if (length != 0) {
    const auto second = ClockAt(text, SkipBlanks(text, dash + length, 1), true);
    const std::size_t end = second ? HourWordAt(text, second->end) : 0;
    if (end != 0 && text[end - 1] != 'h') {
      const std::string begin =
          first->minute && *first->minute != 0 ? ClockWords(*first) : CardinalWords(first->hour, "ein");
      return SpokenMatch{end - at, begin + std::string(between) + ClockWords(*second)};
    }
    const auto plain = ClockAt(text, SkipBlanks(text, dash + length, 1), false);
    if (first->minute && text[at + (first->hour < 10 && text[at + 1] == ':' ? 1 : 2)] == ':' && plain &&
        plain->minute) {
      return SpokenMatch{plain->end - at, ClockWords(*first) + " bis " + ClockWords(*plain)};
    }
  }
  const auto plain = ClockAt(text, at, false);
  if (!plain || !plain->minute || DigitFollows(text, plain->end)) return std::nullopt;
  if (IsOneOf(WordBefore(text, at), {"Mischung", "Maßstab", "Verhältnis", "Stand", "Ergebnis", "mit"}))
    return std::nullopt;
  return SpokenMatch{plain->end - at, ClockWords(*plain)};
}

}  // namespace lorelin
