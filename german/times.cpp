#include "german/times.h"

#include "german/dates.h"
#include "german/durations.h"
#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/units.h"

namespace lorelin {
namespace {

constexpr std::uint64_t kHours = 24;
constexpr std::uint64_t kMinutes = 60;

struct Clock {
  std::uint64_t hour = 0;
  std::optional<std::uint64_t> minute;
  std::optional<std::uint64_t> second;
  bool byColon = false;
  std::size_t end = 0;  // the token behind
};

bool GoesBeforeTimes(std::string_view word) {
  return IsOneOf(
      WithLowerStart(word),
      {"um",       "ab",       "gegen",      "von",        "bis",        "vor",       "nach",     "seit",
       "zwischen", "beginn",   "start",      "einlass",    "ende",       "täglich",   "und",      "montag",
       "dienstag", "mittwoch", "donnerstag", "freitag",    "samstag",    "sonntag",   "mo",       "di",
       "mi",       "do",       "fr",         "sa",         "so",         "heute",     "morgen",   "uhr",
       "morgens",  "abends",   "punkt",      "geöffnet",   "spätestens", "feiertags", "sonst",    "lieber",
       "oder",     "beg",      "einl",       "treffpunkt", "treffpkt",   "boarding",  "abflug",   "abfahrt",
       "ankunft",  "landung",  "training",   "probe",      "treffen",    "weckruf",   "check-in", "anpfiff",
       "abf",      "ank",      "an",         "gg"});
}

}  // namespace

std::optional<std::uint64_t> SixtiethAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 2, 2)) return std::nullopt;
  const auto value = DigitsAt(tokens, i, 2);
  return value && *value < kMinutes ? value : std::nullopt;
}

bool StandsBehindTimeWord(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  while (before != Tokens::kNone && IsOneOf(tokens.View(before), {".", ",", ":", "("}) && before > 0)
    --before;
  // "ab ca. 17h".
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {"ca", "circa", "etwa"}))
    before = tokens.WordIndexBefore(before);
  return before != Tokens::kNone && tokens.IsWord(before) && GoesBeforeTimes(tokens.View(before));
}

