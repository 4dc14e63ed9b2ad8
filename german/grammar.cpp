#include "german/grammar.h"

#include <array>

#include "german/clauses.h"
#include "german/labels.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

constexpr int kWordsBack = 10;
constexpr int kWordsAhead = 4;

enum class Kind { None, Definite, Indefinite };

// What governs a word: a determiner, or only a preposition.
struct Governor {
  Kind kind = Kind::None;
  std::string word;                   // in small letters
  std::optional<Case> byPreposition;  // of the preposition before
};

constexpr std::string_view kEnWords[] = {"dem",  "den", "des",    "am",      "im",    "vom", "zum",
                                         "beim", "zur", "unterm", "hinterm", "überm", "vorm"};
constexpr std::string_view kDasWords[] = {"das", "ins", "ans", "aufs", "fürs", "durchs", "übers", "ums"};
constexpr std::string_view kDerStems[] = {"dies", "jed", "jen", "welch", "manch", "solch", "all"};
constexpr std::string_view kEinStems[] = {"ein", "kein",  "mein", "dein", "sein",
                                          "ihr", "unser", "euer", "eur",  "unsr"};

template <std::size_t N>
bool Contains(const std::string_view (&words)[N], std::string_view word) {
  for (const auto one : words) {
    if (one == word) return true;
  }
  return false;
}

// "er" of "dieser", when the stem is one of these.
template <std::size_t N>
std::optional<std::string_view> EndingBehind(const std::string_view (&stems)[N], std::string_view word) {
  for (const auto stem : stems) {
    if (!word.starts_with(stem)) continue;
    const auto rest = word.substr(stem.size());
    if (IsOneOf(rest, {"", "e", "en", "em", "er", "es"})) return rest;
  }
  return std::nullopt;
}

Kind KindOfDeterminer(std::string_view word) {
  if (word == "der" || word == "die" || Contains(kEnWords, word) || Contains(kDasWords, word))
    return Kind::Definite;
  if (const auto ending = EndingBehind(kDerStems, word); ending && !ending->empty()) return Kind::Definite;
  return EndingBehind(kEinStems, word) ? Kind::Indefinite : Kind::None;
}

bool LooksLikeAdjective(std::string_view word) {
  return HasSuffix(word, {"e", "en", "er", "es", "em"}) || IsDegreeWord(word);
}

// Steps over "3." of "am 3. und 4." and what joins them.
std::size_t SkipJoinedOrdinal(const Tokens& tokens, std::size_t i) {
  std::size_t at = i;
  if (IsOneOf(tokens.View(at),
              {"und", "oder", "bis", "sowie", "bzw", "beziehungsweise", ",", "–", "-", "/", "u"})) {
    at = tokens.Before(at);
    if (at == Tokens::kNone) return i;
  }
  if (tokens.Is(at, ".") && at > 0 && tokens.IsNumber(at - 1)) return tokens.Before(at - 1);
  if (tokens.IsWord(at) && IsOrdinalWord(tokens.View(at))) return tokens.Before(at);
  return i;
}

std::string OneForms(const Tokens& tokens, std::size_t one, std::size_t adjective) {
  const std::size_t noun = NounBehind(tokens, adjective);
  if (noun == Tokens::kNone) return "ein";
  const auto unit = UnitAt(tokens, noun);  // "1 geh. TL"
  const Agreement agreement = unit ? AgreementOf(unit->gender) : AgreementOf(NounOf(tokens.View(noun)));
  return OneBefore(tokens, one, noun + 1, agreement);
}

// Prepositions that are cut short, and what they mean before a number or noun.
std::string_view WholeWord(std::string_view word) {
  struct Short {
    std::string_view written;
    std::string_view spoken;
  };
  constexpr Short kShort[] = {{"v", "vom"},           {"f", "für"},
                              {"m", "mit"},           {"n", "nach"},
                              {"b", "bei"},           {"z", "zum"},
                              {"zzgl", "zuzüglich"},  {"inkl", "inklusive"},
                              {"exkl", "exklusive"},  {"einschl", "einschließlich"},
                              {"abzgl", "abzüglich"}, {"zw", "zwischen"},
                              {"lt", "laut"},         {"jd", "jeden"},
                              {"unt", "unter"},       {"a", "an"},
                              {"gem", "gemäß"},       {"innerh", "innerhalb"},
                              {"wg", "wegen"},        {"i", "in"},
                              {"ggü", "gegenüber"}};
  for (const Short& one : kShort) {
    if (one.written == word) return one.spoken;
  }
  return word;
}

