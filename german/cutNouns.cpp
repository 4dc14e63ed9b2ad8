#include "german/cutNouns.h"

#include "german/abbreviations.h"
#include "german/cutWords.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/nouns.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

// "12", but not "1" and no ordinal.
bool CountsMany(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  return before != Tokens::kNone && tokens.IsNumber(before, 1, 3) && !tokens.Is(before, "1") &&
         !LabelBefore(tokens, before);
}

bool IsMany(std::string_view word) {
  return IsOneOf(word,
                 {"alle",     "allen",  "aller",   "viele",   "vielen", "vieler", "mehrere",   "mehreren",
                  "mehrerer", "einige", "einigen", "einiger", "beide",  "beiden", "sämtliche", "sämtlichen",
                  "zwei",     "drei",   "vier",    "fünf",    "wenige", "wenigen"});
}

// "Unsere Tel. lautet": the verb behind the point is one of a single thing.
bool SingleVerbFollows(const Tokens& tokens, std::size_t i) {
  std::size_t next = tokens.Skip(i + 2);
  // "Die Pat. (54 J.) klagt".
  constexpr std::size_t kLongBracket = 40;  // tokens
  if (tokens.Is(next, "(")) {
    const std::size_t most = next + kLongBracket;
    while (next < most && next < tokens.Count() && !tokens.Is(next, ")")) ++next;
    next = tokens.Skip(next + 1);
  }
  return tokens.IsWord(next) && !tokens.IsCapital(next) &&
         (HasSuffix(tokens.View(next), {"t", "te"}) ||
          IsOneOf(tokens.View(next), {"wird", "wurde", "war", "kam", "gab", "stand", "lag", "befand"}));
}

// "Die Temp. schwanken".
bool PluralVerbFollows(const Tokens& tokens, std::size_t i) {
  const auto next = tokens.View(tokens.Skip(i + 2));
  return !IsUpperWord(next) && (next.ends_with("en") || next == "sind") && !CaseOfPreposition(next) &&
         !IsDeterminer(next);
}

// "die", "ihre" before what is not feminine, "den" before what is not masculine.
bool DeterminesMany(std::string_view word, Gender gender) {
  if (IsMany(word)) return true;
  if (word == "den") return gender != Gender::Masculine;
  return gender != Gender::Feminine &&
         IsOneOf(word, {"die", "diese", "keine", "meine", "deine", "seine", "ihre", "unsere", "eure"});
}

bool IsDativePlural(const Tokens& tokens, std::size_t i) {
  const std::string word = WithLowerStart(tokens.WordBefore(i));
  if (word == "den" || (IsMany(word) && word.ends_with("en"))) return true;
  const std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone || !tokens.IsNumber(before)) return false;
  const auto preposition = tokens.WordBefore(before);
  if (preposition == "über" || preposition == "unter") return false;  // "über 500 Mitgl."
  return CaseOfPreposition(preposition) == Case::Dative;
}

// "Patient", "Kunde": of the nouns that have "-en" in every case but the first.
bool IsWeak(std::string_view noun) {
  return HasSuffix(noun, {"ent", "ant", "ist", "e"});
}

std::string Genitive(std::string_view noun) {
  const std::string word(noun);
  if (word.ends_with('e')) return word + "n";
  if (HasSuffix(word, {"ent", "ant", "ist", "at"})) return word + "en";
  return word + (HasSuffix(word, {"s", "z", "ß", "x"}) ? "es" : "s");
}

// "Unterschr. d. Antragst.": the article is cut as well.
bool BelongsToNoun(const Tokens& tokens, std::size_t i) {
  const std::size_t point = tokens.Before(i);
  if (point == Tokens::kNone || point == 0 || !tokens.Is(point, ".") || !tokens.Is(point - 1, "d"))
    return false;
  std::size_t noun = tokens.Before(point - 1);
  if (noun != Tokens::kNone && noun > 0 && tokens.Is(noun, ".")) --noun;
  return noun != Tokens::kNone && tokens.IsCapital(noun);
}

// "bei anhaltenden Beschw.": without an article one thing would be "anhaltender".
bool DescribesMany(const Tokens& tokens, std::size_t i, Gender gender) {
  const std::size_t adjective = tokens.WordIndexBefore(i);
  if (gender != Gender::Feminine || adjective == Tokens::kNone || tokens.IsCapital(adjective)) return false;
  const auto word = tokens.View(adjective);
  const bool bent = word.size() > 5 && word.ends_with("en") && !IsVerb(word) && !IsDeterminer(word) &&
                    !CaseOfPreposition(word);
  std::size_t before = tokens.Before(adjective);
  if (before != Tokens::kNone && before > 0 && tokens.Is(before, ".")) --before;
  return bent && before != Tokens::kNone &&
         (CaseOfPreposition(tokens.View(before)) ||
          IsOneOf(tokens.View(before), {"und", "oder", "u", "o", "bzw", "sowie"}));
}