namespace {

// An hour, alone or with its minutes behind a colon or, when `withPoint`, behind a point.
std::optional<Clock> ClockAt(const Tokens& tokens, std::size_t i, bool withPoint) {
  const auto hour = DigitsAt(tokens, i, 2);
  if (!hour || *hour > kHours || !tokens.FreeBefore(i)) return std::nullopt;
  Clock clock{*hour, std::nullopt, std::nullopt, false, i + 1};
  const bool colon = tokens.Is(i + 1, ":");
  if (!colon && !(withPoint && tokens.Is(i + 1, "."))) return clock;
  clock.minute = SixtiethAt(tokens, i + 2);
  if (!clock.minute) return clock;
  clock.byColon = colon;
  clock.end = i + 3;
  if (colon && tokens.Is(i + 3, ":")) {
    clock.second = SixtiethAt(tokens, i + 4);
    if (clock.second) clock.end = i + 5;
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

// What stands before "bis": the hour alone needs no "Uhr".
std::string FirstClockWords(const Clock& clock) {
  return clock.minute && *clock.minute != 0 ? ClockWords(clock) : CardinalWords(clock.hour);
}

// One of the words stands near before the token.
bool StandsNearBefore(const Tokens& tokens, std::size_t i, std::initializer_list<std::string_view> endings) {
  constexpr std::size_t kNear = 12;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (tokens.IsWord(at) && HasSuffix(WithLowerStart(tokens.View(at)), endings)) return true;
  }
  return false;
}

// "Akku bis 12 h".
bool SpeaksOfDuration(const Tokens& tokens, std::size_t i) {
  return StandsNearBefore(tokens, i,
                          {"akku", "laufzeit", "ladezeit", "dauer", "betriebszeit", "wirkzeit", "backzeit",
                           "wirkung", "hält", "haltbar", "lieferzeit"});
}

// "Öffnungszeiten: 9 bis 12 h".
bool SpeaksOfOpening(const Tokens& tokens, std::size_t i) {
  return StandsNearBefore(tokens, i,
                          {"öffnungszeiten", "sprechzeiten", "sprechstunde", "sprechstunden", "geöffnet",
                           "geschäftszeiten", "besuchszeiten", "öffnungszeit"});
}

// "um", but not "nach": that is as often before a duration.
bool GoesWithClock(const Tokens& tokens, std::size_t i) {
  return StandsBehindTimeWord(tokens, i) &&
         !IsOneOf(WithLowerStart(tokens.WordBefore(i)),
                  {"nach", "vor", "seit", "bis", "von", "und", "zwischen", "ende"});
}

// The token behind "Uhr", or behind an "h" that means it; 0 without.
std::size_t HourSignAt(const Tokens& tokens, std::size_t i, bool meansClock) {
  const std::size_t next = tokens.Skip(i);
  if (tokens.Is(next, "Uhr")) return next + 1;
  if (meansClock && tokens.Is(next, "h") && tokens.FreeBehind(next)) return next + 1;
  return 0;
}

bool IsHourPreposition(std::string_view word) {
  return IsOneOf(WithLowerStart(word), {"um", "gegen", "ab", "bis", "nach", "vor", "seit", "kurz"});
}

}  // namespace

Found PartOfHourAt(const Tokens& tokens, std::size_t i) {
  const auto fraction = FractionAt(tokens, i);
  if (!fraction || fraction->denominator > 4 || fraction->denominator == 3 ||
      !tokens.IsBlank(fraction->end) || !IsHourPreposition(tokens.WordBefore(i)))
    return std::nullopt;
  // "um 1/4 nach 3".
  const auto relation = tokens.View(fraction->end + 1);
  if (fraction->denominator == 4 && fraction->numerator == 1 && IsOneOf(relation, {"nach", "vor"}) &&
      tokens.IsNumber(fraction->end + 3, 1, 2))
    return Phrase{fraction->end, "Viertel"};
  const auto hour = DigitsAt(tokens, fraction->end + 1, 2);
  const std::size_t behind = fraction->end + 2;
  if (!hour || *hour < 1 || *hour > 12 || !tokens.FreeBehind(behind - 1)) return std::nullopt;
  if (UnitAt(tokens, tokens.Skip(behind)) || CurrencyAt(tokens, tokens.Skip(behind))) return std::nullopt;
  const std::string part =
      fraction->denominator == 2 ? "halb " : (fraction->numerator == 1 ? "viertel " : "drei viertel ");
  const std::size_t end = HourSignAt(tokens, behind, false);
  return Phrase{end == 0 ? behind : end, part + CardinalWords(*hour)};
}

namespace {

// "um 1/2 8".
Found HalfHourAt(const Tokens& tokens, std::size_t i) {
  const auto hour = DigitsAt(tokens, i + 4, 2);
  if (!tokens.Is(i, "1") || !tokens.Is(i + 1, "/") || !tokens.Is(i + 2, "2") || !tokens.IsBlank(i + 3) ||
      !hour)
    return std::nullopt;
  if (*hour < 1 || *hour > 12 ||
      !IsOneOf(WithLowerStart(tokens.WordBefore(i)),
               {"um",    "gegen", "ab",    "bis",    "nach", "vor",  "passt", "lieber", "oder",
                "erst",  "schon", "heute", "morgen", "so",   "etwa", "ca",    "circa",  "kurz",
                "punkt", "es",    "ist",   "und",    "dann", "seit", "treff"}))
    return std::nullopt;
  if (tokens.IsCapital(tokens.Skip(i + 5)) && !tokens.Is(tokens.Skip(i + 5), "Uhr") &&
      !StartsSentences(tokens.View(tokens.Skip(i + 5))))
    return std::nullopt;
  const std::size_t end = HourSignAt(tokens, i + 5, false);
  return Phrase{end == 0 ? i + 5 : end, "halb " + CardinalWords(*hour)};
}

// "19h30".
Found FrenchTimeAt(const Tokens& tokens, std::size_t i) {
  const auto hour = DigitsAt(tokens, i, 2);
  if (!hour || *hour > kHours || !tokens.Is(i + 1, "h") || !SixtiethAt(tokens, i + 2) ||
      !tokens.FreeBehind(i + 2))
    return std::nullopt;
  return Phrase{i + 3, ClockWords({*hour, SixtiethAt(tokens, i + 2), std::nullopt, false, i + 3})};
}

// "ist am Sonntag von 8 bis 18 h geöffnet".
bool OpensThen(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 14;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (IsOneOf(tokens.View(at), {"geöffnet", "offen", "geschlossen", "gesperrt", "täglich", "besetzt", "Mo",
                                  "Di", "Mi", "Do", "Fr", "Sa", "So"}) ||
        (tokens.IsWord(at) && HasSuffix(tokens.View(at), {"tag", "woch", "tags"})))
      return true;
  }
  return false;
}

// "Di–Do 9–12 u. 14–17 h": on days of the week hours are those of the clock.
bool NamesWeekdayNear(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 16;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at), {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"}) ||
        HasSuffix(tokens.View(at), {"nstag", "ontag", "woch", "erstag", "eitag", "amstag", "onntag"}))
      return true;
  }
  return false;
}

