#include "german/ranks.h"

#include "german/dates.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

// "kam als 27. ins Ziel": between such a word and a small one it is no age.
bool ComesAsOne(const Tokens& tokens, std::size_t i) {
  const std::size_t next = tokens.Skip(i + 2);
  return tokens.WordBefore(i) == "als" && tokens.IsNumber(i, 1, 3) && tokens.Is(i + 1, ".") && next > i + 2 &&
         tokens.IsWord(next) && !tokens.IsCapital(next);
}

bool MayBeRank(const Tokens& tokens, std::size_t i) {
  return DigitsAt(tokens, i, 4).value_or(kLastRank + 1) <= kLastRank || ComesAsOne(tokens, i);
}

// "älter als 12."
bool Compares(std::string_view word) {
  if (IsOneOf(word, {"mehr", "Mehr", "Weniger", "Älter", "Jünger", "Größer", "Kleiner", "anders"}))
    return true;
  return !IsUpperWord(word) && word.size() > 4 && word.ends_with("er") && !IsDeterminer(word);
}

bool IsRankVerb(std::string_view word) {
  return IsOneOf(word, {"wurde", "wird", "Wurde", "werden", "als", "Als", "wurdest"});
}

// "wurde bei der WM", "wurde im Finale": a contest stands between the verb and the rank; "wurde im März 5" is
// an age.
std::size_t VerbBeforeContest(const Tokens& tokens, std::size_t last) {
  constexpr int kWords = 4;
  std::size_t at = last;
  if (!tokens.IsCapital(at) || IsMonth(tokens.View(at))) return Tokens::kNone;
  for (int step = 0; step < kWords && at != Tokens::kNone; ++step) {
    const std::size_t before = tokens.WordIndexBefore(at);
    if (before == Tokens::kNone) return before;
    if (IsOneOf(tokens.View(before), {"wurde", "wird", "wurdest"}))
      return IsOneOf(tokens.View(at), {"im", "in", "bei", "beim", "hinter", "über", "auf", "mit"})
                 ? before
                 : Tokens::kNone;
    at = before;
  }
  return Tokens::kNone;
}

// "Er wurde in 9,98 s nur 3.": with such a word it is no age, whatever stands between.
std::size_t VerbBeforeOnly(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  const std::size_t only = tokens.WordIndexBefore(i);
  if (only == Tokens::kNone ||
      !IsOneOf(tokens.View(only), {"nur", "immerhin", "sogar", "Rückstand", "Vorsprung", "Abstand", "damit",
                                   "erneut", "wieder", "schließlich", "letztlich", "überraschend", "guter",
                                   "starker", "toller", "undankbarer", "gute", "starke", "tolle"}))
    return Tokens::kNone;
  for (std::size_t back = only; back-- > 0 && back + kNear > only;) {
    if (IsOneOf(tokens.View(back), {"wurde", "wird"})) return back;
  }
  return Tokens::kNone;
}

// "Nach der 1. Runde lag er vorn, am Ende wurde er 4.": else it may as well be an age.
bool SpeaksOfContest(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 40;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i; ++at) {
    if (tokens.IsWord(at) &&
        HasSuffix(WithLowerStart(tokens.View(at)),
                  {"rang",     "runde",         "platz",           "rennen",     "lauf",
                   "finale",   "ziel",          "wettkampf",       "wettbewerb", "etappe",
                   "turnier",  "meisterschaft", "meisterschaften", "springen",   "sprung",
                   "spielen",  "turnieren",     "wertung",         "marathon",   "saison",
                   "durchgang"}))
      return true;
  }
  return false;
}

// "Er wurde 3.", "als 2. von 5 Kindern": the token of the verb, over "nur" and the like.
std::size_t VerbOfRank(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.WordIndexBefore(i);
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"nur", "sogar", "nicht", "leider", "immerhin"}))
    at = tokens.WordIndexBefore(at);
  if (at == Tokens::kNone) return VerbBeforeOnly(tokens, i);  // "wurde 1997 Vierte, 1999 sogar 2."
  if (IsOneOf(tokens.View(at), {"er", "sie"}) && IsOneOf(tokens.WordBefore(at), {"wurde", "wird"}) &&
      SpeaksOfContest(tokens, i))
    return tokens.WordIndexBefore(at);
  if (IsRankVerb(tokens.View(at))) return Compares(tokens.WordBefore(at)) ? Tokens::kNone : at;
  const std::size_t contest = VerbBeforeContest(tokens, at);
  return contest == Tokens::kNone ? VerbBeforeOnly(tokens, i) : contest;
}