// "der stellv. Vors.": an adjective that is cut between the article and its noun.
bool IsCutAdjective(std::string_view word) {
  return IsOneOf(
      word, {"stellv", "stv",  "ehem",  "sog",     "gen",     "ges",   "lfd",     "dt",     "städt", "staatl",
             "ev",     "kath", "allg",  "gesetzl", "öffentl", "jährl", "mtl",     "monatl", "tägl",  "max",
             "min",    "evtl", "ärztl", "techn",   "kfm",     "wiss",  "versch",  "div",    "gr",    "kl",
             "amtl",   "örtl", "jew",   "entspr",  "zust",    "spät",  "spätest", "franz",  "frz",   "russ",
             "ital",   "brit", "engl",  "poln",    "span",    "türk",  "österr"});
}

// Over the point of "ca." to the word itself.
std::size_t OverPoint(const Tokens& tokens, std::size_t at) {
  if (at == Tokens::kNone || at == 0 || !tokens.Is(at, ".") || !tokens.IsWord(at - 1)) return at;
  const auto word = tokens.View(at - 1);
  return WholeWord(word) != word || IsDegreeWord(word) || IsOneOf(word, {"u", "o", "d", "bzw"}) ||
                 IsCutAdjective(word)
             ? at - 1
             : at;
}

Governor GovernorOf(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"„", "»", "‚"})) at = tokens.Before(at);
  at = OverPoint(tokens, at);
  for (int step = 0; step < kWordsBack && at != Tokens::kNone; ++step) {
    if (const std::size_t joined = SkipJoinedOrdinal(tokens, at); joined != at) {
      at = OverPoint(tokens, joined);
      continue;
    }
    // "1 gestrichener Löffel".
    if (tokens.Is(at, "1") && tokens.FreeBefore(at))
      return {Kind::Indefinite, OneForms(tokens, at, i), std::nullopt};
    if (!tokens.IsWord(at)) return {};
    const std::string_view written = tokens.View(at);
    const std::string word =
        tokens.Is(at + 1, ".") ? std::string(WholeWord(written)) : WithLowerStart(written);
    // A capital inside a sentence is that of a noun or name: "Mein" of a title aside.
    if (IsUpperWord(written) && !tokens.OpensClause(at) && !OpensItem(tokens, at) &&
        !IsOneOf(written, {"Ihr", "Ihre", "Ihrem", "Ihren", "Ihrer", "Ihres"}))
      return {};
    if (word == "d" && tokens.Is(at + 1, ".")) {
      const std::size_t before = OverPoint(tokens, tokens.Before(at));
      const auto asked =
          before == Tokens::kNone ? std::nullopt : CaseOfPreposition(WholeWord(tokens.View(before)));
      return {Kind::Definite, word, asked};
    }
    if (const Kind kind = KindOfDeterminer(word); kind != Kind::None) {
      const auto before = tokens.WordBefore(at);
      return {kind, word, CaseOfPreposition(before)};
    }
    if (const auto asked = CaseOfPreposition(word)) return {Kind::None, word, asked};
    const bool cut = tokens.Is(at + 1, ".") && IsCutAdjective(word);
    if (IsUpperWord(written) || !(cut || LooksLikeAdjective(word)) || IsVerb(word)) return {};
    at = OverPoint(tokens, tokens.Before(at));
  }
  return {};
}

std::string_view StrongEnding(Case asked, const Agreement& noun) {
  if (noun.plural) {
    constexpr std::array<std::string_view, 4> kPlural{"e", "er", "en", "e"};
    return kPlural[static_cast<std::size_t>(asked)];
  }
  constexpr std::array<std::array<std::string_view, 4>, 3> kSingular{
      std::array<std::string_view, 4>{"er", "en", "em", "en"},
      {"e", "er", "er", "e"},
      {"es", "en", "em", "es"}};
  return kSingular[static_cast<std::size_t>(noun.gender)][static_cast<std::size_t>(asked)];
}