// "9–17 Uhr", "8.30 bis 12.00 Uhr", "9-17h", "10:00–12:00".
Found TimeSpanAt(const Tokens& tokens, std::size_t i) {
  auto first = ClockAt(tokens, i, true);
  if (!first) return std::nullopt;
  std::size_t at = tokens.Skip(first->end);
  if (tokens.Is(at, "Uhr")) at = tokens.Skip(at + 1);
  const bool hourNamed = at != tokens.Skip(first->end);
  const bool word = IsOneOf(tokens.View(at), {"bis", "und", "oder"});
  const bool dash = tokens.IsDashAt(at) || tokens.Is(at, "/");
  if (!word && !dash) return std::nullopt;
  const auto second = ClockAt(tokens, tokens.Skip(at + 1), true);
  if (!second || (tokens.Is(second->end, ":") && tokens.IsNumber(second->end + 1))) return std::nullopt;
  const std::string between =
      word ? " " + std::string(tokens.View(at)) + " " : (tokens.Is(at, "/") ? " und " : " bis ");
  const bool later = second->hour > first->hour ||
                     (second->hour == first->hour && second->minute.value_or(0) > first->minute.value_or(0));
  const bool glued = tokens.Is(second->end, "h");
  const std::size_t sign = tokens.Before(i);
  const bool cutVon = sign != Tokens::kNone && sign > 0 && tokens.Is(sign, ".") && tokens.Is(sign - 1, "v");
  // "von 9–17 h", "von 19 bis 6 h".
  constexpr std::uint64_t kEvening = 17;
  const bool overNight = first->hour >= kEvening && second->hour < kFirstMorningHour + 6;
  const bool hours = (cutVon || IsOneOf(tokens.WordBefore(i), {"von", "Von"})) &&
                     (overNight || (later && second->hour >= 10 && (dash || OpensThen(tokens, i))));
  const bool clocks = GoesWithClock(tokens, i) || first->minute || hours || SpeaksOfOpening(tokens, i) ||
                      (dash && later && second->hour >= 10 && NamesWeekdayNear(tokens, i)) ||
                      (glued && second->hour > 6 && later && dash && !tokens.IsBlank(second->end));
  if (const std::size_t end = HourSignAt(tokens, second->end, clocks); end != 0) {
    const std::string begin = hourNamed ? ClockWords(*first) : FirstClockWords(*first);
    return Phrase{end, begin + between + ClockWords(*second)};
  }
  // "Mo 10–11:30".
  const bool hour = second->byColon && dash && later && StandsBehindTimeWord(tokens, i) &&
                    tokens.FreeBehind(second->end - 1);
  if (hour && !first->minute)
    return Phrase{second->end, FirstClockWords(*first) + between + ClockWords(*second)};
  const bool named = first->minute && second->minute && StandsBehindTimeWord(tokens, i);
  if (!named && (!first->byColon || !second->byColon)) return std::nullopt;
  return Phrase{second->end, ClockWords(*first) + between + ClockWords(*second)};
}

