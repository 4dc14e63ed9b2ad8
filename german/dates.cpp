#include "german/dates.h"

#include <array>

#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

constexpr std::array<std::string_view, 12> kMonths{"Januar",    "Februar", "März",     "April",
                                                   "Mai",       "Juni",    "Juli",     "August",
                                                   "September", "Oktober", "November", "Dezember"};
struct ShortMonth {
  std::string_view written;
  std::size_t number;
};
constexpr std::array kShortMonths{ShortMonth{"Jan", 1},  ShortMonth{"Feb", 2},  ShortMonth{"Febr", 2},
                                  ShortMonth{"Mär", 3},  ShortMonth{"Mrz", 3},  ShortMonth{"Apr", 4},
                                  ShortMonth{"Jun", 6},  ShortMonth{"Jul", 7},  ShortMonth{"Aug", 8},
                                  ShortMonth{"Sep", 9},  ShortMonth{"Sept", 9}, ShortMonth{"Okt", 10},
                                  ShortMonth{"Nov", 11}, ShortMonth{"Dez", 12}, ShortMonth{"Jänner", 1}};

struct Weekday {
  std::string_view written;
  std::string_view spoken;
};
constexpr std::array kWeekdays{Weekday{"Mo", "Montag"},   Weekday{"Di", "Dienstag"},
                               Weekday{"Mi", "Mittwoch"}, Weekday{"Do", "Donnerstag"},
                               Weekday{"Fr", "Freitag"},  Weekday{"Sa", "Samstag"},
                               Weekday{"So", "Sonntag"}};

bool IsDay(const Tokens& tokens, std::size_t i) {
  const auto day = DigitsAt(tokens, i, 2);
  return day && *day >= 1 && *day <= 31 && tokens.FreeBefore(i);
}

std::optional<std::size_t> MonthNumberAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 2);
  if (!number || *number < 1 || *number > 12) return std::nullopt;
  return static_cast<std::size_t>(*number);
}

// Four digits, or two that touch the point of the month; nothing else of a number, no time.
bool IsYearAt(const Tokens& tokens, std::size_t i, bool twoDigits) {
  if (!tokens.IsNumber(i, 4, 4) && !(twoDigits && tokens.IsNumber(i, 2, 2))) return false;
  if (tokens.View(i).size() == 4 && tokens.View(i).front() == '0') return false;  // "Pos. 02.03.0010"
  const auto next = tokens.View(i + 1);
  if (IsOneOf(next, {".", ",", ":"}) && tokens.IsNumber(i + 2)) return false;
  return !tokens.IsWord(i + 1) && !tokens.Is(tokens.Skip(i + 1), "Uhr");
}

std::string YearText(const Tokens& tokens, std::size_t i) {
  const auto digits = tokens.View(i);
  const std::uint64_t value = *DigitsAt(tokens, i, 4);
  if (digits.size() == 4) return YearWords(value);
  if (value == 0) return "zweitausend";
  return (digits.front() == '0' ? "null " : "") + CardinalWords(value);
}

// Days are masculine; without anything before them they stand in the nominative.
std::string_view DayEnding(const Tokens& tokens, std::size_t i) {
  if (HasDeterminer(tokens, i)) return EndingAt(tokens, i, {Gender::Masculine, false, false, true});
  return HasPreposition(tokens, i) ? "en" : "er";
}

std::string DayText(std::uint64_t day, std::string_view ending) {
  return OrdinalWords(day, ending);
}

std::string MonthYearText(const Tokens& tokens, const DateShape& shape) {
  std::string words(kMonths[shape.month - 1]);
  if (shape.year != Tokens::kNone) words += " " + YearText(tokens, shape.year);
  return words;
}

std::optional<DateShape> NamedDateAt(const Tokens& tokens, std::size_t i) {
  const std::size_t next = tokens.Skip(i + 2);
  const auto month = MonthAt(tokens, next);
  if (!month) return std::nullopt;
  DateShape shape{static_cast<std::size_t>(*DigitsAt(tokens, i, 2)), month->number, Tokens::kNone,
                  month->end};
  const std::size_t year = tokens.Skip(month->end);
  if (year > month->end && IsYearAt(tokens, year, false)) {
    shape.year = year;
    shape.end = year + 1;
  }
  return shape;
}