std::string_view BehindDer(std::string_view ending, const Governor& governor, const Agreement& noun) {
  if (ending == "er") {
    // "der 2. Silber": what "der" cannot belong to is another noun.
    const bool another = noun.gender == Gender::Neuter && !noun.mayBePlural;
    if (noun.known) return !noun.plural && (noun.gender == Gender::Masculine || another) ? "e" : "en";
    return governor.byPreposition ? "en" : "e";
  }
  // "die sog. Experten": with this article it is no man.
  const bool many = noun.plural || (noun.mayBePlural && noun.gender != Gender::Feminine);
  if (ending == "e") return noun.known && many ? "en" : "e";
  if (ending == "es") return noun.genitive ? "en" : "e";
  return "en";
}

std::string_view BehindEin(std::string_view ending, const Agreement& noun) {
  if (ending.empty()) return noun.known && noun.gender == Gender::Neuter ? "es" : "er";
  if (ending == "e") return noun.known && noun.plural ? "en" : "e";
  return "en";
}

// The ending of the determiner itself: "er" of "der" and "jeder".
std::string_view EndingOfDeterminer(std::string_view word) {
  if (word == "der") return "er";
  if (word == "die") return "e";
  if (Contains(kDasWords, word)) return "es";
  if (Contains(kEnWords, word)) return "en";
  if (const auto ending = EndingBehind(kDerStems, word); ending && !ending->empty()) return *ending;
  return *EndingBehind(kEinStems, word);
}

constexpr std::string_view kAccusativePrepositions[] = {"für", "durch", "gegen", "ohne", "um",
                                                        "bis", "pro",   "per",   "à",    "via"};
constexpr std::string_view kDativePrepositions[] = {"aus",
                                                    "bei",
                                                    "mit",
                                                    "nach",
                                                    "seit",
                                                    "von",
                                                    "zu",
                                                    "ab",
                                                    "außer",
                                                    "gegenüber",
                                                    "binnen",
                                                    "gemäß",
                                                    "samt",
                                                    "nebst",
                                                    "in",
                                                    "an",
                                                    "auf",
                                                    "vor",
                                                    "hinter",
                                                    "neben",
                                                    "zwischen",
                                                    "unter",
                                                    "laut",
                                                    "entsprechend",
                                                    "dank",
                                                    "entgegen",
                                                    "mitsamt",
                                                    "zuzüglich",
                                                    "inklusive",
                                                    "exklusive",
                                                    "einschließlich",
                                                    "abzüglich"};
constexpr std::string_view kGenitivePrepositions[] = {
    "wegen",      "während",  "trotz",        "innerhalb", "außerhalb", "statt",    "anstatt",
    "mittels",    "aufgrund", "angesichts",   "mithilfe",  "zugunsten", "zulasten", "inmitten",
    "unweit",     "abseits",  "jenseits",     "anhand",    "zwecks",    "oberhalb", "unterhalb",
    "anlässlich", "infolge",  "hinsichtlich", "bezüglich"};

// "auf 1 Liter", "über 1 Meter": not the place but the measure.
bool MeasuresWith(std::string_view preposition) {
  return preposition == "auf" || preposition == "über";
}

std::size_t PrepositionBefore(const Tokens& tokens, std::size_t i) {
  // "bei -1 Grad".
  const bool sign = i > 1 && IsOneOf(tokens.View(i - 1), {"-", "−", "–", "+"}) && tokens.IsBlank(i - 2);
  std::size_t at = OverPoint(tokens, tokens.Before(sign ? i - 1 : i));
  for (int step = 0; step < 4 && at != Tokens::kNone && tokens.IsWord(at); ++step) {
    const std::string word = WithLowerStart(tokens.View(at));
    // "m" without its point are metres.
    const std::string whole(word.size() > 1 || tokens.Is(at + 1, ".") ? WholeWord(word) : word);
    if (CaseOfPreposition(whole) || whole == "vom") return at;
    const bool above = word == "über" && CaseOfPreposition(tokens.WordBefore(at));  // "nach über 1 Stunde"
    if (!IsDegreeWord(word) && !above) return Tokens::kNone;
    at = OverPoint(tokens, tokens.Before(at));
  }
  return Tokens::kNone;
}

}  // namespace