// "8.03, 9.03 und 10.03 Uhr": the hours are named behind the last of them.
bool EndsInHours(const Tokens& tokens, std::size_t i) {
  for (int step = 0; step < 8; ++step) {
    const auto clock = ClockAt(tokens, i, true);
    if (!clock || !clock->minute) return false;
    if (HourSignAt(tokens, clock->end, false) != 0) return true;
    const std::size_t next = tokens.Skip(clock->end);
    if (!IsOneOf(tokens.View(next), {",", "und", "oder", "sowie", "/"})) return false;
    i = tokens.Skip(next + 1);
  }
  return false;
}

// "auf 15 h verschoben".
bool IsMovedInTime(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 12;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear; ++at) {
    if (IsOneOf(tokens.View(at),
                {"verschoben", "verschieben", "verschiebt", "verlegt", "verlegen", "verlegte", "vorverlegt",
                 "vorgezogen", "gelegt", "legen", "angesetzt", "verschob", "terminiert", "festgelegt"}))
      return true;
  }
  return false;
}

// "einen Tisch für 19 h".
bool IsBookedFor(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 16;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear; ++at) {
    if (HasPrefix(WithLowerStart(tokens.View(at)), {"reservi", "tisch", "termin", "gebucht", "einladung",
                                                    "eingeladen", "angekündigt", "bestellt"}))
      return true;
  }
  return false;
}

// "Mo., 3.2., 7 h", "am 5. Mai, 18 h".
bool StandsBehindDate(const Tokens& tokens, std::size_t i) {
  const std::size_t comma = tokens.Before(i);
  if (comma == Tokens::kNone || !tokens.Is(comma, ",")) return false;
  for (std::size_t first = 2; first <= 6 && first <= comma; ++first) {
    const auto date = DateShapeAt(tokens, comma - first);
    if (date && date->end == comma) return true;
  }
  return false;
}

// "bis 18 h", but not "bis 12 h nach der Einnahme".
bool EndsAtHour(const Tokens& tokens, std::size_t i, const Clock& clock) {
  if (SpeaksOfDuration(tokens, i)) return false;
  if (StandsBehindDate(tokens, i)) return true;
  // "14 h wäre ideal".
  if (clock.hour >= kFirstMorningHour && clock.hour < kHours && tokens.OpensClause(i) &&
      IsOneOf(tokens.View(tokens.Skip(tokens.Skip(clock.end) + 1)),
              {"wäre", "passt", "geht", "klappt", "ginge"}))
    return true;
  if (tokens.WordBefore(i) == "auf" && clock.hour >= kFirstMorningHour) return IsMovedInTime(tokens, i);
  if (tokens.WordBefore(i) == "für" && clock.hour >= kFirstMorningHour) return IsBookedFor(tokens, i);
  constexpr std::uint64_t kEvening = 19;
  const bool behindNach = tokens.WordBefore(i) == "nach" && clock.hour >= kEvening;  // "nach 22 h"
  if (!(IsOneOf(tokens.WordBefore(i), {"bis", "vor", "seit"}) || behindNach) ||
      clock.hour < kFirstMorningHour || clock.hour > 23)
    return false;
  const std::size_t behind = tokens.Skip(tokens.Skip(clock.end) + 1);
  return !tokens.IsCapital(behind) && !IsOneOf(tokens.View(behind), {"nach", "lang", "am", "pro", "täglich",
                                                                     "dauern", "vor", "später", "früher"});
}

