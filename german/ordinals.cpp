#include "german/ordinals.h"

#include "german/abbreviations.h"
#include "german/cutNouns.h"
#include "german/dates.h"
#include "german/labels.h"
#include "german/matchMinutes.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ranks.h"
#include "german/rowItems.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {

bool StartsSentenceAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  return StartsSentences(word) || (word.ends_with('n') && tokens.Is(i + 2, "Sie"));
}

namespace {

constexpr std::uint64_t kYears = 1000;  // from here on a number is rather a year than an ordinal

bool JoinsOrdinals(std::string_view word) {
  return IsOneOf(word,
                 {"und", "oder", "bis", "sowie", "u", "bzw", "beziehungsweise", "auf", ",", "/", "–", "-"});
}

// "3. und 4. Mai": another ordinal follows what joins them.
std::size_t JoinedOrdinalBehind(const Tokens& tokens, std::size_t next) {
  if (!JoinsOrdinals(tokens.View(next))) return Tokens::kNone;
  std::size_t number = next + 1;
  if (tokens.Is(number, ".")) ++number;
  number = tokens.Skip(number);
  return tokens.IsNumber(number, 1, 3) && tokens.Is(number + 1, ".") ? number : Tokens::kNone;
}

bool StandsBehindOrdinal(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone || !JoinsOrdinals(tokens.View(before))) return false;
  before = tokens.Before(before);
  if (before == Tokens::kNone) return false;
  if (tokens.IsWord(before)) return IsOrdinalWord(tokens.View(before));
  return tokens.Is(before, ".") && before > 0 && tokens.IsNumber(before - 1);
}

bool IsPluralDeterminer(std::string_view word) {
  return IsOneOf(WithLowerStart(word),
                 {"alle", "allen", "aller", "keine", "beide", "ihre", "seine", "meine", "unsere"});
}

// "am", "jeder": what follows is one thing of a row.
bool DeterminesOne(const Tokens& tokens, std::size_t i) {
  if (!HasDeterminer(tokens, i)) return false;
  return !IsPluralDeterminer(tokens.WordBefore(i));
}

// The same without a noun: "die 88." and "in der 14." are the names of numbers.
bool DeterminesOneAlone(const Tokens& tokens, std::size_t i) {
  const std::string word = WithLowerStart(tokens.WordBefore(i));
  if (word == "die" || word == "zur") return false;
  // "am 3. nur noch 40."
  if (IsDegreeWord(word) && !IsOneOf(word, {"spätestens", "frühestens"})) return false;
  // "in Sport eine 3.", "mit einer 2."
  if (IsOneOf(word, {"eine", "einer", "keine", "meine", "deine", "seine", "ihre"})) return false;
  if (word == "der") {
    const std::size_t before = tokens.WordIndexBefore(i);
    return before != Tokens::kNone && !CaseOfPreposition(tokens.WordBefore(before));
  }
  return DeterminesOne(tokens, i);
}

// Cooking and other instructions: the line ends with what is to be done.
bool LineEndsWithInfinitive(const Tokens& tokens, std::size_t i) {
  if (tokens.Is(i + 1, ":")) return false;  // "2. Mahnung: Wir konnten keinen Eingang feststellen"
  std::size_t last = Tokens::kNone;
  for (; i < tokens.Count() && tokens.Kind(i) != TokenKind::Line; ++i) {
    if (tokens.IsWord(i)) last = i;
  }
  return last != Tokens::kNone && !tokens.IsCapital(last) &&
         HasSuffix(tokens.View(last), {"en", "ern", "eln"});
}

bool IsSingularNoun(const Tokens& tokens, std::size_t i) {
  const Noun noun = NounOf(tokens.View(i));
  return noun.singular && (noun.known || noun.guessed);
}

// "Sie kommt in die 5."
bool GoesToClass(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  constexpr std::uint64_t kLastClass = 13;
  const std::size_t die = tokens.WordIndexBefore(i);
  if (value > kLastClass || die == Tokens::kNone || !tokens.Is(die, "die") || tokens.WordBefore(die) != "in")
    return false;
  for (std::size_t at = 0; at < die; ++at) {
    if (IsOneOf(tokens.View(at),
                {"geht", "gehe", "gehen", "ging", "kommt", "komme", "kam", "besucht", "Klasse"}))
      return true;
  }
  return false;
}