std::optional<Case> CaseOfPreposition(std::string_view written) {
  const std::string word = WithLowerStart(written);
  if (Contains(kAccusativePrepositions, word)) return Case::Accusative;
  if (Contains(kDativePrepositions, word)) return Case::Dative;
  if (Contains(kGenitivePrepositions, word)) return Case::Genitive;
  return std::nullopt;
}

bool IsDeterminer(std::string_view word) {
  return KindOfDeterminer(WithLowerStart(word)) != Kind::None;
}

Agreement AgreementOf(const Noun& noun) {
  Agreement result;
  result.known = noun.known || noun.guessed;
  result.gender = noun.gender;
  result.plural = noun.plural && !noun.singular;
  result.mayBePlural = noun.plural;
  result.genitive = noun.genitive;
  return result;
}

Agreement AgreementOf(Gender gender) {
  return {gender, false, false, true};
}

std::size_t NounBehind(const Tokens& tokens, std::size_t i) {
  if (IsOneOf(tokens.View(i), {"„", "»", "\"", "‚"})) ++i;  // "der sog. „Blitzer“"
  for (int step = 0; step < kWordsAhead; ++step) {
    if (tokens.IsCapital(i)) return i;
    const auto word = tokens.View(i);
    // "1 gestr. Esslöffel".
    const bool shortened = tokens.IsWord(i) && tokens.Is(i + 1, ".") && tokens.IsBlank(i + 2);
    if (!tokens.IsWord(i) || !(shortened || (LooksLikeAdjective(word) && tokens.IsBlank(i + 1))))
      return Tokens::kNone;
    if (KindOfDeterminer(word) != Kind::None || CaseOfPreposition(word) || IsVerb(word)) return Tokens::kNone;
    const bool small = word.size() == 1 && word != "u";  // "n. d. Mahlzeiten", but "überarb. u. erw. Aufl."
    if (shortened && (small || CaseOfPreposition(WholeWord(word)))) return Tokens::kNone;
    i += shortened ? 3 : 2;
  }
  return Tokens::kNone;
}

bool HasDeterminer(const Tokens& tokens, std::size_t i) {
  return GovernorOf(tokens, i).kind != Kind::None;
}

bool HasPreposition(const Tokens& tokens, std::size_t i) {
  return GovernorOf(tokens, i).byPreposition.has_value();
}