// "am 14. 3. in den Kinos", "ab 1. 4. Leiter": what follows is counted by neither.
bool IsDayOfMonth(const Tokens& tokens, std::size_t i, std::size_t behind) {
  const std::size_t next = tokens.Skip(behind);
  const std::string before = WithLowerStart(tokens.WordBefore(i));
  if (IsOneOf(before, {"am", "vom", "zum", "ab", "bis"})) return true;
  if (before.empty() && StandsBehindWeekday(tokens, i)) return true;
  if (before.empty() && (HasPreposition(tokens, i) || HasDeterminer(tokens, i))) return true;  // "v. 3. 5."
  return IsOneOf(before, {"dem", "den", "der"}) &&
         (tokens.Is(next, ",") || (tokens.IsWord(next) && !tokens.IsCapital(next)));
}

// "Ausgabe 3.7.", "Phase 1.5." may be numbered by days.
bool IsLabelOfDays(std::string_view word) {
  return IsOneOf(word,
                 {"Ausgabe", "Phase", "Rechnung", "Beispiel", "Sender", "Schritt", "Folge", "Spiel", "Kurs"});
}

// "Bluetooth 5.3", "Android 12.1.": what comes in versions.
bool HasVersions(std::string_view word) {
  return IsOneOf(word, {"Bluetooth",   "Android", "iOS",    "Windows", "USB",     "HDMI",      "Python",
                        "Java",        "PHP",     "Linux",  "Ubuntu",  "Debian",  "macOS",     "Firmware",
                        "Software",    "Release", "Update", "DirectX", "Firefox", "Chrome",    "Kernel",
                        "DisplayPort", "TLS",     "ODF",    "GIMP",    "Version", "Versionen", "OpenOffice",
                        "LibreOffice", "Fedora",  "iPadOS", "Harmony", "OS"});
}

}  // namespace

bool StandsBehindSection(const Tokens& tokens, std::size_t i) {
  const std::size_t joint = tokens.Before(i);
  if (joint == Tokens::kNone || !IsOneOf(tokens.View(joint), {"und", "u", "oder", "bis", "sowie", ","}))
    return false;
  const std::size_t part = tokens.Before(joint);
  return part != Tokens::kNone && part > 2 && tokens.IsNumber(part, 1, 2) && tokens.Is(part - 1, ".") &&
         tokens.IsNumber(part - 2, 1, 2) && LabelBefore(tokens, part - 2) &&
         !IsLabelOfDays(tokens.WordBefore(part - 2));
}

namespace {

// "am 17.7 um 12 Uhr", "vom 3.5 bis zum 5.5": the last point is often forgotten.
bool LacksLastPoint(const Tokens& tokens, std::size_t i) {
  const std::size_t behind = i + 3;
  const std::size_t next = tokens.Skip(behind);
  const auto follows = tokens.View(next);
  if (!tokens.IsNumber(i + 2, 1, 2) ||
      !(tokens.IsGap(behind) || IsOneOf(tokens.View(behind), {",", ")", "!", "?", ";"})) ||
      (tokens.Is(behind, ",") && !tokens.IsGap(behind + 1)))
    return false;
  const std::string before = WithLowerStart(tokens.WordBefore(i));
  if (before == "am") return follows != "Uhr";
  const bool named = IsOneOf(before, {"vom", "zum"}) || (before.empty() && StandsBehindWeekday(tokens, i));
  return named && (next != behind ? !tokens.IsCapital(next) && !tokens.IsNumber(next) : true) &&
         !IsOneOf(follows, {"auf", "%", "€", "h"});
}

std::optional<DateShape> NumberDateAt(const Tokens& tokens, std::size_t i) {
  if (HasVersions(tokens.WordBefore(i)) || StandsBehindSection(tokens, i)) return std::nullopt;
  const std::size_t next = tokens.Skip(i + 2);
  const auto month = MonthNumberAt(tokens, next);
  if (!month) return std::nullopt;
  DateShape shape{static_cast<std::size_t>(*DigitsAt(tokens, i, 2)), *month, Tokens::kNone, next + 1};
  const bool point = tokens.Is(next + 1, ".");
  if (!point) return LacksLastPoint(tokens, i) ? std::optional(shape) : std::nullopt;
  shape.end = next + 2;
  const std::size_t year = tokens.Skip(next + 2);
  const bool room = LabelBefore(tokens, i) && !IsLabelOfDays(tokens.WordBefore(i));
  if (room && !tokens.IsNumber(year, 4, 4)) return std::nullopt;  // "Raum 3.07.", "Abschnitt 9.4.13"
  if (tokens.OpensLine(i) && year == next + 2 && tokens.IsNumber(year, 1, 2) && tokens.Is(year + 1, ".") &&
      (tokens.IsLast(year + 1) || (tokens.IsBlank(year + 2) && tokens.IsCapital(year + 3))))
    return std::nullopt;
  if (tokens.Is(next + 2, "x")) return std::nullopt;  // "GIMP 2.10.x"
  if (IsYearAt(tokens, year, year == next + 2)) {
    shape.year = year;
    shape.end = year + 1;
  } else if (tokens.IsNumber(next + 2) ||
             (next > i + 2 && !tokens.IsLast(next + 1) && !IsDayOfMonth(tokens, i, next + 2))) {
    return std::nullopt;  // a version, or two ordinals
  }
  return shape;
}

}  // namespace