// "aus der 2. Reihe, … aus der 5.": the noun of another of the row that has been named before, behind the
// same word. "in 5. Generation, … bereits die 6.": the next of them behind any word.
std::size_t NounOfEarlierInRow(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  constexpr std::size_t kNear = 30;  // tokens
  const std::string article = WithLowerStart(tokens.WordBefore(i));
  for (std::size_t at = i > kNear ? i - kNear : 0; at + 5 < i; ++at) {
    if (tokens.IsNumber(at, 1, 2) && tokens.Is(at + 1, ".") && tokens.IsBlank(at + 2) &&
        tokens.IsCapital(at + 3) && !MonthAt(tokens, at + 3) &&
        (WithLowerStart(tokens.WordBefore(at)) == article || DigitsAt(tokens, at, 2) == value - 1) &&
        NounOf(tokens.View(at + 3)).whole)
      return at + 3;
  }
  return Tokens::kNone;
}

bool RepeatsOrdinal(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  return IsOneOf(tokens.WordBefore(i), {"der", "die", "zur", "einer", "eine"}) &&
         NounOfEarlierInRow(tokens, i, value) != Tokens::kNone;
}

// "in 1. Linie um …, in 2. um …".
bool GoesOnWithRow(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  return CaseOfPreposition(tokens.WordBefore(i)) && NounOfEarlierInRow(tokens, i, value) != Tokens::kNone;
}

PointMeaning AtEnd(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  if (LabelBefore(tokens, i) || value >= kYears) return PointMeaning::Sentence;
  const bool one = DeterminesOneAlone(tokens, i) || IsRank(tokens, i) || StandsBehindOrdinal(tokens, i) ||
                   GoesToClass(tokens, i, value) || RepeatsOrdinal(tokens, i, value);
  return one ? PointMeaning::OrdinalAtEnd : PointMeaning::Sentence;
}

// "3. von links".
bool CountsFromSide(const Tokens& tokens, std::size_t next) {
  return (tokens.Is(next, "von") || (tokens.Is(next, "v") && tokens.Is(next + 1, "."))) &&
         IsOneOf(tokens.View(tokens.Skip(next + (tokens.Is(next, "v") ? 2 : 1))),
                 {"links", "rechts", "oben", "unten", "hinten", "vorn", "vorne"});
}

PointMeaning BeforeSmallWord(const Tokens& tokens, std::size_t i, std::size_t next) {
  if (LabelBefore(tokens, i)) return PointMeaning::Sentence;
  if (DeterminesOne(tokens, i) || StandsBehindOrdinal(tokens, i) || BecomesOne(tokens, i) ||
      CountsFromSide(tokens, next))
    return PointMeaning::Ordinal;
  if (GoesOnWithRow(tokens, i, *DigitsAt(tokens, i, 4))) return PointMeaning::Ordinal;
  // "Seine 9. und letzte Sinfonie".
  const std::size_t described = NounBehind(tokens, tokens.Skip(next + 1));
  if (IsOneOf(tokens.View(next), {"und", "oder"}) && HasDeterminer(tokens, i) && described != Tokens::kNone &&
      described > next + 2 && IsSingularNoun(tokens, described))
    return PointMeaning::Ordinal;
  // "bis spät. 15. d. M."
  if (IsOneOf(tokens.View(next), {"d", "ds", "dieses"}) &&
      (tokens.Is(next + 1, ".") || tokens.IsCapital(next + 2)))
    return PointMeaning::Ordinal;
  // "bis 10. jeden Monats".
  if (tokens.View(NounBehind(tokens, tokens.Skip(next + 1))).ends_with("onats") &&
      IsOneOf(tokens.View(next), {"jeden", "jedes", "eines", "des", "laufenden", "nächsten", "kommenden"}))
    return PointMeaning::Ordinal;
  // "bis 31. im Haus", "ab 1. übernimmt".
  if (IsOneOf(tokens.WordBefore(i), {"bis", "ab", "seit", "Ab", "Bis", "Seit"}) &&
      DigitsAt(tokens, i, 2).value_or(32) <= 31)
    return PointMeaning::Ordinal;
  if (tokens.OpensLine(i) && LineEndsWithInfinitive(tokens, next)) return PointMeaning::List;
  if (JoinedOrdinalBehind(tokens, next) != Tokens::kNone) return PointMeaning::Ordinal;
  const std::size_t noun = NounBehind(tokens, next);
  if (noun == Tokens::kNone) return PointMeaning::Sentence;
  return HasPreposition(tokens, i) || IsNumberedHead(tokens.View(noun)) ? PointMeaning::Ordinal
                                                                        : PointMeaning::Sentence;
}

bool IsEvent(std::string_view noun) {
  return noun.size() > 7 &&
         HasSuffix(noun, {"lauf", "fest", "markt", "marathon", "kongress", "messe", "festival", "konzert",
                          "pokal", "treffen", "symposium", "turnier", "rennen", "tage", "tagung"});
}