namespace {

// "mit großem Garten, kleinem Teich und separatem Eingang": the preposition holds for all of them.
std::optional<Case> CaseOfEarlierPreposition(const Tokens& tokens, std::size_t i) {
  std::size_t at = OverPoint(tokens, tokens.Before(i));
  const bool ordinal = tokens.IsNumber(i, 1, 2) && tokens.Is(i + 1, ".") && !tokens.Is(at, ",");
  if (at == Tokens::kNone || !(tokens.IsWord(i) || ordinal) ||
      !IsOneOf(tokens.View(at), {",", "und", "oder", "sowie", "u", "o"}))
    return std::nullopt;
  for (int step = 0; step < kWordsBack && at != Tokens::kNone; ++step) {
    const auto word = tokens.View(at);
    if (IsOneOf(word, {"à", "je", "pro", "per", "bis"})) return std::nullopt;  // they hold for a price alone
    if (IsOneOf(word, {"über", "unter"}) && tokens.IsNumber(tokens.Skip(at + 1))) return std::nullopt;
    if (tokens.IsWord(at) && CaseOfPreposition(word)) return CaseOfPreposition(word);
    if (IsOneOf(word, {":", ";", "("}) || IsVerb(word) || IsLinkingVerb(word)) return std::nullopt;
    at = tokens.Before(at);
  }
  return std::nullopt;
}

// "f. d. 1. u. 2. Kind", "Wahl d. 2. Vorsitzenden": the article that is meant by "d.".
std::string_view EndingOfCutArticle(const Tokens& tokens, std::size_t i, const Governor& governor,
                                    const Agreement& noun) {
  if (!noun.known) return "en";
  if (governor.byPreposition) return StrongEnding(*governor.byPreposition, noun);
  for (std::size_t at = tokens.Before(i); at != Tokens::kNone; at = tokens.Before(at)) {
    if (!tokens.Is(at, "d")) continue;
    std::size_t before = tokens.Before(at);
    if (noun.genitive && !noun.plural) return "en";
    if (before != Tokens::kNone && tokens.Is(before, ".")) --before;     // "Frakt. d. 5."
    if (before != Tokens::kNone && tokens.Is(before, ",")) return "em";  // "am Fr., d. 8. März"
    const bool belongs = before != Tokens::kNone && tokens.IsCapital(before);
    return belongs ? StrongEnding(Case::Genitive, noun) : StrongEnding(Case::Nominative, noun);
  }
  return "en";
}

// "die 3 gr. Zimmer", "aus bis zu 20 versch. Arten": what is counted is many.
std::optional<std::string_view> EndingBehindNumber(const Tokens& tokens, std::size_t i) {
  const std::size_t number = tokens.Before(i);
  if (!tokens.IsWord(i) || number == Tokens::kNone || !tokens.IsNumber(number, 1, 3) ||
      tokens.Is(number, "1") || !tokens.FreeBefore(number) || LabelBefore(tokens, number))
    return std::nullopt;
  std::size_t first = number;
  if (tokens.WordBefore(number) == "zu" && IsOneOf(tokens.WordBefore(number - 2), {"bis", "Bis"}))
    first = tokens.WordIndexBefore(number - 2);
  const Governor governor = GovernorOf(tokens, first);
  if (governor.kind != Kind::None || governor.byPreposition == Case::Dative) return "en";
  return governor.byPreposition == Case::Genitive ? "er" : "e";
}

// Behind "der", "dieser", or "d." that stands for one of them.
std::string_view BehindArticle(const Tokens& tokens, std::size_t i, const Governor& governor,
                               const Agreement& noun) {
  const auto ending = governor.word == "d" ? EndingOfCutArticle(tokens, i, governor, noun)
                                           : EndingOfDeterminer(governor.word);
  return BehindDer(ending, governor, noun);
}

}  // namespace

std::string_view EndingAt(const Tokens& tokens, std::size_t i, const Agreement& noun) {
  if (const auto counted = EndingBehindNumber(tokens, i)) return *counted;
  Governor governor = GovernorOf(tokens, i);
  if (governor.kind == Kind::None && !governor.byPreposition)
    governor.byPreposition = CaseOfEarlierPreposition(tokens, i);
  if (governor.kind == Kind::Definite) return BehindArticle(tokens, i, governor, noun);
  if (governor.kind == Kind::Indefinite) return BehindEin(EndingOfDeterminer(governor.word), noun);
  Case asked = governor.byPreposition.value_or(Case::Nominative);
  if (noun.bent && governor.kind == Kind::None) {
    Agreement many = noun;
    many.plural = true;
    return StrongEnding(asked, many);
  }
  if (IsOneOf(governor.word, {"auf", "in", "an"}) && MovesSomething(tokens, i)) asked = Case::Accusative;
  const bool account = governor.word == "auf" && NamesAccountBehind(tokens, i);
  if ((governor.word == "an" || account) && SendsSomething(tokens, i)) asked = Case::Accusative;
  if (!governor.byPreposition && noun.genitive) asked = Case::Genitive;
  const bool predicate = tokens.WordBefore(i) == "als";  // "lebt er als fr. Autor"
  if (!governor.byPreposition && !predicate && VerbAsksForObject(tokens, i, false)) asked = Case::Accusative;
  return StrongEnding(asked, noun);
}