bool MeansWoman(std::string_view word) {
  return IsOneOf(WithLowerStart(word), {"sie", "frau", "die", "schwester", "mannschaft"});
}

// "Freitag 6., Samstag 7.": days of a month.
bool IsTooOftenDay(std::string_view word) {
  return word.ends_with("tag") || word.ends_with("woch") || CaseOfPreposition(word) ||
         IsOneOf(word, {"und", "oder", "bis", "sowie", "u", "bzw"});
}

// "liegt Köln mit 21 Punkten 6., Mainz …": a point before a comma is no end of a sentence.
bool RanksBeforeComma(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  return tokens.Is(i + 1, ".") && tokens.Is(i + 2, ",") && tokens.IsBlank(i + 3) && before != Tokens::kNone &&
         tokens.IsWord(before) && !LabelBefore(tokens, i) && !IsTooOftenDay(tokens.View(before));
}

}  // namespace

bool BecomesOne(const Tokens& tokens, std::size_t i) {
  return MayBeRank(tokens, i) && (VerbOfRank(tokens, i) != Tokens::kNone || RanksBeforeComma(tokens, i));
}

namespace {

// "wurde 4., ihre Schwester 7.": the comma before the second of two who are compared.
std::size_t CommaOfSecondRank(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.WordIndexBefore(i);
  for (int step = 0; step < 3 && at != Tokens::kNone && tokens.IsWord(at); ++step) at = tokens.Before(at);
  const bool rank = at != Tokens::kNone && at >= 3 && tokens.Is(at, ",") && tokens.Is(at - 1, ".") &&
                    tokens.IsNumber(at - 2, 1, 2) && BecomesOne(tokens, at - 2);
  return rank && MayBeRank(tokens, i) ? at : Tokens::kNone;
}

// "Wer war 1.?"
bool AsksForRank(const Tokens& tokens, std::size_t i) {
  return tokens.Is(i + 1, ".") && tokens.Is(i + 2, "?") && MayBeRank(tokens, i) &&
         IsOneOf(tokens.WordBefore(i), {"war", "ist", "wurde", "wird", "als", "bist", "bin"});
}

}  // namespace

bool IsRank(const Tokens& tokens, std::size_t i) {
  return BecomesOne(tokens, i) || AsksForRank(tokens, i) || CommaOfSecondRank(tokens, i) != Tokens::kNone;
}

namespace {

// "Die 10. Klasse wurde 3."
bool OpensWithFeminine(const Tokens& tokens) {
  if (!IsOneOf(tokens.View(0), {"Die", "Eine", "Meine", "Seine", "Ihre", "Unsere"})) return false;
  constexpr std::size_t kNear = 8;  // tokens
  for (std::size_t at = 1; at < kNear; ++at) {
    if (!tokens.IsCapital(at)) continue;
    const Noun noun = NounOf(tokens.View(at));
    return noun.singular && noun.gender == Gender::Feminine;
  }
  return false;
}

}  // namespace

// "Dritter", "Dritte", "drittes" of the children.
std::string RankWords(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  if (const std::size_t comma = CommaOfSecondRank(tokens, i); comma != Tokens::kNone) {
    const std::size_t second = tokens.Skip(comma + 1);  // "nur 8., im Lauf 2."
    const bool goesOn = CaseOfPreposition(tokens.View(second)) || tokens.Is(second, "im");
    const bool she = (goesOn && tokens.Is(0, "Sie")) || MeansWoman(tokens.View(second)) ||
                     MeansWoman(tokens.WordBefore(i));
    return WithUpperStart(OrdinalWords(value, she ? "e" : "er"));
  }
  const std::size_t verb = VerbOfRank(tokens, i);
  if (verb == Tokens::kNone) return WithUpperStart(OrdinalWords(value, tokens.Is(0, "Sie") ? "e" : "er"));
  const bool woman = MeansWoman(tokens.WordBefore(verb)) || OpensWithFeminine(tokens) ||
                     tokens.WordBefore(i) == "sie" || tokens.Is(0, "Sie") ||
                     (tokens.WordIndexBefore(verb) != Tokens::kNone &&
                      MeansWoman(tokens.WordBefore(tokens.WordIndexBefore(verb))));
  const bool child = HasSuffix(tokens.View(i + 7), {"Kindern", "Geschwistern"});
  return WithUpperStart(OrdinalWords(value, child ? "es" : (woman ? "e" : "er")));
}

}  // namespace lorelin