bool IsMonth(std::string_view word) {
  for (const auto month : kMonths) {
    if (month == word || (word.ends_with('s') && word.substr(0, word.size() - 1) == month)) return true;
  }
  return false;
}

std::optional<Month> MonthAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsCapital(i) || tokens.View(i).size() > 9) return std::nullopt;
  for (std::size_t month = 0; month < kMonths.size(); ++month) {
    if (tokens.Is(i, kMonths[month])) return Month{month + 1, i + 1};
  }
  for (const ShortMonth& month : kShortMonths) {
    if (tokens.Is(i, month.written)) return Month{month.number, tokens.Is(i + 1, ".") ? i + 2 : i + 1};
  }
  return std::nullopt;
}

std::optional<DateShape> DateShapeAt(const Tokens& tokens, std::size_t i) {
  if (!IsDay(tokens, i) || !tokens.Is(i + 1, ".")) return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {".", ","}) && i > 1 && tokens.IsNumber(i - 2))
    return std::nullopt;
  if (auto named = NamedDateAt(tokens, i)) return named;
  if (i > 1 && tokens.Is(i - 1, "-") && tokens.IsWord(i - 2)) return std::nullopt;  // "GIMP-2.10.18"
  return NumberDateAt(tokens, i);
}

namespace {

Phrase DatePhrase(const Tokens& tokens, const DateShape& shape, std::string_view ending) {
  return {tokens.WithoutLastPoint(shape.end),
          DayText(shape.day, ending) + " " + MonthYearText(tokens, shape)};
}

// "1.", "1" of "1.–14. Juli" and what joins it with the next: the token of the second day.
struct FirstDay {
  std::string_view between;
  std::size_t second = 0;
};

std::optional<FirstDay> FirstDayAt(const Tokens& tokens, std::size_t i) {
  if (!IsDay(tokens, i)) return std::nullopt;
  std::size_t at = tokens.Is(i + 1, ".") ? i + 2 : i + 1;
  const bool point = at == i + 2;
  at = tokens.Skip(at);
  FirstDay first;
  // "Tag 1 – 13. Februar": a heading and its date.
  if (!point && at > i + 1 && tokens.IsDashAt(at) &&
      (LabelBefore(tokens, i) || IsOneOf(tokens.WordBefore(i), {"Tag", "Etappe"})))
    return std::nullopt;
  const std::size_t last = tokens.Skip(at + 1);  // "24 bis 27. August"
  const bool bare = !point && tokens.Is(at, "bis") && IsDay(tokens, last) && tokens.Is(last + 1, ".") &&
                    MonthAt(tokens, tokens.Skip(last + 2));
  if (tokens.IsDashAt(at) || bare) {
    first.between = " bis ";
  } else if (point && tokens.Is(at, "/")) {
    first.between = " und ";
  } else if (point && IsOneOf(tokens.View(at), {"bis", "und", "oder"})) {
    first.between = tokens.Is(at, "bis") ? " bis " : (tokens.Is(at, "und") ? " und " : " oder ");
  } else if (point && tokens.Is(at, "u") && tokens.Is(at + 1, ".")) {
    first.between = " und ";
    ++at;
  } else {
    return std::nullopt;
  }
  first.second = tokens.Skip(at + 1);
  return first;
}

Found DayPairAt(const Tokens& tokens, std::size_t i) {
  const auto first = FirstDayAt(tokens, i);
  if (!first) return std::nullopt;
  const auto shape = DateShapeAt(tokens, first->second);
  if (!shape || tokens.Is(i + 1, ",")) return std::nullopt;
  const auto ending = DayEnding(tokens, i);
  auto date = DatePhrase(tokens, *shape, ending);
  date.words = DayText(*DigitsAt(tokens, i, 2), ending) + std::string(first->between) + date.words;
  return date;
}

// "1.7.–31.8.2026", "3.–5.10."
Found DateSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = DateShapeAt(tokens, i);
  if (!first) return std::nullopt;
  const std::size_t dash = tokens.Skip(first->end);
  if (!tokens.IsDashAt(dash) && !(tokens.Is(dash, "/") && dash == first->end)) return std::nullopt;
  const auto second = DateShapeAt(tokens, tokens.Skip(dash + 1));
  if (!second) return std::nullopt;
  const auto ending = DayEnding(tokens, i);
  auto date = DatePhrase(tokens, *second, ending == "er" && !tokens.Is(dash, "/") ? "er" : "en");
  const std::string begin = DayText(first->day, ending) + " " + MonthYearText(tokens, *first);
  const bool night =
      second->day == first->day + 1 || second->day == 1;  // "vom 14.7./15.7.", "am 6.11./6.12."
  date.words = begin + (!tokens.Is(dash, "/") ? " bis " : (night ? " auf " : " und ")) + date.words;
  return date;
}