namespace {

// "in 1 große Form": the adjective tells whether a place or a direction is meant.
bool AdjectiveSaysDirection(const Tokens& tokens, std::size_t first) {
  const auto adjective = tokens.View(first + 2);
  if (!tokens.IsWord(first + 2) || IsUpperWord(adjective)) return false;
  return HasSuffix(adjective, {"e", "es"});
}

bool IsSpanOfTime(const Tokens& tokens, std::size_t i) {
  const auto isSpan = [](std::string_view word) {
    return IsOneOf(word, {"Sekunde", "Minute", "Stunde", "Tag", "Nacht", "Woche", "Monat", "Quartal", "Jahr",
                          "Jahrzehnt", "Jahrhundert"});
  };
  const auto unit = UnitAt(tokens, i);
  return isSpan(unit ? std::string_view(unit->singular) : tokens.View(i));
}

Case CaseBehind(const Tokens& tokens, std::size_t preposition, std::size_t first) {
  const std::string small = WithLowerStart(tokens.View(preposition));
  const std::string word(WholeWord(small));
  if (word == "vom") return Case::Dative;
  if (small == "b" && IsOneOf(tokens.View(tokens.Skip(first + 1)), {"J", "Jahre", "Jahren"}))
    return Case::Accusative;  // "Kinder b. 6 J.": "bis"
  // "auf 1 Liter", "über 1 Meter", "bis auf 1 Schüler"; but "auf 1 Bein".
  const bool measured = word == "über" || (word == "auf" && IsPriceAt(tokens, first)) ||
                        IsVessel(tokens.View(tokens.Skip(first + 1))) ||
                        UnitAt(tokens, tokens.Skip(first + 1)) ||
                        IsOneOf(tokens.View(tokens.Skip(first + 1)),
                                {"Jahr", "Monat", "Woche", "Tag", "Stunde", "Minute", "Sekunde", "Quartal",
                                 "Prozentpunkt", "Stück", "Punkt", "Million", "Milliarde"}) ||
                        WithLowerStart(tokens.WordBefore(preposition)) == "bis";
  if (MeasuresWith(word) && (measured || (word == "auf" && FallsTo(tokens, first)))) return Case::Accusative;
  // "in 1 Stunde liefern" is no place where something goes.
  const bool span = word == "in" && IsSpanOfTime(tokens, tokens.Skip(first + 1));
  if ((word == "in" || word == "auf" || word == "an") && !span && MovesSomething(tokens, first))
    return Case::Accusative;
  if (word == "an" && GoesToSomebody(tokens, first)) return Case::Accusative;
  if (word == "unter" && RisesOrFalls(tokens, first)) return Case::Accusative;
  const bool place = IsOneOf(word, {"in", "an", "unter", "vor", "hinter", "neben", "zwischen"});
  return place && AdjectiveSaysDirection(tokens, first) ? Case::Accusative : *CaseOfPreposition(word);
}

// "In einer Pfanne Öl erhitzen, 1 Zwiebel …": the infinitive, which is no adjective of a noun behind it.
bool EndsClause(const Tokens& tokens, std::size_t at) {
  return IsInfinitive(tokens, at) && tokens.Is(at + 1, ",");
}

// "mit 1 Zweig und 1 Scheibe": the preposition of the first holds for the second.
std::optional<Case> CaseOfList(const Tokens& tokens, std::size_t first) {
  std::size_t at = OverPoint(tokens, tokens.Before(first));
  const std::size_t right = at;
  while (at != Tokens::kNone && IsOneOf(tokens.View(at), {"nur", "noch", "genau", "mindestens", "höchstens"}))
    at = OverPoint(tokens, tokens.Before(at));  // "aus 3 Männern und nur 1 Frau"
  if (at != right && at != Tokens::kNone && tokens.Is(at, ",")) return std::nullopt;
  if (at == Tokens::kNone ||
      !IsOneOf(tokens.View(at), {"und", "oder", ",", "bzw", "sowie", "plus", "u", "o", "+", "&"}))
    return std::nullopt;
  // "… mit Paste aufkochen und 1 Limette auspressen": the infinitive has ended what stands before.
  const std::size_t infinitive = tokens.Before(at);
  if (IsOneOf(tokens.View(at), {"und", "u"}) && infinitive != Tokens::kNone &&
      IsInfinitive(tokens, infinitive))
    return std::nullopt;
  const bool list = tokens.Is(at, ",");
  bool bare = true;       // "Mit Salz, Pfeffer und 1 Prise Zucker": nothing but nouns so far
  bool counting = !list;  // nor but numbers
  for (int step = 0; step < 2 * kWordsBack && at != Tokens::kNone; ++step) {
    // "mit 1 Koffer (23 kg) und 1 Tasche", but "1 Gerät (inkl. 2 Batterien), 1 Anleitung".
    if (tokens.Is(at, ")")) at = list ? Tokens::kNone : BeforeBracket(tokens, at);
    if (at == Tokens::kNone) return std::nullopt;
    if (EndsClause(tokens, at)) return std::nullopt;
    const std::size_t before = tokens.Before(at);
    // "Saft von 1 Zitrone, 1 Prise Salz": only what stands before the comma is of the juice.
    if (list && IsOneOf(tokens.View(at), {"von", "v"}) && before != Tokens::kNone && tokens.IsCapital(before))
      return std::nullopt;
    // "1 Topf mit Deckel und 1 Löffel": so has what is counted before.
    if (tokens.IsWord(at) && CaseOfPreposition(tokens.View(at)) && before != Tokens::kNone &&
        tokens.IsCapital(before) && before > 1 && tokens.IsNumber(tokens.Before(before))) {
      const std::size_t held = PrepositionBefore(tokens, tokens.Before(before));
      return list || held == Tokens::kNone ? std::nullopt : std::optional(CaseBehind(tokens, held, first));
    }
    // "kommt mit Android 14, 8 GB Speicher und 1 Kabel", but "ein Haus mit Hof, 3 Zimmer und 1 Bad".
    const bool behindVerb = before != Tokens::kNone && tokens.IsWord(before) && !tokens.IsCapital(before);
    if ((bare || (counting && behindVerb)) && tokens.IsWord(at) && CaseOfPreposition(tokens.View(at)))
      return CaseBehind(tokens, at, first);
    const bool noun =
        tokens.IsCapital(at) || IsOneOf(tokens.View(at), {",", "und", "oder", "u", ".", "sowie"});
    bare = bare && noun;
    counting = counting && (noun || tokens.IsNumber(at));
    // "Mit dem Saft 1 Limette und 1 EL Honig".
    if (before != Tokens::kNone && tokens.IsNumber(at) && IsPartOfThing(tokens.View(before))) {
      std::size_t preposition = tokens.WordIndexBefore(before);
      if (preposition != Tokens::kNone && IsDeterminer(tokens.View(preposition)))
        preposition = tokens.WordIndexBefore(preposition);
      return preposition == Tokens::kNone ? std::nullopt : CaseOfPreposition(tokens.View(preposition));
    }
    const bool counted = tokens.IsNumber(at) || WithLowerStart(tokens.View(at)).starts_with("ein");
    const std::size_t word = OverPoint(tokens, before);  // "v. 3 u. 5 J."
    if (counted && word != Tokens::kNone && tokens.IsWord(word)) {
      const std::size_t found = PrepositionBefore(tokens, at);
      const bool part = found != Tokens::kNone && list && tokens.Is(found, "von") &&
                        tokens.WordIndexBefore(found) != Tokens::kNone &&
                        tokens.IsCapital(tokens.WordIndexBefore(found));
      // "ab 39 € und 1 Tasse gratis": "ab" is said of the price.
      const bool price = found != Tokens::kNone && tokens.Is(found, "ab") && IsPriceAt(tokens, at);
      if (part || price) return std::nullopt;
      if (found != Tokens::kNone) return CaseBehind(tokens, found, at);
    }
    if (IsOneOf(tokens.View(at), {":", ";", "("}) || IsVerb(tokens.View(at)) ||
        IsLinkingVerb(tokens.View(at)))
      return std::nullopt;
    at = before;
  }
  return std::nullopt;
}

// "ist für 2 bis 4 Personen, 1 Runde dauert 20 Minuten": the verb behind makes a subject of it.
bool OpensMainClause(const Tokens& tokens, std::size_t first, std::size_t behind) {
  const std::size_t before = tokens.Before(first);
  const std::size_t verb = tokens.Skip(behind);
  if (before == Tokens::kNone || !tokens.Is(before, ",") || !tokens.IsWord(verb)) return false;
  const auto word = tokens.View(verb);
  const auto next = tokens.View(tokens.Skip(verb + 1));
  return (IsFiniteVerb(word) || IsLinkingVerb(word)) && !IsPronoun(word) && !IsPronoun(next) &&
         !HasSuffix(word, {"en", "bitte"}) && !tokens.IsLast(tokens.Skip(verb + 1));
}

bool IsTime(std::string_view word) {
  return IsOneOf(word, {"Tag", "Monat"});
}

}  // namespace