// "Abfahrt in Köln 9.05", "Ankunft Hannover 16.38".
bool StandsBehindStop(const Tokens& tokens, std::size_t i) {
  const std::size_t place = tokens.WordIndexBefore(i);
  if (place == Tokens::kNone || !tokens.IsCapital(place)) return false;
  std::size_t at = tokens.WordIndexBefore(place);
  // "Ab Bern 7.34, an Brig 8.40".
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"Ab", "An", "ab", "an"}) &&
      !NounOf(tokens.View(place)).whole)
    return true;
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"in", "aus", "ab", "an", "von"}))
    at = tokens.WordIndexBefore(at);
  return at != Tokens::kNone && IsOneOf(tokens.View(at), {"Abfahrt", "Ankunft", "Abflug", "Landung",
                                                          "Weiterfahrt", "Rückfahrt", "Hinfahrt"});
}

// "Ortszeit war 16.15", "Startzeit: 9.30".
bool IsNamedTime(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  const bool joined = IsOneOf(tokens.View(before), {":", "war", "ist", "wäre"});
  if (joined) before = tokens.Before(before);
  return before != Tokens::kNone &&
         HasSuffix(tokens.View(before), {"Ortszeit", "Uhrzeit", "Startzeit", "Abfahrtszeit", "Ankunftszeit",
                                         "Anfangszeit", "Abflugzeit", "Weckzeit"});
}

// The list "8, 10 und 12 Uhr" stays numbers; one time is read.
Found OneTimeAt(const Tokens& tokens, std::size_t i) {
  const auto clock = ClockAt(tokens, i, true);
  if (!clock || (clock->minute && !clock->byColon && StandsBehindSection(tokens, i))) return std::nullopt;
  const bool glued = clock->end == tokens.Skip(clock->end);
  const bool means =
      clock->minute
          ? StandsBehindTimeWord(tokens, i) || clock->byColon || clock->hour >= kFirstMorningHour
          : GoesWithClock(tokens, i) || (glued && clock->hour > 12 && StandsBehindTimeWord(tokens, i));
  if (const std::size_t end = HourSignAt(tokens, clock->end, means || EndsAtHour(tokens, i, *clock));
      end != 0)
    return Phrase{end, ClockWords(*clock)};
  if (clock->minute && EndsInHours(tokens, i)) return Phrase{clock->end, ClockWords(*clock)};
  const std::size_t sign = tokens.Before(i);  // "Ende ca. 22.00"
  const bool about = sign != Tokens::kNone && sign > 0 && tokens.Is(sign, ".") &&
                     IsOneOf(tokens.View(sign - 1), {"ca", "gg", "gegen"});
  // "beim Stand von 14:12".
  const std::size_t of = tokens.WordIndexBefore(i);
  const bool score =
      clock->byColon && of != Tokens::kNone && tokens.Is(of, "von") &&
      HasSuffix(WithLowerStart(tokens.WordBefore(of)), {"stand", "ergebnis", "sieg", "führung", "rückstand",
                                                        "niederlage", "tore", "verhältnis", "torverhältnis"});
  if (score) return std::nullopt;
  const bool named = IsNamedTime(tokens, i) ||
                     (StandsBehindTimeWord(tokens, i) && clock->hour >= kFirstMorningHour) ||
                     StandsBehindStop(tokens, i) ||
                     IsOneOf(tokens.WordBefore(about ? sign - 1 : i),
                             {"Ende", "Schluss", "Abfahrt", "Ankunft", "Beginn", "Treffpunkt", "Start",
                              "Einlass", "Rückkehr", "Anpfiff", "Weiterfahrt", "Umstieg", "Abflug", "Landung",
                              "Gottesdienst", "um", "Um", "gegen", "Gegen"});
  if (named && clock->minute && tokens.FreeBehind(clock->end - 1))
    return Phrase{clock->end, ClockWords(*clock)};
  return std::nullopt;
}

// Scores.