// "7. Bonner Kneipenlauf", "12. Internationales Jazzfestival", "25. Stadtfest".
bool OpensWithEvent(const Tokens& tokens, std::size_t next) {
  if (IsEvent(tokens.View(next))) return true;
  return HasSuffix(tokens.View(next), {"er", "es", "e"}) && tokens.IsBlank(next + 1) &&
         tokens.IsCapital(next + 2) && IsEvent(tokens.View(next + 2));
}

// Nothing before the number says what it is: only a head tells.
PointMeaning BeforeNounAlone(const Tokens& tokens, std::size_t i, std::size_t next) {
  const Noun what = NounOf(tokens.View(next));
  // "Hauptstraße 118, 2. Hinterhaus".
  const std::size_t before = tokens.Before(i);
  const bool part = before != Tokens::kNone && IsOneOf(tokens.View(before), {",", "(", "–", "·", "|"}) &&
                    what.known && what.singular && !what.plural && *DigitsAt(tokens, i, 4) <= 20;
  const bool head = part || IsHeadAt(tokens, next) ||
                    ((tokens.OpensLine(i) || tokens.OpensClause(i)) && OpensWithEvent(tokens, next));
  if (tokens.OpensLine(i) && (!head || LineEndsWithInfinitive(tokens, next))) return PointMeaning::List;
  if (head) return PointMeaning::Ordinal;
  return PointMeaning::Sentence;
}

bool CountsTime(std::string_view preposition) {
  return IsOneOf(WithLowerStart(preposition), {"um", "gegen", "bis", "über", "unter", "je", "pro", "auf",
                                               "zu", "mit", "von", "ab", "für"});
}

// "Sie ist 1. Geigerin", "1. Vorsitzender und 2. Kassierer": an office, where no new sentence can have begun.
bool NamesOffice(const Tokens& tokens, std::size_t i, std::size_t next, std::uint64_t value) {
  constexpr std::size_t kNear = 14;  // tokens
  const std::size_t verb = tokens.Skip(next + 1);
  if (!NounOf(tokens.View(next)).whole || !IsSingularNoun(tokens, next) || value > kLastRank ||
      IsLinkingVerb(tokens.View(verb)) || IsVerb(tokens.View(verb)))
    return false;
  const auto before = tokens.WordBefore(i);
  if (IsOneOf(before, {"ist", "war", "wurde", "wird", "blieb", "bleibt"})) {
    const auto word = tokens.View(next);
    return HasSuffix(word, {"er", "in", "or", "ent", "ant", "ist", "eur", "mann", "frau", "wart"});
  }
  if (!IsOneOf(before, {"und", "sowie", "u"})) return false;
  for (std::size_t at = i > kNear ? i - kNear : 0; at + 3 < i; ++at) {
    if (tokens.IsNumber(at, 1, 2) && tokens.Is(at + 1, ".") && tokens.IsBlank(at + 2) &&
        tokens.IsCapital(at + 3) && !MonthAt(tokens, at + 3))
      return true;
  }
  return false;
}

// "zwischen Wohnung und 1. Tätigkeitsstätte": the second thing must follow.
bool StandsBehindBetween(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kWords = 4;
  std::size_t at = tokens.Before(i);
  if (at == Tokens::kNone || !IsOneOf(tokens.View(at), {"und", "u"})) return false;
  for (std::size_t step = 0; step < kWords; ++step) {
    at = tokens.WordIndexBefore(at);
    if (at == Tokens::kNone) return false;
    if (IsOneOf(tokens.View(at), {"zwischen", "Zwischen", "zw"})) return true;
  }
  return false;
}

constexpr std::uint64_t kHighestFloor = 60;

// "Whg. 3. OG".
bool IsFloorOfFlat(const Tokens& tokens, std::size_t i, std::size_t next) {
  const std::size_t point = tokens.Before(i);
  const bool cut =
      point != Tokens::kNone && point > 0 && tokens.Is(point, ".") && tokens.Is(point - 1, "Whg");
  return (cut || IsOneOf(tokens.WordBefore(i), {"Wohnung", "wohnung"})) &&
         IsOneOf(tokens.View(next), {"OG", "UG", "Stock", "Etage", "Obergeschoss", "Stockwerk"});
}