Case CaseAt(const Tokens& tokens, std::size_t first, std::size_t behind) {
  if (IsBentExtent(tokens.View(tokens.Skip(behind)))) return Case::Accusative;
  if (const std::size_t at = PrepositionBefore(tokens, first); at != Tokens::kNone)
    return CaseBehind(tokens, at, first);
  if (SpeaksAboutOne(tokens, first)) return Case::Accusative;
  if (IsPartOfThing(tokens.WordBefore(first)) || AsksForGenitive(tokens.WordBefore(first)) ||
      AsksForGenitive(tokens.View(tokens.Skip(behind))))
    return Case::Genitive;
  if (OpensMainClause(tokens, first, behind) || RepeatsPrice(tokens, first, behind) ||
      IsWhatIsLeft(tokens, first, behind))
    return Case::Nominative;
  if (IsOneOf(tokens.View(tokens.Skip(behind)), {"lang", "lange"})) return Case::Accusative;
  if (const auto asked = CaseOfList(tokens, first)) return *asked;
  if (IsOneOf(tokens.WordBefore(first), {"noch", "schon"}) && IsTime(tokens.View(behind - 1)))
    return Case::Accusative;
  if (IsExtent(tokens.View(tokens.Skip(behind))) || TellsHowFar(tokens, first, behind))
    return Case::Accusative;
  if (VerbAsksForObject(tokens, first, true) || InfinitiveEnds(tokens, first, behind))
    return Case::Accusative;
  return Case::Nominative;
}