// "2024-05-03", perhaps with a time behind a "T".
Found IsoDateAt(const Tokens& tokens, std::size_t i) {
  const bool dashed = tokens.Is(i + 1, "-") && tokens.Is(i + 3, "-");
  const bool stroked = tokens.Is(i + 1, "/") && tokens.Is(i + 3, "/") && !tokens.Is(i + 5, "/");
  if (!tokens.IsNumber(i, 4, 4) || !(dashed || stroked) || !tokens.IsNumber(i + 2, 2, 2) ||
      !tokens.IsNumber(i + 4, 2, 2) || !tokens.FreeBefore(i) || !tokens.FreeBehind(i + 4) ||
      tokens.Is(i + 5, "-"))
    return std::nullopt;
  const auto month = MonthNumberAt(tokens, i + 2);
  if (!month || !IsDay(tokens, i + 4) || (i > 0 && tokens.Is(i - 1, "-"))) return std::nullopt;
  return Phrase{i + 5, DayText(*DigitsAt(tokens, i + 4, 2), DayEnding(tokens, i)) + " " +
                           std::string(kMonths[*month - 1]) + " " + YearText(tokens, i)};
}

bool IsWeekdayWord(std::string_view word) {
  for (const Weekday& day : kWeekdays) {
    if (word == day.written || word == day.spoken) return true;
  }
  return word == "Sonnabend";
}

}  // namespace

bool StandsBehindWeekday(const Tokens& tokens, std::size_t i) {
  const std::size_t comma = tokens.Before(i);
  if (comma == Tokens::kNone || comma == 0 || !tokens.Is(comma, ",")) return false;
  const std::size_t day = tokens.Is(comma - 1, ".") ? comma - 2 : comma - 1;
  return tokens.IsWord(day) && IsWeekdayWord(tokens.View(day));
}

// "am Do., 12.12.": a person says "am Donnerstag, dem zwölften".
std::string_view ArticleBehindWeekday(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  if (at != Tokens::kNone && at > 0 && tokens.Is(at, ",")) at = tokens.Before(at);
  if (at != Tokens::kNone && at > 0 && tokens.Is(at, ".")) --at;
  if (at == Tokens::kNone || !tokens.IsWord(at) || !IsWeekdayWord(tokens.View(at))) return {};
  const std::size_t sign = tokens.Before(at);
  if (sign != Tokens::kNone && sign > 0 && tokens.Is(sign, ".") && tokens.Is(sign - 1, "v"))
    return "dem ";  // "v. Do., 2.5."
  const std::string before = WithLowerStart(tokens.WordBefore(at));
  if (IsOneOf(before, {"am", "vom", "zum", "beim", "ab", "seit", "dem"})) return "dem ";
  return IsOneOf(before, {"bis", "für", "auf", "den", "kommenden", "nächsten", "diesen"}) ? "den " : "";
}

