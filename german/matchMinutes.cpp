#include "german/matchMinutes.h"

#include "german/grammar.h"
#include "german/nouns.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// "in der 90.+3 Minute".
Found MinuteOfInjuryTimeAt(const Tokens& tokens, std::size_t i) {
  const auto minute = DigitsAt(tokens, i, 3);
  const auto more = DigitsAt(tokens, i + 3, 2);
  if (!minute || !more || !tokens.Is(i + 1, ".") || !tokens.Is(i + 2, "+")) return std::nullopt;
  const bool alone = HasDeterminer(tokens, i) && !tokens.IsCapital(tokens.Skip(i + 4));
  const std::size_t unit = tokens.Skip(i + 4);
  if (HasDeterminer(tokens, i) && tokens.Is(unit, "Min") && tokens.Is(unit + 1, "."))
    return Phrase{tokens.WithoutLastPoint(unit + 2),
                  CardinalWords(*minute) + " plus " + OrdinalWords(*more, "en") + " Minute"};
  const bool ofMinute = HasDeterminer(tokens, i) && tokens.Is(unit, "Minute");
  return Phrase{i + 4, (alone ? OrdinalWords(*minute, "en") : CardinalWords(*minute)) + " plus " +
                           (ofMinute ? OrdinalWords(*more, "en") : CardinalWords(*more))};
}

// "1:0 (5.)".
bool BehindScore(const Tokens& tokens, std::size_t i) {
  return i >= 2 && tokens.IsNumber(i) && tokens.Is(i - 1, ":") && tokens.IsNumber(i - 2);
}

// The text is on a match: a score stands in it, or what is said of goals.
bool SpeaksOfMatch(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 40;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (tokens.IsNumber(at, 1, 2) && tokens.Is(at + 1, ":") && tokens.IsNumber(at + 2, 1, 1)) return true;
    if (tokens.IsWord(at) && IsOneOf(WithLowerStart(tokens.View(at)),
                                     {"traf", "trafen", "tor", "tore", "toren", "treffer", "treffern",
                                      "führung", "ausgleich", "verwandelte", "köpfte", "elfmeter",
                                      "anschlusstreffer", "torschützen", "netzte", "schiedsrichter"}))
      return true;
  }
  return false;
}

// "traf doppelt (12., 56.)": one of several minutes in brackets.
Found ListedMinuteAt(const Tokens& tokens, std::size_t i) {
  constexpr std::uint64_t kLastMinute = 120;
  const auto isMinute = [&tokens](std::size_t at) {
    return tokens.IsNumber(at, 1, 3) && tokens.Is(at + 1, ".") &&
           DigitsAt(tokens, at, 3).value_or(kLastMinute + 1) <= kLastMinute;
  };
  if (!isMinute(i)) return std::nullopt;
  std::size_t first = i;
  while (first >= 4 && tokens.Is(first - 2, ",") && isMinute(first - 4)) first -= 4;
  std::size_t last = i;
  while (tokens.Is(last + 2, ",") && isMinute(last + 4)) last += 4;
  if (first == last || first == 0 || !tokens.Is(first - 1, "(") || !tokens.Is(last + 2, ")") ||
      !SpeaksOfMatch(tokens, i))
    return std::nullopt;
  return Phrase{i + 2, OrdinalWords(*DigitsAt(tokens, i, 3), "e") + (i == last ? " Minute" : "")};
}

// "Müller (12.)", "Kaya (34./FE)": the minute of a goal.
Found GoalMinuteAt(const Tokens& tokens, std::size_t i) {
  const auto minute = DigitsAt(tokens, i, 3);
  if (!minute || *minute == 0 || *minute > 120 || !tokens.Is(i + 1, ".") || i < 3 || !tokens.Is(i - 1, "(") ||
      !(tokens.IsCapital(i - 3) || BehindScore(tokens, i - 3)))
    return std::nullopt;
  if (BehindScore(tokens, i - 3) && tokens.Is(i + 2, ")"))
    return Phrase{i + 2, OrdinalWords(*minute, "e") + " Minute"};
  // "1:0 Müller (12.)", "durch Fuchs (12.)": it is a man, whatever his name means.
  const bool scored =
      i >= 7 && ((tokens.IsNumber(i - 5) && tokens.Is(i - 6, ":")) || tokens.Is(i - 5, "durch"));
  if (NounOf(tokens.View(i - 3)).whole && !scored && !SpeaksOfMatch(tokens, i)) return std::nullopt;
  const std::string words = OrdinalWords(*minute, "e") + " Minute";
  if (tokens.Is(i + 2, ")")) return Phrase{i + 2, words};
  if (!tokens.Is(i + 2, "/") && !tokens.Is(i + 2, ",")) return std::nullopt;
  const auto kind = tokens.View(tokens.Skip(i + 3));
  if (IsOneOf(kind, {"FE", "HE", "ET", "Foulelfmeter", "Handelfmeter", "Eigentor", "Elfmeter"})) {
    const std::string name(kind == "FE"   ? "Foulelfmeter"
                           : kind == "HE" ? "Handelfmeter"
                           : kind == "ET" ? "Eigentor"
                                          : kind);
    return Phrase{tokens.Skip(i + 3) + 1, words + ", " + name};
  }
  return tokens.Is(i + 2, ",") && tokens.IsNumber(tokens.Skip(i + 3)) ? Found(Phrase{i + 2, words})
                                                                      : std::nullopt;
}

}  // namespace

Found MatchMinuteAt(const Tokens& tokens, std::size_t i) {
  if (auto listed = ListedMinuteAt(tokens, i)) return listed;
  if (auto minute = GoalMinuteAt(tokens, i)) return minute;
  return MinuteOfInjuryTimeAt(tokens, i);
}

}  // namespace lorelin