std::string OneBefore(const Tokens& tokens, std::size_t first, std::size_t behind, const Agreement& noun) {
  const Governor governor = GovernorOf(tokens, first);
  // "Morgen bekommt jeder 1 Apfel": no article either.
  const bool everybody = HasPrefix(tokens.WordBefore(first), {"jede", "alle", "keine"}) &&
                         !CaseOfPreposition(tokens.WordBefore(tokens.WordIndexBefore(first)));
  const bool awaited = RelativeAwaitsSubject(tokens, first);
  const bool relative = !awaited && (OpensRelativeClause(tokens, first) || everybody);
  if (governor.kind == Kind::Definite && !relative && !awaited)
    return "ein" + std::string(BehindArticle(tokens, first, governor, noun));
  constexpr std::array<std::array<std::string_view, 4>, 3> kForms{
      std::array<std::string_view, 4>{"ein", "eines", "einem", "einen"},
      {"eine", "einer", "einer", "eine"},
      {"ein", "eines", "einem", "ein"}};
  Case asked = noun.genitive ? Case::Genitive : (relative ? Case::Accusative : CaseAt(tokens, first, behind));
  if (awaited) asked = Case::Nominative;
  // "ggf. 1 weiteren Hub": no nominative has such an adjective.
  const bool described = tokens.IsNumber(first) && first + 3 < behind && tokens.IsWord(first + 2) &&
                         tokens.IsBlank(first + 3) && !tokens.IsCapital(first + 2);
  // "rief 1 Nachbar die Polizei"
  if (asked == Case::Accusative && behind > 0 && IsWeakNominative(tokens.View(behind - 1)) &&
      PrepositionBefore(tokens, first) == Tokens::kNone)
    asked = Case::Nominative;
  if (asked == Case::Nominative && described && tokens.View(first + 2).ends_with("en"))
    asked = noun.gender == Gender::Masculine ? Case::Accusative : Case::Dative;
  return std::string(kForms[static_cast<std::size_t>(noun.gender)][static_cast<std::size_t>(asked)]);
}

std::string OneHalfBefore(const Tokens& tokens, std::size_t first, std::size_t behind,
                          const Agreement& noun) {
  // "je angefangene 1/2 Stunde": the adjective stands where the article would.
  const std::size_t point = tokens.Before(first);
  if (point != Tokens::kNone && point > 0 && tokens.Is(point - 1, "angef")) return "halbe";
  const auto before = tokens.WordBefore(first);
  if (HasPrefix(before, {"angefangene", "weitere", "folgende", "volle"}))
    return "halb" + std::string(before.substr(before.find_last_of('e')));
  const std::string one = OneBefore(tokens, first, behind, noun);
  if (one == "ein") return noun.gender == Gender::Neuter ? "ein halbes" : "ein halber";
  return one + (one == "eine" ? " halbe" : " halben");
}

}  // namespace lorelin