namespace {

// "15/01/2024", "15-01-2024": the day first.
Found DayFirstAt(const Tokens& tokens, std::size_t i) {
  const auto sign = tokens.View(i + 1);
  if (!IsDay(tokens, i) || !IsOneOf(sign, {"/", "-"}) || !tokens.Is(i + 3, sign) ||
      !IsYearAt(tokens, i + 4, false))
    return std::nullopt;
  const auto month = MonthNumberAt(tokens, i + 2);
  const auto year = *DigitsAt(tokens, i + 4, 4);
  if (!month || year < 1900 || year > 2100 || !tokens.FreeBehind(i + 4) || LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && !tokens.IsGap(i - 1) && !tokens.Is(i - 1, "(")) return std::nullopt;
  return Phrase{i + 5, DayText(*DigitsAt(tokens, i, 2), DayEnding(tokens, i)) + " " +
                           std::string(kMonths[*month - 1]) + " " + YearText(tokens, i + 4)};
}

// "01.2024", but not "Version 1.2024".
Found MonthAndYearAt(const Tokens& tokens, std::size_t i) {
  const auto month = MonthNumberAt(tokens, i);
  if (!month || !tokens.IsNumber(i, 2, 2) || !tokens.Is(i + 1, ".") || !tokens.IsNumber(i + 2, 4, 4) ||
      !tokens.FreeBefore(i) || !tokens.FreeBehind(i + 2) || LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {".", ",", "/", "-"})) return std::nullopt;
  if (IsOneOf(tokens.View(i + 3), {".", ","}) && tokens.IsNumber(i + 4)) return std::nullopt;
  const auto year = *DigitsAt(tokens, i + 2, 4);
  if (year < 1900 || year > 2100) return std::nullopt;
  return Phrase{i + 3, std::string(kMonths[*month - 1]) + " " + YearText(tokens, i + 2)};
}

// "05/2024" is a month where nothing else is numbered like that.
Found MonthOfYearAt(const Tokens& tokens, std::size_t i) {
  const auto month = MonthNumberAt(tokens, i);
  if (!month || !tokens.Is(i + 1, "/") || !tokens.IsNumber(i + 2, 4, 4) || tokens.Is(i + 3, "/"))
    return std::nullopt;
  if (!tokens.FreeBefore(i) || !tokens.FreeBehind(i + 2) || LabelBefore(tokens, i)) return std::nullopt;
  if (IsOneOf(tokens.WordBefore(i), {"KW", "Kalenderwoche", "Woche", "Quartal", "Q", "Ausgabe", "Heft"}))
    return std::nullopt;
  const auto year = *DigitsAt(tokens, i + 2, 4);
  if (year < 1900 || year > 2100 || (i > 0 && tokens.Is(i - 1, "/"))) return std::nullopt;
  if (!tokens.IsNumber(i, 2, 2) &&
      !IsOneOf(tokens.WordBefore(i), {"seit", "ab", "bis", "im", "in", "Stand", "Seit", "vom", "von", "EZ",
                                      "TÜV", "HU", "Erstzulassung"}))
    return std::nullopt;
  return Phrase{i + 3, std::string(kMonths[*month - 1]) + " " + YearText(tokens, i + 2)};
}

// "07.2023–12.2023", "05/2023-04/2024".
Found MonthSpanAt(const Tokens& tokens, std::size_t i) {
  const bool point = tokens.Is(i + 1, ".");
  const auto first = point ? MonthAndYearAt(tokens, i) : MonthOfYearAt(tokens, i);
  if (!first || !tokens.IsDashAt(tokens.Skip(first->end))) return std::nullopt;
  const std::size_t at = tokens.Skip(tokens.Skip(first->end) + 1);
  const auto month = MonthNumberAt(tokens, at);
  if (!month || !tokens.IsNumber(at, 2, 2) || !tokens.Is(at + 1, point ? "." : "/") ||
      !tokens.IsNumber(at + 2, 4, 4) || !tokens.FreeBehind(at + 2))
    return std::nullopt;
  return Phrase{at + 3,
                first->words + " bis " + std::string(kMonths[*month - 1]) + " " + YearText(tokens, at + 2)};
}

