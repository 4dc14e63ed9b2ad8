#include "german/durations.h"

#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/times.h"
#include "german/units.h"

namespace lorelin {
namespace {

struct Duration {
  std::uint64_t parts[3] = {0, 0, 0};
  std::size_t count = 0;
  std::size_t end = 0;
};

std::optional<Duration> DurationDigitsAt(const Tokens& tokens, std::size_t i) {
  const auto first = DigitsAt(tokens, i, 3);
  if (!first || !tokens.FreeBefore(i)) return std::nullopt;
  Duration duration{{*first, 0, 0}, 1, i + 1};
  while (duration.count < 3 && tokens.Is(duration.end, ":") && SixtiethAt(tokens, duration.end + 1)) {
    duration.parts[duration.count++] = *SixtiethAt(tokens, duration.end + 1);
    duration.end += 2;
  }
  if (duration.count < 2) return std::nullopt;
  return duration;
}

std::string PartWords(std::uint64_t value, std::string_view singular) {
  return CardinalWords(value, "eine") + " " + std::string(singular) + (value == 1 ? "" : "n");
}

// The first part with the case that is asked for: "in einer Stunde".
std::string FirstPartWords(const Tokens& tokens, std::size_t i, std::uint64_t value,
                           std::string_view singular) {
  if (value != 1) return PartWords(value, singular);
  const std::string one = OneBefore(tokens, i, i + 1, AgreementOf(Gender::Feminine));
  return one + " " + std::string(singular);
}

// "1:02,34 min": minutes and seconds with their parts.
Found RaceTimeAt(const Tokens& tokens, std::size_t i) {
  const auto minutes = DigitsAt(tokens, i, 2);
  if (!minutes || !tokens.FreeBefore(i) || !tokens.Is(i + 1, ":") || !SixtiethAt(tokens, i + 2) ||
      !tokens.Is(i + 3, ","))
    return std::nullopt;
  if (!tokens.IsNumber(i + 4, 1, 3) || !tokens.FreeBehind(i + 4)) return std::nullopt;
  const std::string words = FirstPartWords(tokens, i, *minutes, "Minute") + " " +
                            CardinalWords(*SixtiethAt(tokens, i + 2)) + " Komma " +
                            DigitWords(tokens.View(i + 4)) + " Sekunden";
  const auto unit = UnitAt(tokens, tokens.Skip(i + 5));
  if (!unit || unit->singular != "Minute") return Phrase{i + 5, words};
  const bool last = unit->endsWithPoint && tokens.IsLast(unit->end - 1);
  return Phrase{last ? unit->end - 1 : unit->end, words};
}

// "1:02:45,3 Std.": always a duration.
Found LongRaceTimeAt(const Tokens& tokens, std::size_t i) {
  const auto duration = DurationDigitsAt(tokens, i);
  if (!duration || duration->count != 3 || !tokens.Is(duration->end, ",") ||
      !tokens.IsNumber(duration->end + 1, 1, 3) || !tokens.FreeBehind(duration->end + 1))
    return std::nullopt;
  const std::string words = FirstPartWords(tokens, i, duration->parts[0], "Stunde") + " " +
                            PartWords(duration->parts[1], "Minute") + " " +
                            CardinalWords(duration->parts[2]) + " Komma " +
                            DigitWords(tokens.View(duration->end + 1)) + " Sekunden";
  const std::size_t end = duration->end + 2;
  const auto unit = UnitAt(tokens, tokens.Skip(end));
  if (!unit || unit->singular != "Stunde") return Phrase{end, words};
  const bool last = unit->endsWithPoint && tokens.IsLast(unit->end - 1);
  return Phrase{last ? unit->end - 1 : unit->end, words};
}

// "12.9., 19:30 h": the time of a meeting, unless something that lasts is spoken of.
bool NamesHour(const Tokens& tokens, std::size_t i, const Duration& duration) {
  if (duration.parts[0] < kFirstMorningHour || duration.parts[0] > 23) return false;
  const std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone || !IsOneOf(tokens.View(before), {",", ":", "(", "–", "-", "."})) return false;
  const auto label = WithLowerStart(tokens.WordBefore(before));
  return !HasSuffix(label, {"zeit", "dauer", "rekord", "stunden", "aufwand", "pensum"});
}

// "Fahrzeit: 1:42".
bool NamesJourney(const Tokens& tokens, std::size_t i) {
  const std::size_t colon = tokens.Before(i);
  const bool parted = colon != Tokens::kNone && tokens.Is(colon, ":");
  return HasSuffix(WithLowerStart(tokens.WordBefore(parted ? colon : i)),
                   {"fahrzeit", "reisezeit", "flugzeit", "gehzeit", "dauer"});
}

// "1:45:30 Std.", "2:15 h", "12:30 min".
Found DurationOfUnitAt(const Tokens& tokens, std::size_t i) {
  const auto duration = DurationDigitsAt(tokens, i);
  if (!duration) return std::nullopt;
  constexpr std::string_view kNames[] = {"Stunde", "Minute", "Sekunde"};
  const auto unit = UnitAt(tokens, tokens.Skip(duration->end));
  if (!unit && duration->count == 2 && NamesJourney(tokens, i) && tokens.FreeBehind(duration->end - 1))
    return Phrase{duration->end,
                  PartWords(duration->parts[0], kNames[0]) + " " + PartWords(duration->parts[1], kNames[1])};
  // "wurde in 2:59:59 beendet"
  const bool bare = !unit && duration->count == 3 && IsOneOf(tokens.WordBefore(i), {"in", "In"}) &&
                    tokens.FreeBehind(duration->end - 1);
  if (!unit && !bare) return std::nullopt;
  std::size_t name = 0;
  if (bare) {
    name = 0;
  } else if (unit->singular == "Minute") {
    name = duration->count == 3 ? 0 : 1;
  } else if (unit->singular != "Stunde") {
    return std::nullopt;
  }
  if (unit && tokens.Is(unit->end - 1, "h") && duration->count == 2 &&
      (StandsBehindTimeWord(tokens, i) || NamesHour(tokens, i, *duration)))
    return std::nullopt;
  std::string words;
  for (std::size_t part = 0; part < duration->count && name < 3; ++part, ++name) {
    if (duration->parts[part] == 0 && (part > 0 || duration->parts[1] > 0)) continue;
    if (!words.empty()) words += ' ';
    words += part == 0 ? FirstPartWords(tokens, i, duration->parts[0], kNames[name])
                       : PartWords(duration->parts[part], kNames[name]);
  }
  if (!unit) return Phrase{duration->end, words};
  const bool last = unit->endsWithPoint && tokens.IsLast(unit->end - 1);
  return Phrase{last ? unit->end - 1 : unit->end, words};
}

}  // namespace

Found DurationAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading : {&RaceTimeAt, &LongRaceTimeAt, &DurationOfUnitAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