PointMeaning BeforeCapital(const Tokens& tokens, std::size_t i, std::size_t next, std::uint64_t value) {
  const auto word = tokens.View(next);
  if (IsMonth(word) || MonthAt(tokens, next))
    return value <= 31 ? PointMeaning::Ordinal : PointMeaning::Sentence;
  // "am 1. So. im Advent".
  if (word.size() == 2 && tokens.Is(next + 1, ".") &&
      IsOneOf(word, {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"}) && !tokens.IsLast(i + 1) && value <= 31)
    return DeterminesOne(tokens, i) || StandsBehindOrdinal(tokens, i) ? PointMeaning::Ordinal
                                                                      : AtEnd(tokens, i, value);
  if (IsItemOfRow(tokens, i)) return PointMeaning::List;
  if (StartsSentenceAt(tokens, next)) {
    const PointMeaning meaning = AtEnd(tokens, i, value);
    return tokens.OpensLine(i) && meaning == PointMeaning::Sentence ? PointMeaning::List : meaning;
  }
  if (IsFloorOfFlat(tokens, i, next) && value <= kHighestFloor) return PointMeaning::Ordinal;  // "Whg. 3. OG"
  if (LabelBefore(tokens, i)) return PointMeaning::Sentence;
  const Noun noun = NounOf(word);
  const bool cut = tokens.Is(next + 1, ".") && NounOf(WholeNounAt(tokens, next)).known;  // "zum 3. Werkt."
  const bool isNoun = noun.known || noun.guessed || IsAllCaps(word) || IsNumberedHead(word) || cut;
  if (value >= kYears && (GoesBeforeYears(tokens.WordBefore(i)) || !DeterminesOne(tokens, i)))
    return PointMeaning::Sentence;
  if (StandsBehindOrdinal(tokens, i)) return PointMeaning::Ordinal;
  // "ist die 7. Klingeln ist zwecklos": the noun of another sentence.
  const std::size_t article = tokens.WordIndexBefore(i);
  if (article != Tokens::kNone && tokens.Is(article, "die") && noun.known &&
      !(noun.singular && noun.gender == Gender::Feminine) && IsLinkingVerb(tokens.WordBefore(article)) &&
      IsLinkingVerb(tokens.View(tokens.Skip(next + 1))))
    return PointMeaning::Sentence;
  // "… und wurde 1. Zweiter war Beck": the verb behind is that of another sentence.
  if (BecomesOne(tokens, i) && !IsOneOf(tokens.WordBefore(i), {"als", "Als"}) &&
      IsLinkingVerb(tokens.View(tokens.Skip(next + 1))))
    return PointMeaning::OrdinalAtEnd;
  if (DeterminesOne(tokens, i)) {
    // "Er kommt am 5. Peter nicht."
    const bool day = IsOneOf(tokens.WordBefore(i), {"am", "Am", "vom", "zum", "dem"});
    return day && !isNoun ? PointMeaning::OrdinalAtEnd : PointMeaning::Ordinal;
  }
  if (IsOneOf(tokens.WordBefore(i), {"dessen", "deren"}) && isNoun) return PointMeaning::Ordinal;
  if ((HasDeterminer(tokens, i) && isNoun) || NamesOffice(tokens, i, next, value))
    return PointMeaning::Ordinal;
  if (BecomesOne(tokens, i) && IsSingularNoun(tokens, next)) return PointMeaning::Ordinal;
  const auto before = tokens.WordBefore(i);
  const bool cutBefore = before.empty() && HasPreposition(tokens, i);  // "zzgl. 13. Gehalt"
  if ((CaseOfPreposition(before) || cutBefore) && !tokens.OpensLine(i)) {
    const bool fits = IsHeadAt(tokens, next) ||
                      (IsSingularNoun(tokens, next) && !word.ends_with("en") && !CountsTime(before));
    return fits ? PointMeaning::Ordinal : PointMeaning::Sentence;
  }
  if (StandsBehindBetween(tokens, i) && isNoun) return PointMeaning::Ordinal;
  return BeforeNounAlone(tokens, i, next);
}

// "3., überarb. Aufl.", "28., völlig neu bearbeitete Auflage": kNone where no edition is described.
std::size_t EditionBehind(const Tokens& tokens, std::size_t i) {
  constexpr int kWords = 6;
  std::size_t at = tokens.Skip(i);
  for (int word = 0; word < kWords && tokens.IsWord(at) && !tokens.IsCapital(at); ++word)
    at = tokens.Skip(tokens.Is(at + 1, ".") ? at + 2 : at + 1);
  return IsOneOf(tokens.View(at), {"Auflage", "Aufl", "Ausgabe", "Ausg"}) ? at : Tokens::kNone;
}

// "2.OG", "der 1., 2. und 3. Platz", "(am 3.)".
PointMeaning WithoutGap(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  if (value >= kYears) return PointMeaning::Sentence;
  if (tokens.IsWord(i + 2))
    return tokens.IsCapital(i + 2) && !LabelBefore(tokens, i) ? PointMeaning::Ordinal
                                                              : PointMeaning::Sentence;
  if (JoinedOrdinalBehind(tokens, i + 2) != Tokens::kNone) return PointMeaning::Ordinal;
  constexpr std::uint64_t kDays = 31;
  if (tokens.Is(i + 2, ",") && value <= kDays && StandsBehindWeekday(tokens, i)) return PointMeaning::Ordinal;
  if (IsOneOf(tokens.View(i + 2), {",", ")", ";", ":", "?", "!", "“", "\"", "–"})) {
    const bool one = DeterminesOne(tokens, i) || StandsBehindOrdinal(tokens, i) || IsRank(tokens, i) ||
                     EditionBehind(tokens, i + 3) != Tokens::kNone;
    return one && !LabelBefore(tokens, i) ? PointMeaning::Ordinal : PointMeaning::Sentence;
  }
  return PointMeaning::Sentence;
}

}  // namespace

namespace {

// "90-minütige", "100%ige" of "die 1. 90-minütige Sendung": the token of the adjective.
std::size_t GluedAdjectiveAt(const Tokens& tokens, std::size_t i) {
  const std::size_t word = tokens.Is(i + 1, "-") || tokens.Is(i + 1, "%") ? i + 2 : i + 1;
  const bool adjective = tokens.IsNumber(i) && tokens.IsWord(word) && !tokens.IsCapital(word) &&
                         tokens.View(word).size() >= 3 &&
                         HasSuffix(tokens.View(word), {"e", "en", "er", "es", "em"});
  return adjective ? word : Tokens::kNone;
}

}  // namespace

namespace {

// "ab der 2. 5 €": the price of what is counted.
bool PriceOfNextFollows(const Tokens& tokens, std::size_t i, std::size_t next) {
  const std::size_t article = tokens.WordIndexBefore(i);
  if (article == Tokens::kNone || !IsOneOf(tokens.View(article), {"der", "dem", "die", "das"})) return false;
  const auto price = NumberAt(tokens, next);
  return price && CurrencyAt(tokens, tokens.Skip(price->end)) &&
         IsOneOf(tokens.WordBefore(article), {"ab", "bei", "für", "Ab", "Bei", "Für", "nach", "mit"});
}

// "das 1. Kind kam 1998, das 2. 2001.": a year alone is no sentence.
bool YearOfNextFollows(const Tokens& tokens, std::size_t i, std::size_t next) {
  const bool ends = tokens.IsNumber(next, 4, 4) && IsOneOf(tokens.View(next + 1), {".", ",", ";"}) &&
                    !tokens.IsNumber(next + 2);
  return ends && IsOneOf(WithLowerStart(tokens.WordBefore(i)), {"der", "die", "das", "ihr", "sein", "ihre"});
}

}  // namespace

PointMeaning JudgePoint(const Tokens& tokens, std::size_t i) {
  const auto value = DigitsAt(tokens, i, 4);
  if (!value || *value == 0 || !tokens.FreeBefore(i)) return PointMeaning::Sentence;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {".", ",", ":", "+", "#"})) return PointMeaning::Sentence;
  const std::size_t next = tokens.Skip(i + 2);
  if (tokens.IsLast(i + 1) || tokens.Kind(next) == TokenKind::Line) return AtEnd(tokens, i, *value);
  if (next == i + 2) return WithoutGap(tokens, i, *value);
  if (tokens.View(i).front() == '0' && !MonthAt(tokens, next) &&
      !(tokens.Is(next, "d") && tokens.Is(next + 1, ".")))  // "am 05. d. M."
    return PointMeaning::Sentence;
  // "(22. Etappe)": no sentence ends in so short a bracket.
  if (i > 0 && tokens.Is(i - 1, "(") && tokens.IsCapital(next) && tokens.Is(next + 1, ")") && *value < kYears)
    return PointMeaning::Ordinal;
  if (tokens.IsCapital(next)) return BeforeCapital(tokens, i, next, *value);
  if (tokens.IsWord(next)) return BeforeSmallWord(tokens, i, next);
  if (IsOneOf(tokens.View(next), {"–", "-", "/"}) && JoinedOrdinalBehind(tokens, next) != Tokens::kNone)
    return PointMeaning::Ordinal;
  if (GluedAdjectiveAt(tokens, next) != Tokens::kNone && DeterminesOne(tokens, i) && *value < kYears)
    return PointMeaning::Ordinal;
  if (tokens.IsNumber(next) && (PriceOfNextFollows(tokens, i, next) || YearOfNextFollows(tokens, i, next)))
    return PointMeaning::Ordinal;
  // "die 3. „Klasse“"
  if (IsOneOf(tokens.View(next), {"„", "»", "(", "–", "-", "\""}) || tokens.IsNumber(next))
    return AtEnd(tokens, i, *value);
  return PointMeaning::Sentence;
}