bool IsGenitive(std::string_view before) {
  return IsOneOf(before,
                 {"des", "eines", "dieses", "jedes", "ihres", "seines", "unseres", "meines", "Ihres"});
}

// "Die Pat. gibt an", "bei der Pat.", "eine 40-jähr. Pat.".
bool IsWoman(const Tokens& tokens, std::size_t i, std::string_view before) {
  if (IsOneOf(before,
              {"die", "diese", "eine", "unsere", "einer", "unserer", "ihrer", "meiner", "seiner", "dieser"}))
    return true;
  const std::size_t article = tokens.WordIndexBefore(i);
  return before == "der" && CaseOfPreposition(tokens.WordBefore(article)) == Case::Dative;
}

}  // namespace

std::string BentNoun(const Tokens& tokens, std::size_t i, std::string_view singular,
                     std::string_view plural) {
  const Noun noun = NounOf(singular);
  const std::string before = WithLowerStart(tokens.WordBefore(i));
  if (tokens.IsNumber(tokens.Skip(i + 2))) return std::string(singular);  // "535 Abs. 2"
  if (CountsMany(tokens, i) ||
      (noun.known && DeterminesMany(before, noun.gender) && !SingleVerbFollows(tokens, i)) ||
      IsMany(before) || (before == "die" && PluralVerbFollows(tokens, i)) ||
      (noun.known && DescribesMany(tokens, i, noun.gender))) {
    const bool bends = IsDativePlural(tokens, i) && !plural.ends_with('n') && !plural.ends_with('s');
    return std::string(plural) + (bends ? "n" : "");
  }
  if (singular == "Patient" && IsWoman(tokens, i, before)) return "Patientin";
  // "von Ministerpräs. Lang": without an article a title stays as it is.
  std::size_t end = i + 1;
  while (end < tokens.Count() && !tokens.IsBlank(end)) ++end;  // "Min.-Präs."
  const bool title = tokens.IsCapital(end + 1) && !HasDeterminer(tokens, i);
  if (IsWeak(singular) && noun.gender == Gender::Masculine && !IsGenitive(before) && !title) {
    const auto ending = EndingAt(tokens, i, AgreementOf(Gender::Masculine));
    if (ending == "en" || ending == "em") return Genitive(singular);
  }
  // "Die Verf. lebt in Wien."
  if (noun.gender == Gender::Masculine && singular.ends_with("er") && SingleVerbFollows(tokens, i) &&
      IsOneOf(before, {"die", "diese", "eine", "meine", "unsere", "ihre", "seine"}))
    return std::string(singular) + "in";
  const std::size_t article = tokens.Before(i) == Tokens::kNone ? 0 : tokens.Before(i);
  if (!plural.empty() && article > 0 && tokens.Is(article, ".") && tokens.Is(article - 1, "d") &&
      CountsMembers(tokens, article - 1))
    return std::string(plural);
  const bool genitive = (IsGenitive(before) || BelongsToNoun(tokens, i)) && noun.gender != Gender::Feminine;
  return genitive ? Genitive(singular) : std::string(singular);
}

std::string WholeNounAt(const Tokens& tokens, std::size_t noun) {
  if (!tokens.Is(noun + 1, ".") && !IsAllCaps(tokens.View(noun))) return std::string(tokens.View(noun));
  if (const auto found = AbbreviationAt(tokens, noun); found && IsUpperWord(found->abbreviation->spoken))
    return std::string(found->abbreviation->spoken);
  if (const auto street = StreetAt(tokens, noun))
    return std::string(tokens.View(noun).substr(0, street->stemLength)) + std::string(street->spoken);
  if (const auto cut = CutWordAt(tokens, noun)) return cut->words;
  return std::string(tokens.View(noun));
}

bool CountsMembers(const Tokens& tokens, std::size_t article) {
  std::size_t noun = tokens.Before(article);
  if (noun != Tokens::kNone && noun > 0 && tokens.Is(noun, ".")) --noun;
  return noun != Tokens::kNone &&
         IsOneOf(tokens.View(noun), {"Anzahl", "Anz", "Zahl", "Liste", "Mehrheit", "Großteil", "Mehrzahl",
                                     "Höchstzahl", "Mindestzahl", "Verzeichnis", "Summe"});
}

bool IsHeadAt(const Tokens& tokens, std::size_t i) {
  if (IsNumberedHead(tokens.View(i))) return true;
  return tokens.Is(i + 1, ".") && IsNumberedHead(WholeNounAt(tokens, i));
}

}  // namespace lorelin