// "TÜV bis 05/26".
Found MonthOfShortYearAt(const Tokens& tokens, std::size_t i) {
  const auto month = MonthNumberAt(tokens, i);
  if (!month || !tokens.Is(i + 1, "/") || !tokens.IsNumber(i + 2, 2, 2) || !tokens.FreeBefore(i) ||
      !tokens.FreeBehind(i + 2) || tokens.Is(i + 3, "/"))
    return std::nullopt;
  const bool car = IsOneOf(tokens.WordBefore(i), {"TÜV", "HU", "EZ", "Erstzulassung"});
  if (!car && !tokens.IsNumber(i, 2, 2)) return std::nullopt;
  if (!IsOneOf(tokens.WordBefore(i),
               {"TÜV",     "HU",   "EZ",       "bis",   "seit",          "ab",          "Stand",
                "Seit",    "Ab",   "gültig",   "Miete", "Gehalt",        "Lohn",        "Abrechnung",
                "Beitrag", "Rate", "Abschlag", "Monat", "Erstzulassung", "Nebenkosten", "Zeitraum"}))
    return std::nullopt;
  return Phrase{i + 3, std::string(kMonths[*month - 1]) + " " + YearText(tokens, i + 2)};
}

std::optional<std::pair<std::string_view, std::size_t>> WeekdayAt(const Tokens& tokens, std::size_t i) {
  if (tokens.View(i).size() != 2) return std::nullopt;
  for (const Weekday& day : kWeekdays) {
    if (tokens.Is(i, day.written) && tokens.FreeBefore(i) && tokens.FreeBehind(i))
      return std::pair(day.spoken, tokens.Is(i + 1, ".") ? i + 2 : i + 1);
  }
  return std::nullopt;
}

// "Mo–Fr", "Sa. - So.", "Mo, Mi, Fr", "Sa u. So".
Found WeekdaysAt(const Tokens& tokens, std::size_t i) {
  const auto first = WeekdayAt(tokens, i);
  if (!first) return std::nullopt;
  std::size_t at = tokens.Skip(first->second);
  std::string between;
  if (tokens.IsDashAt(at) || tokens.Is(at, "bis")) {
    between = " bis ";
  } else if (tokens.Is(at, "/") || tokens.Is(at, "+") || tokens.Is(at, "&") || tokens.Is(at, "und")) {
    between = " und ";
  } else if (tokens.Is(at, "u") && tokens.Is(at + 1, ".")) {
    between = " und ";
    ++at;
  } else if (tokens.Is(at, "oder")) {
    between = " oder ";
  } else if (tokens.Is(at, "o") && tokens.Is(at + 1, ".")) {
    between = " oder ";
    ++at;
  } else if (tokens.Is(at, ",")) {
    between = ", ";
  } else {
    return std::nullopt;
  }
  const auto second = WeekdayAt(tokens, tokens.Skip(at + 1));
  if (!second) return std::nullopt;
  Phrase phrase{second->second, std::string(first->first) + between + std::string(second->first)};
  const auto more = WeekdaysAt(tokens, tokens.Skip(at + 1));
  if (more) return Phrase{more->end, std::string(first->first) + between + more->words};
  phrase.end = tokens.WithoutLastPoint(phrase.end);
  return phrase;
}