namespace {

// "7. Bonner Kneipenlauf": the noun behind the name of a place.
std::size_t NounBehindPlace(const Tokens& tokens, std::size_t noun) {
  if (noun == Tokens::kNone || !tokens.IsBlank(noun + 1) || !tokens.IsCapital(noun + 2)) return noun;
  return IsEvent(tokens.View(noun + 2)) && HasSuffix(tokens.View(noun), {"er", "es", "e"}) ? noun + 2 : noun;
}

}  // namespace

std::size_t NounOfOrdinal(const Tokens& tokens, std::size_t behind) {
  std::size_t next = tokens.Skip(behind);
  for (int step = 0; step < 5; ++step) {
    const std::size_t joined = JoinedOrdinalBehind(tokens, next);
    if (joined == Tokens::kNone) break;
    next = tokens.Skip(joined + 2);
  }
  if (const std::size_t glued = GluedAdjectiveAt(tokens, next); glued != Tokens::kNone) next = glued;
  const std::size_t edition = tokens.Is(next, ",") ? EditionBehind(tokens, next + 1) : Tokens::kNone;
  if (edition != Tokens::kNone) return edition;
  return NounBehindPlace(tokens, NounBehind(tokens, next));
}

namespace {

// "der Deutsche", "jeder Befragte": adjectives that became nouns.
bool IsAdjectivalNoun(std::string_view word) {
  return !word.ends_with("ulose") &&
         HasSuffix(word, {"Deutsche", "wachsene", "liche", "fragte", "stellte", "schäftigte", "letzte",
                          "sicherte", "rechtigte", "eisende", "ierende", "lose", "kranke", "wandte", "kannte",
                          "ordnete", "dächtige", "ständige"});
}

bool IsManDeterminer(std::string_view word) {
  return IsOneOf(word, {"der", "Der", "jeder", "Jeder", "dieser", "Dieser", "jener", "mancher", "den", "dem",
                        "jeden", "jedem"});
}

}  // namespace