bool IsSportsWord(std::string_view word) {
  return HasSuffix(
      WithLowerStart(word),
      {"gewann",       "gewannen",   "gewinnt",       "gewonnen",      "siegte",       "siegten",
       "siegt",        "verlor",     "verloren",      "verliert",      "unterlag",     "unterlagen",
       "endete",       "endstand",   "halbzeitstand", "stand",         "spielstand",   "ergebnis",
       "sieg",         "niederlage", "unentschieden", "satz",          "sätze",        "sätzen",
       "führte",       "führten",    "führt",         "führung",       "tor",          "tore",
       "spiel",        "halbzeit",   "spieltag",      "spielte",       "spielten",     "schlug",
       "schlugen",     "besiegte",   "besiegten",     "bezwang",       "traf",         "trennten",
       "trennte",      "remis",      "ausgleich",     "handball",      "basketball",   "fußball",
       "tennis",       "drittel",    "viertel",       "matchball",     "tiebreak",     "treffer",
       "anschluss",    "rückstand",  "heimsieg",      "auswärtssieg",  "pause",        "bundesliga",
       "pokal",        "finale",     "halbfinale",    "viertelfinale", "partie",       "gewinnen",
       "ergebnisse",   "resultate",  "hinspiel",      "rückspiel",     "setzte",       "punkte",
       "verlängerung", "bezwangen",  "setzten",       "besiegt",       "triumphierte", "triumphierten"});
}

bool IsRatioWord(std::string_view word) {
  return HasSuffix(
      WithLowerStart(word),
      {"verhältnis", "maßstab",     "mischung",         "quote",   "mischen",  "verdünnen", "verdünnung",
       "verdünnt",   "übersetzung", "chance",           "chancen", "wette",    "kurs",      "gemischt",
       "stimmen",    "abstimmung",  "seitenverhältnis", "format",  "kontrast", "wirkstoff"});
}

template <typename Test>
bool Stands(const Tokens& tokens, std::size_t i, Test test) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (tokens.IsWord(at) && test(tokens.View(at))) return true;
  }
  return false;
}

struct Score {
  std::uint64_t left = 0;
  std::uint64_t right = 0;
  std::size_t end = 0;
  bool spaced = false;
};

// "12 : 4 = 3" divides.
bool EquationFollows(const Tokens& tokens, std::size_t i) {
  for (std::size_t at = i; at < i + 8; ++at) {
    if (tokens.Is(at, "=")) return true;
  }
  return false;
}

std::optional<Score> ScoreDigitsAt(const Tokens& tokens, std::size_t i) {
  const auto left = DigitsAt(tokens, i, 4);
  const std::size_t colon = tokens.Skip(i + 1);
  if (!left || *left > 999 || !tokens.Is(colon, ":") || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t second = tokens.Skip(colon + 1);
  const bool spaced = second != i + 2;
  if (spaced && (colon == i + 1 || second == colon + 1)) return std::nullopt;
  const auto right = NumberAt(tokens, second);
  if (!right || !right->IsWhole() || (tokens.Is(right->end, ":") && tokens.IsNumber(right->end + 1)))
    return std::nullopt;
  return Score{*left, right->value, right->end, spaced};
}

// "29:27 (13:15)": what stands in brackets behind a score is one of a part of the game.
bool StandsBehindScore(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i; at-- > 2 && at + kNear > i;) {
    if (tokens.Is(at, ")")) return false;
    if (!tokens.Is(at, "(")) continue;
    const std::size_t right = tokens.Before(at);
    return right != Tokens::kNone && right >= 2 && tokens.IsNumber(right) && tokens.Is(right - 1, ":") &&
           tokens.IsNumber(right - 2);
  }
  return false;
}

bool LooksLikeClock(const Tokens& tokens, std::size_t i, const Score& score) {
  return tokens.IsNumber(i, 1, 2) && tokens.IsNumber(i + 2, 2, 2) && score.left <= kHours &&
         score.right < kMinutes;
}