// "Mo. 9 Uhr", "Di, 3.10.", "am Sa.", "(Mi)".
Found SingleWeekdayAt(const Tokens& tokens, std::size_t i) {
  const auto day = WeekdayAt(tokens, i);
  if (!day) return std::nullopt;
  const bool point = tokens.Is(day->second - 1, ".");
  std::size_t next = tokens.Skip(day->second);
  if (IsOneOf(tokens.View(next), {",", ":"})) next = tokens.Skip(next + 1);
  if (IsOneOf(tokens.View(next), {"auch", "zusätzlich"}) && !tokens.Is(i, "So")) next = tokens.Skip(next + 1);
  if (tokens.Is(next, "von") || tokens.Is(next, "ab")) next = tokens.Skip(next + 1);
  const bool number = tokens.IsNumber(next) && tokens.IsNumber(next, 1, 2);
  const bool listed = i > 0 && IsOneOf(tokens.View(tokens.Before(i)), {",", ";", "|"});
  const bool small = point && tokens.IsWord(next) && !tokens.IsCapital(next) && next > day->second;
  const bool opening =
      small ||
      ((point ||
        (listed && IsOneOf(tokens.View(next), {"geschlossen", "nur", "ganztägig", "Ruhetag", "nach"}))) &&
       IsOneOf(tokens.View(next), {"bis", "nur", "ganztägig", "vormittags", "nachmittags", "abends", "früh",
                                   "geschlossen", "Vormittag", "Nachmittag", "Abend", "Ruhetag", "nach"}));
  // "Sa um 3", "Fr Abend", "Mi früh".
  const bool timed = next > day->second && !(tokens.Is(i, "So") && tokens.OpensClause(i)) &&
                     ((IsOneOf(tokens.View(next), {"um", "gegen", "ab", "bis", "von"}) &&
                       tokens.IsNumber(tokens.Skip(next + 1))) ||
                      IsOneOf(tokens.View(next), {"früh", "abend", "Abend", "Nachmittag", "nachmittag",
                                                  "Vormittag", "vormittag", "Mittag", "mittag", "Morgen",
                                                  "abends", "mittags", "vormittags", "nachmittags"}));
  const std::size_t before = tokens.Before(i);
  const bool shortened = before != Tokens::kNone && tokens.Is(before, ".") && before > 0;
  const bool am = opening || timed ||
                  (shortened && IsOneOf(tokens.View(before - 1), {"einschl", "inkl", "spätest"})) ||
                  IsOneOf(tokens.WordBefore(i),
                          {"am",        "Am",        "jeden",   "Jeden",   "nächsten", "bis",
                           "diesen",    "kommenden", "jeweils", "letzten", "vom",      "Vom",
                           "zum",       "auf",       "ab",      "Ab",      "für",      "einschließlich",
                           "inklusive", "außer",     "nur"}) ||
                  (shortened && tokens.IsNumber(before - 1));  // "jeden 1. Di."
  const bool so = tokens.Is(i, "So") || tokens.Is(i, "Do") || tokens.Is(i, "Fr");
  if (!(number && (point || !so || next > day->second)) && !am) return std::nullopt;
  if (number && !point && tokens.Is(i, "So") && !tokens.Is(next + 1, ".") && !tokens.Is(next + 1, ":") &&
      !tokens.Is(tokens.Skip(next + 1), "Uhr") && !tokens.IsDashAt(next + 1))
    return std::nullopt;
  return Phrase{tokens.WithoutLastPoint(day->second), std::string(day->first)};
}

// "Ich treffe Jan.": at the end of a sentence a man, unless something before it asks for a time.
bool IsManAtEnd(const Tokens& tokens, std::size_t i, std::size_t end) {
  if (!tokens.Is(i, "Jan") || !tokens.IsLast(end - 1)) return false;
  std::size_t before = tokens.WordIndexBefore(i);
  if (before == Tokens::kNone) return true;
  if (IsOneOf(tokens.View(before), {"und", "oder", "u"})) {  // "im Dez. und Jan."
    before = tokens.Before(before);
    if (before != Tokens::kNone && before > 0 && tokens.Is(before, ".")) --before;
    return before == Tokens::kNone || !MonthAt(tokens, before);
  }
  return !IsOneOf(WithLowerStart(tokens.View(before)), {"im", "bis", "ab", "seit", "vom", "zum", "anfang",
                                                        "mitte", "ende", "letzten", "nächsten"});
}