Agreement AgreementAt(const Tokens& tokens, std::size_t noun) {
  if (noun == Tokens::kNone) return {};
  while (tokens.Is(noun + 1, "-") && tokens.IsCapital(noun + 2)) noun += 2;  // "E-Bike"
  // "die 3. Deutsche Meisterschaft".
  if (NounOf(tokens.View(noun)).adjectival && tokens.IsBlank(noun + 1) && tokens.IsCapital(noun + 2)) {
    const Noun behind = NounOf(tokens.View(noun + 2));
    if (behind.known && !behind.adjectival) noun += 2;
  }
  const auto word = tokens.View(noun);
  Agreement agreement = AgreementOf(NounOf(WholeNounAt(tokens, noun)));
  if (!agreement.known && IsWomansName(word)) return AgreementOf(Gender::Feminine);
  if (word == "Bund" && tokens.IsCapital(tokens.Skip(noun + 1))) return {Gender::Neuter, false, false, true};
  if (IsOneOf(word, {"Aufl", "Ausg", "Kl", "Std", "Min", "Sek", "Wo", "HZ", "Str", "Et", "Mannsch", "BL"}) ||
      (word == "Abt" && tokens.Is(noun + 1, ".")))
    return {Gender::Feminine, false, false, true};
  if (IsOneOf(word, {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So", "Bd", "Abs", "Jg", "Jahrg", "Tg", "Vors"}) ||
      (word == "Art" && tokens.Is(noun + 1, ".") && !tokens.IsLast(noun + 1)))
    return {Gender::Masculine, false, false, true};
  if (IsOneOf(word, {"Kap", "Qu", "Sem", "Lj", "Obergesch"})) return {Gender::Neuter, false, false, true};
  if (word == "Jh" || word == "Jhd" || word == "Jhdt" || word == "Jt")
    return {Gender::Neuter, false, false, true};
  if (IsOneOf(word, {"Kor", "Korinther", "Petr", "Petrus", "Tim", "Timotheus", "Thess", "Thessalonicher"}))
    return {Gender::Masculine, false, false, true};
  if (word == "OG" || word == "UG" || word == "EG") return {Gender::Neuter, false, false, true};
  if (word == "FC" || word == "SC" || word == "FCK" || word == "FCN")
    return {Gender::Masculine, false, false, true};
  if (IsOneOf(word, {"Bekl", "Beklagten", "Ast", "Angekl"})) return {Gender::Masculine, false, false, true};
  // "zweite Vorsitzende" is a woman, with another article a man.
  const auto article =
      tokens.WordBefore(tokens.Before(noun) == Tokens::kNone ? noun : tokens.Before(noun) - 1);
  if (word.ends_with("zende") && !IsOneOf(article, {"der", "Der", "dem", "den"}))
    agreement.gender = Gender::Feminine;
  // "die o. g. Punkte" are many, "die 2. Vorsitzende" is one woman.
  const bool ofThing = word.ends_with('e') && !IsAdjectivalNoun(word) &&
                       agreement.gender != Gender::Feminine && NounOf(word.substr(0, word.size() - 1)).whole;
  agreement.mayBePlural = agreement.mayBePlural && (!word.ends_with('e') || ofThing);
  agreement.bent =
      agreement.mayBePlural && !agreement.plural && agreement.gender == Gender::Masculine &&
      HasSuffix(word, {"enten", "anten", "isten", "aten", "erten", "gen", "den", "oten", "egen", "nden"});
  if (IsAdjectivalNoun(word) && IsManDeterminer(article)) return {Gender::Masculine, false, false, true};
  if (word.ends_with("zender")) return {Gender::Masculine, false, false, true};
  return agreement;
}

namespace {

// "Zu 1. gibt es nichts zu sagen", "die Beklagte zu 2. ist".
Found ItemAt(const Tokens& tokens, std::size_t i) {
  const auto value = DigitsAt(tokens, i, 2);
  const std::size_t zu = tokens.WordIndexBefore(i);
  const std::size_t next = tokens.Skip(i + 2);
  if (!value || *value > 20 || zu == Tokens::kNone || !IsOneOf(tokens.View(zu), {"zu", "Zu"}) ||
      !tokens.Is(i + 1, ".") || next == i + 2 || !tokens.IsWord(next) || tokens.IsCapital(next) ||
      JoinedOrdinalBehind(tokens, next) != Tokens::kNone)
    return RowItemAt(tokens, i);
  const bool party = HasPrefix(tokens.WordBefore(zu), {"Kläger", "Beklagte", "Antrag", "Angeklagte", "Zeug"});
  return tokens.OpensClause(zu) || party ? Found(Phrase{i + 2, CardinalWords(*value)}) : std::nullopt;
}

bool IsSuperlative(std::string_view word) {
  return HasPrefix(word,
                   {"größte", "höchste", "älteste", "jüngste", "längste", "beste", "kleinste", "wichtigste",
                    "reichste", "schnellste", "teuerste", "häufigste", "meiste", "tiefste", "stärkste"}) &&
         HasSuffix(word, {"te", "ten", "ter", "tes", "tem"});
}

// "der 3.-jüngste Torschütze", "die 2. größte Stadt", "die 2.-Beste". Joined to its place any is one.
Found SuperlativeAt(const Tokens& tokens, std::size_t i) {
  const auto place = DigitsAt(tokens, i, 2);
  if (!place || *place < 2 || !tokens.Is(i + 1, ".") || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t word = i + 3;
  const std::string adjective = WithLowerStart(tokens.View(word));
  const bool joined =
      tokens.Is(i + 2, "-") && tokens.IsWord(word) &&
      (IsSuperlative(adjective) ||
       (!tokens.IsCapital(word) && HasSuffix(adjective, {"ste", "sten", "ster", "stes", "stem"})));
  const bool parted = tokens.IsBlank(i + 2) && HasDeterminer(tokens, i) && IsSuperlative(tokens.View(word));
  if (!joined && !parted) return std::nullopt;
  const std::string number = OrdinalWords(*place, "");
  return Phrase{word + 1, (tokens.IsCapital(word) ? WithUpperStart(number) : number) + adjective};
}

// "die 3.-Platzierte", "ein 4.-Klässler".
Found PlacedAt(const Tokens& tokens, std::size_t i) {
  const auto place = DigitsAt(tokens, i, 2);
  const std::size_t word = tokens.Is(i + 2, "-") ? i + 3 : i + 2;
  if (!place || *place == 0 || !tokens.Is(i + 1, ".") || !tokens.FreeBefore(i) ||
      !HasPrefix(WithLowerStart(tokens.View(word)), {"platziert", "klässler"}))
    return std::nullopt;
  return Phrase{word + 1, WithUpperStart(OrdinalWords(*place, "")) + WithLowerStart(tokens.View(word))};
}

// "der Tabellen-3.", "Weltranglisten-12.": the place in a list, grown together with its name.
Found PlaceInListAt(const Tokens& tokens, std::size_t i) {
  const auto place = DigitsAt(tokens, i, 3);
  if (!place || *place == 0 || i < 2 || !tokens.Is(i - 1, "-") || !tokens.Is(i + 1, ".") ||
      tokens.IsNumber(i + 2) ||
      !HasSuffix(tokens.View(i - 2), {"abellen", "listen", "Gruppen", "Vorjahres", "WM", "EM", "Liga"}))
    return std::nullopt;
  const bool ends = tokens.IsLast(i + 1) || StartsSentences(tokens.View(tokens.Skip(i + 2)));
  return Phrase{ends ? i + 1 : i + 2,
                OrdinalWords(*place, EndingAt(tokens, i - 2, AgreementOf(Gender::Masculine)))};
}

// "1.-Klasse-Ticket", "2.-Liga-Spiel".
Found OrdinalOfCompoundAt(const Tokens& tokens, std::size_t i) {
  const auto value = DigitsAt(tokens, i, 2);
  if (!value || *value == 0 || !tokens.FreeBefore(i) || !tokens.Is(i + 1, ".") || !tokens.Is(i + 2, "-") ||
      !tokens.IsCapital(i + 3) || !tokens.Is(i + 4, "-") || !tokens.IsCapital(i + 5))
    return std::nullopt;
  const Agreement first = AgreementOf(NounOf(tokens.View(i + 3)));
  const auto ending =
      EndingAt(tokens, 0, first.known ? first : AgreementOf(Gender::Neuter));  // "1.-OG-Wohnung"
  return Phrase{i + 2, WithUpperStart(OrdinalWords(*value, ending))};
}

}  // namespace

Found OrdinalAt(const Tokens& tokens, std::size_t i) {
  if (auto compound = OrdinalOfCompoundAt(tokens, i)) return compound;
  if (auto item = ItemAt(tokens, i)) return item;
  if (auto placed = PlacedAt(tokens, i)) return placed;
  if (auto listed = PlaceInListAt(tokens, i)) return listed;
  if (auto superlative = SuperlativeAt(tokens, i)) return superlative;
  if (auto minute = MatchMinuteAt(tokens, i)) return minute;
  if (!tokens.IsNumber(i, 1, 4) || !tokens.Is(i + 1, ".") || tokens.IsNumber(i + 2)) return std::nullopt;
  const PointMeaning meaning = JudgePoint(tokens, i);
  if (meaning == PointMeaning::Sentence || meaning == PointMeaning::List) return std::nullopt;
  const std::uint64_t value = *DigitsAt(tokens, i, 4);
  const bool atEnd = meaning == PointMeaning::OrdinalAtEnd;
  const std::size_t noun = atEnd ? Tokens::kNone : NounOfOrdinal(tokens, i + 2);
  const bool ofMonth =
      !atEnd && IsOneOf(tokens.View(tokens.Skip(i + 2)), {"d", "ds", "dieses"});  // "15. d. M."
  const bool row = noun == Tokens::kNone && GoesOnWithRow(tokens, i, value);
  const Agreement agreement = ofMonth
                                  ? AgreementOf(Gender::Masculine)
                                  : AgreementAt(tokens, row ? NounOfEarlierInRow(tokens, i, value) : noun);
  std::string words = OrdinalWords(value, EndingAt(tokens, i, agreement));
  if (noun == Tokens::kNone && !HasDeterminer(tokens, i)) {
    if (tokens.Is(i + 2, ",") && StandsBehindWeekday(tokens, i)) {
      const std::string article(ArticleBehindWeekday(tokens, i));  // "v. Mo., 5., bis Fr., 9. Mai"
      words = article + OrdinalWords(value, article.empty() ? "er" : "en");
    } else if (IsRank(tokens, i)) {
      words = RankWords(tokens, i, value);
    } else if (CountsFromSide(tokens, tokens.Skip(i + 2))) {
      words = WithUpperStart(OrdinalWords(value, "er"));
    }
  }
  if (atEnd) return Phrase{i + 1, words};
  if (tokens.IsWord(i + 2)) words += ' ';
  // "5.–7. Klasse", "2./3. Stock".
  const bool joined = JoinedOrdinalBehind(tokens, tokens.Skip(i + 2)) != Tokens::kNone;
  const std::size_t sign = tokens.Skip(i + 2);
  if (joined && tokens.IsDashAt(sign)) return Phrase{tokens.Skip(sign + 1), words + " bis "};
  if (joined && tokens.Is(sign, "/")) return Phrase{tokens.Skip(sign + 1), words + " und "};
  return Phrase{i + 2, words};
}

}  // namespace lorelin