// "15:00", "01:40": no side has ever "00" or "05" goals.
bool HasLeadingNull(const Tokens& tokens, std::size_t i) {
  const auto leads = [&](std::size_t at) {
    return tokens.IsNumber(at, 2, 2) && tokens.View(at).front() == '0';
  };
  return tokens.Is(i + 1, ":") && (leads(i) || leads(i + 2));
}

Found ClockByColonAt(const Tokens& tokens, std::size_t i) {
  const auto clock = ClockAt(tokens, i, false);
  if (!clock || !clock->minute || !tokens.FreeBehind(clock->end - 1) || tokens.Is(clock->end, ":"))
    return std::nullopt;
  return Phrase{clock->end, ClockWords(*clock)};
}

}  // namespace

Found ScoreAt(const Tokens& tokens, std::size_t i) {
  const auto score = ScoreDigitsAt(tokens, i);
  if (!score) return std::nullopt;
  if (!tokens.FreeBehind(score->end - 1) && !tokens.Is(score->end, "n")) return std::nullopt;
  const bool clock = LooksLikeClock(tokens, i, *score);
  if (clock && !score->spaced) {
    const bool time = GoesBeforeTimes(tokens.WordBefore(i)) &&
                      !IsOneOf(tokens.WordBefore(i), {"nach", "und", "vor", "bis", "von"});
    const bool shown = StandsNearBefore(
        tokens, i, {"wecker", "nduhr", "turmuhr", "standuhr", "bahnhofsuhr", "taschenuhr", "küchenuhr"});
    if (time || shown || HasLeadingNull(tokens, i) ||
        (!StandsBehindScore(tokens, i) && !Stands(tokens, i, IsSportsWord) &&
         !Stands(tokens, i, IsRatioWord)))
      return std::nullopt;
  }
  // "2:3-Niederlage".
  if (!score->spaced && tokens.Is(score->end, "-") && tokens.IsCapital(score->end + 1))
    return Phrase{score->end,
                  WithUpperStart(CardinalWords(score->left)) + "-zu-" + CardinalWords(score->right)};
  const bool divides = score->spaced && EquationFollows(tokens, i);
  const std::string words =
      CardinalWords(score->left) + (divides ? " geteilt durch " : " zu ") + CardinalWords(score->right);
  return Phrase{score->end, words};
}

namespace {

// "5 p.m.", "10:30 am".
Found EnglishTimeAt(const Tokens& tokens, std::size_t i) {
  constexpr std::uint64_t kNoon = 12;
  const auto hour = DigitsAt(tokens, i, 2);
  if (!hour || *hour == 0 || *hour > kNoon || !tokens.FreeBefore(i)) return std::nullopt;
  const bool minutes = IsOneOf(tokens.View(i + 1), {":", "."}) && SixtiethAt(tokens, i + 2);
  const std::size_t half = tokens.Skip(minutes ? i + 3 : i + 1);
  std::string words = CardinalWords(*hour);
  if (minutes) words += " Uhr " + CardinalWords(*SixtiethAt(tokens, i + 2));
  words += tokens.View(half).starts_with('p') ? " P M" : " A M";
  if (IsOneOf(tokens.View(half), {"a", "p"}) && tokens.Is(half + 1, ".") && tokens.Is(half + 2, "m"))
    return Phrase{tokens.Is(half + 3, ".") && !tokens.IsLast(half + 3) ? half + 4 : half + 3, words};
  if (minutes && IsOneOf(tokens.View(half), {"am", "pm"}) && tokens.FreeBehind(half))
    return Phrase{half + 1, words};
  return std::nullopt;
}

}  // namespace

Found TimeAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading :
       {&EnglishTimeAt, &PartOfHourAt, &HalfHourAt, &DurationAt, &TimeSpanAt, &FrenchTimeAt, &OneTimeAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  if (auto score = ScoreAt(tokens, i)) return score;
  return ClockByColonAt(tokens, i);
}

}  // namespace lorelin