// "Okt. 2024", "Dez. '23".
Found MonthNameAt(const Tokens& tokens, std::size_t i) {
  const auto month = MonthAt(tokens, i);
  if (!month || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t year = tokens.Skip(month->end);
  const bool written = tokens.Is(i, kMonths[month->number - 1]);
  const bool hasYear = year > month->end && IsYearAt(tokens, year, false) && !tokens.IsDashAt(year + 1) &&
                       !tokens.Is(year + 1, "/");
  const bool shortYear = IsOneOf(tokens.View(year), {"'", "’"}) && tokens.IsNumber(year + 1, 2, 2);
  std::string words(kMonths[month->number - 1]);
  if (shortYear) return Phrase{year + 2, words + " " + YearText(tokens, year + 1)};
  if (hasYear) return Phrase{year + 1, words + " " + YearText(tokens, year)};
  const bool span =
      tokens.IsDashAt(tokens.Skip(month->end)) && MonthAt(tokens, tokens.Skip(tokens.Skip(month->end) + 1));
  if (span) {
    const std::size_t second = tokens.Skip(tokens.Skip(month->end) + 1);
    const auto rest = MonthAt(tokens, second);
    const auto whole = MonthNameAt(tokens, second);
    if (whole) return Phrase{whole->end, words + " bis " + whole->words};
    return Phrase{tokens.WithoutLastPoint(rest->end),
                  words + " bis " + std::string(kMonths[rest->number - 1])};
  }
  if (written || !tokens.Is(month->end - 1, ".") || IsManAtEnd(tokens, i, month->end)) return std::nullopt;
  const std::size_t behind = tokens.Skip(month->end);
  const bool goesOn = tokens.IsWord(behind) && !tokens.IsCapital(behind);
  const bool end = goesOn || tokens.IsLast(month->end - 1);
  if (!end && !IsOneOf(tokens.WordBefore(i),
                       {"im", "Im", "Anfang", "Mitte", "Ende", "bis", "seit", "ab", "und", "vom", "zum"}))
    return std::nullopt;
  return Phrase{tokens.WithoutLastPoint(month->end), words};
}

}  // namespace

Found DayWithEnding(const Tokens& tokens, std::size_t i, std::string_view ending) {
  const auto shape = DateShapeAt(tokens, i);
  if (!shape) return std::nullopt;
  return DatePhrase(tokens, *shape, ending);
}

Found DateAt(const Tokens& tokens, std::size_t i) {
  if (i >= 2 && tokens.Is(i - 1, "/") && IsOneOf(tokens.View(i - 2), {"f", "F", "ƒ"})) return std::nullopt;
  for (const auto reading : {&DateSpanAt, &DayPairAt, &IsoDateAt, &DayFirstAt, &MonthSpanAt, &MonthAndYearAt,
                             &MonthOfYearAt, &MonthOfShortYearAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  const auto shape = DateShapeAt(tokens, i);
  if (!shape) return std::nullopt;
  const auto article = ArticleBehindWeekday(tokens, i);
  auto date = DatePhrase(tokens, *shape, article.empty() ? DayEnding(tokens, i) : "en");
  date.words.insert(0, article);
  return date;
}

namespace {

// "di. und do.", "mo.-fr.": in small letters only two of them are certain.
Found SmallWeekdaysAt(const Tokens& tokens, std::size_t i) {
  const auto name = [&](std::size_t at) -> std::string {
    for (const Weekday& day : kWeekdays) {
      if (tokens.Is(at, WithLowerStart(day.written)) && tokens.Is(at + 1, ".") && tokens.FreeBefore(at))
        return WithLowerStart(day.spoken) + "s";
    }
    return {};
  };
  if (tokens.View(i).size() != 2) return std::nullopt;
  const std::string first = name(i);
  if (first.empty()) return std::nullopt;
  // "ist mi. geschl.": it opens or closes then.
  const bool opens =
      !tokens.Is(i, "so") && HasPrefix(tokens.View(tokens.Skip(i + 2)), {"gesch", "geöff", "nachm", "vorm"});
  const bool named = !tokens.Is(i, "so") &&  // "Das war immer so."
                     IsOneOf(tokens.WordBefore(i), {"außer", "nur", "immer", "jeweils"});
  if (opens || named) return Phrase{tokens.WithoutLastPoint(i + 2), first};
  Phrase days{i + 2, first};
  for (;;) {  // "mo., mi. und fr."
    std::size_t at = tokens.Skip(days.end);
    std::string between = " und ";
    if (tokens.IsDashAt(at) || tokens.Is(at, "bis")) {
      between = " bis ";
    } else if (tokens.Is(at, ",")) {
      between = ", ";
    } else if (tokens.Is(at, "u") && tokens.Is(at + 1, ".")) {
      ++at;
    } else if (!tokens.Is(at, "und")) {
      break;
    }
    const std::size_t next = tokens.Skip(at + 1);
    const std::string day = name(next);
    if (day.empty()) break;
    days.end = next + 2;
    days.words.append(between).append(day);
  }
  if (days.end == i + 2) return std::nullopt;
  days.end = tokens.WithoutLastPoint(days.end);
  return days;
}

}  // namespace

Found CalendarWordAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading : {&WeekdaysAt, &SmallWeekdaysAt, &SingleWeekdayAt, &MonthNameAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
