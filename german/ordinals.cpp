#include "german/ordinals.h"

#include "german/abbreviations.h"
#include "german/cutWords.h"
#include "german/dates.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

constexpr std::uint64_t kYears = 1000;  // from here on a number is rather a year than an ordinal

bool JoinsOrdinals(std::string_view word) {
  return IsOneOf(word, {"und", "oder", "bis", "sowie", "u", "bzw", "beziehungsweise", ",", "/", "–", "-"});
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
  if (word == "der") {
    const std::size_t before = tokens.WordIndexBefore(i);
    return before != Tokens::kNone && !CaseOfPreposition(tokens.WordBefore(before));
  }
  return DeterminesOne(tokens, i);
}

// "Die", or "Warten" of "Warten Sie".
bool StartsSentenceAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  return StartsSentences(word) || (word.ends_with('n') && tokens.Is(i + 2, "Sie"));
}

// "Er wurde 3.", "als 2. von 5 Kindern": the token of the verb, over "nur" and the like.
std::size_t VerbOfRank(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.WordIndexBefore(i);
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"nur", "sogar", "nicht", "leider", "immerhin"}))
    at = tokens.WordIndexBefore(at);
  if (at == Tokens::kNone) return at;
  return IsOneOf(tokens.View(at), {"wurde", "wird", "Wurde", "werden", "als", "Als", "wurdest"})
             ? at
             : Tokens::kNone;
}

bool BecomesOne(const Tokens& tokens, std::size_t i) {
  constexpr std::uint64_t kLastRank = 15;  // more is rather an age
  return DigitsAt(tokens, i, 4).value_or(kLastRank + 1) <= kLastRank &&
         VerbOfRank(tokens, i) != Tokens::kNone;
}

bool MeansWoman(std::string_view word) {
  return IsOneOf(WithLowerStart(word), {"sie", "frau", "die", "schwester", "mannschaft"});
}

// "Dritter", "Dritte", "drittes" of the children.
std::string RankWords(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  const std::size_t verb = VerbOfRank(tokens, i);
  const bool woman = MeansWoman(tokens.WordBefore(verb)) || tokens.Is(0, "Sie") ||
                     (tokens.WordIndexBefore(verb) != Tokens::kNone &&
                      MeansWoman(tokens.WordBefore(tokens.WordIndexBefore(verb))));
  const bool child = HasSuffix(tokens.View(i + 7), {"Kindern", "Geschwistern"});
  return WithUpperStart(OrdinalWords(value, child ? "es" : (woman ? "e" : "er")));
}

// Cooking and other instructions: the line ends with what is to be done.
bool LineEndsWithInfinitive(const Tokens& tokens, std::size_t i) {
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

PointMeaning AtEnd(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  if (LabelBefore(tokens, i) || value >= kYears) return PointMeaning::Sentence;
  const bool one = DeterminesOneAlone(tokens, i) || BecomesOne(tokens, i) || StandsBehindOrdinal(tokens, i);
  return one ? PointMeaning::OrdinalAtEnd : PointMeaning::Sentence;
}

PointMeaning BeforeSmallWord(const Tokens& tokens, std::size_t i, std::size_t next) {
  if (LabelBefore(tokens, i)) return PointMeaning::Sentence;
  if (DeterminesOne(tokens, i) || StandsBehindOrdinal(tokens, i) || BecomesOne(tokens, i))
    return PointMeaning::Ordinal;
  if (tokens.OpensLine(i) && LineEndsWithInfinitive(tokens, next)) return PointMeaning::List;
  if (JoinedOrdinalBehind(tokens, next) != Tokens::kNone) return PointMeaning::Ordinal;
  const std::size_t noun = NounBehind(tokens, next);
  if (noun == Tokens::kNone) return PointMeaning::Sentence;
  return HasPreposition(tokens, i) || IsNumberedHead(tokens.View(noun)) ? PointMeaning::Ordinal
                                                                        : PointMeaning::Sentence;
}

// Nothing before the number says what it is: only a head tells.
PointMeaning BeforeNounAlone(const Tokens& tokens, std::size_t i, std::size_t next) {
  const bool head = IsNumberedHead(tokens.View(next));
  if (tokens.OpensLine(i) && (!head || LineEndsWithInfinitive(tokens, next))) return PointMeaning::List;
  if (head) return PointMeaning::Ordinal;
  return PointMeaning::Sentence;
}

bool CountsTime(std::string_view preposition) {
  return IsOneOf(WithLowerStart(preposition), {"um", "gegen", "bis", "über", "unter", "je", "pro", "auf",
                                               "zu", "mit", "von", "ab", "für"});
}

PointMeaning BeforeCapital(const Tokens& tokens, std::size_t i, std::size_t next, std::uint64_t value) {
  const auto word = tokens.View(next);
  if (IsMonth(word) || MonthAt(tokens, next))
    return value <= 31 ? PointMeaning::Ordinal : PointMeaning::Sentence;
  if (StartsSentenceAt(tokens, next)) {
    const PointMeaning meaning = AtEnd(tokens, i, value);
    return tokens.OpensLine(i) && meaning == PointMeaning::Sentence ? PointMeaning::List : meaning;
  }
  if (LabelBefore(tokens, i)) return PointMeaning::Sentence;
  const Noun noun = NounOf(word);
  const bool isNoun = noun.known || noun.guessed || IsAllCaps(word) || IsNumberedHead(word);
  if (value >= kYears && (GoesBeforeYears(tokens.WordBefore(i)) || !DeterminesOne(tokens, i)))
    return PointMeaning::Sentence;
  if (StandsBehindOrdinal(tokens, i)) return PointMeaning::Ordinal;
  if (DeterminesOne(tokens, i)) {
    // "Er kommt am 5. Peter nicht."
    const bool day = IsOneOf(tokens.WordBefore(i), {"am", "Am", "vom", "zum", "dem"});
    return day && !isNoun ? PointMeaning::OrdinalAtEnd : PointMeaning::Ordinal;
  }
  if (HasDeterminer(tokens, i) && isNoun) return PointMeaning::Ordinal;
  if (BecomesOne(tokens, i) && IsSingularNoun(tokens, next)) return PointMeaning::Ordinal;
  const auto before = tokens.WordBefore(i);
  if (CaseOfPreposition(before) && !tokens.OpensLine(i)) {
    const bool fits = IsNumberedHead(word) ||
                      (IsSingularNoun(tokens, next) && !word.ends_with("en") && !CountsTime(before));
    return fits ? PointMeaning::Ordinal : PointMeaning::Sentence;
  }
  return BeforeNounAlone(tokens, i, next);
}

// "3., überarb. Aufl.".
bool EditionFollows(const Tokens& tokens, std::size_t i) {
  const std::size_t noun = NounBehind(tokens, tokens.Skip(i));
  return noun != Tokens::kNone && IsOneOf(tokens.View(noun), {"Auflage", "Aufl", "Ausgabe", "Ausg"});
}

// "2.OG", "der 1., 2. und 3. Platz", "(am 3.)".
PointMeaning WithoutGap(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  if (value >= kYears) return PointMeaning::Sentence;
  if (tokens.IsWord(i + 2))
    return tokens.IsCapital(i + 2) && !LabelBefore(tokens, i) ? PointMeaning::Ordinal
                                                              : PointMeaning::Sentence;
  if (JoinedOrdinalBehind(tokens, i + 2) != Tokens::kNone) return PointMeaning::Ordinal;
  if (IsOneOf(tokens.View(i + 2), {",", ")", ";", ":", "?", "!", "“", "\"", "–"})) {
    const bool one = DeterminesOne(tokens, i) || StandsBehindOrdinal(tokens, i) || BecomesOne(tokens, i) ||
                     EditionFollows(tokens, i + 3);
    return one && !LabelBefore(tokens, i) ? PointMeaning::Ordinal : PointMeaning::Sentence;
  }
  return PointMeaning::Sentence;
}

}  // namespace

PointMeaning JudgePoint(const Tokens& tokens, std::size_t i) {
  const auto value = DigitsAt(tokens, i, 4);
  if (!value || *value == 0 || !tokens.FreeBefore(i)) return PointMeaning::Sentence;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {".", ",", ":", "+", "#"})) return PointMeaning::Sentence;
  const std::size_t next = tokens.Skip(i + 2);
  if (tokens.IsLast(i + 1) || tokens.Kind(next) == TokenKind::Line) return AtEnd(tokens, i, *value);
  if (next == i + 2) return WithoutGap(tokens, i, *value);
  if (tokens.View(i).front() == '0' && !MonthAt(tokens, next)) return PointMeaning::Sentence;
  if (tokens.IsCapital(next)) return BeforeCapital(tokens, i, next, *value);
  if (tokens.IsWord(next)) return BeforeSmallWord(tokens, i, next);
  if (IsOneOf(tokens.View(next), {"–", "-", "/"}) && JoinedOrdinalBehind(tokens, next) != Tokens::kNone)
    return PointMeaning::Ordinal;
  // "die 3. „Klasse“"
  if (IsOneOf(tokens.View(next), {"„", "»", "(", "–", "-", "\""}) || tokens.IsNumber(next))
    return AtEnd(tokens, i, *value);
  return PointMeaning::Sentence;
}

std::size_t NounOfOrdinal(const Tokens& tokens, std::size_t behind) {
  std::size_t next = tokens.Skip(behind);
  for (int step = 0; step < 5; ++step) {
    const std::size_t joined = JoinedOrdinalBehind(tokens, next);
    if (joined == Tokens::kNone) break;
    next = tokens.Skip(joined + 2);
  }
  if (tokens.Is(next, ",") && EditionFollows(tokens, next + 1)) next = tokens.Skip(next + 1);
  return NounBehind(tokens, next);
}

namespace {

// "Temperatur" for "Temp." and "Gebühr" for "Geb.".
std::string WholeNounAt(const Tokens& tokens, std::size_t noun) {
  if (!tokens.Is(noun + 1, ".") && !IsAllCaps(tokens.View(noun))) return std::string(tokens.View(noun));
  if (const auto found = AbbreviationAt(tokens, noun); found && IsUpperWord(found->abbreviation->spoken))
    return std::string(found->abbreviation->spoken);
  if (const auto cut = CutWordAt(tokens, noun)) return cut->words;
  return std::string(tokens.View(noun));
}

// "der Deutsche", "jeder Befragte": adjectives that became nouns.
bool IsAdjectivalNoun(std::string_view word) {
  return HasSuffix(word, {"Deutsche", "wachsene", "liche", "fragte", "stellte", "schäftigte", "letzte",
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
  const auto word = tokens.View(noun);
  Agreement agreement = AgreementOf(NounOf(WholeNounAt(tokens, noun)));
  if (word == "Bund" && tokens.IsCapital(tokens.Skip(noun + 1))) return {Gender::Neuter, false, false, true};
  if (IsOneOf(word,
              {"Aufl", "Ausg", "Kl", "Std", "Min", "Sek", "Wo", "HZ", "Str", "Et", "Abt", "Mannsch", "BL"}))
    return {Gender::Feminine, false, false, true};
  if (IsOneOf(word, {"Bd", "Abs", "Jg", "Jahrg", "Tg", "Art", "Vors"}))
    return {Gender::Masculine, false, false, true};
  if (IsOneOf(word, {"Kap", "Qu", "Sem", "Lj", "Obergesch"})) return {Gender::Neuter, false, false, true};
  if (word == "Jh" || word == "Jhd" || word == "Jhdt" || word == "Jt")
    return {Gender::Neuter, false, false, true};
  if (word == "OG" || word == "UG" || word == "EG") return {Gender::Neuter, false, false, true};
  if (word == "FC" || word == "SC" || word == "FCK" || word == "FCN")
    return {Gender::Masculine, false, false, true};
  // "zweite Vorsitzende" is a woman, with another article a man.
  const auto article =
      tokens.WordBefore(tokens.Before(noun) == Tokens::kNone ? noun : tokens.Before(noun) - 1);
  if (word.ends_with("zende") && !IsOneOf(article, {"der", "Der", "dem", "den"}))
    agreement.gender = Gender::Feminine;
  if (IsAdjectivalNoun(word) && IsManDeterminer(article)) return {Gender::Masculine, false, false, true};
  if (word.ends_with("zender")) return {Gender::Masculine, false, false, true};
  return agreement;
}

namespace {

// "in der 90.+3 Minute".
Found MinuteOfInjuryTimeAt(const Tokens& tokens, std::size_t i) {
  const auto minute = DigitsAt(tokens, i, 3);
  const auto more = DigitsAt(tokens, i + 3, 2);
  if (!minute || !more || !tokens.Is(i + 1, ".") || !tokens.Is(i + 2, "+")) return std::nullopt;
  return Phrase{i + 4, CardinalWords(*minute) + " plus " + CardinalWords(*more)};
}

}  // namespace

Found OrdinalAt(const Tokens& tokens, std::size_t i) {
  if (auto minute = MinuteOfInjuryTimeAt(tokens, i)) return minute;
  if (!tokens.IsNumber(i, 1, 4) || !tokens.Is(i + 1, ".") || tokens.IsNumber(i + 2)) return std::nullopt;
  const PointMeaning meaning = JudgePoint(tokens, i);
  if (meaning == PointMeaning::Sentence || meaning == PointMeaning::List) return std::nullopt;
  const std::uint64_t value = *DigitsAt(tokens, i, 4);
  const bool atEnd = meaning == PointMeaning::OrdinalAtEnd;
  const std::size_t noun = atEnd ? Tokens::kNone : NounOfOrdinal(tokens, i + 2);
  std::string words = OrdinalWords(value, EndingAt(tokens, i, AgreementAt(tokens, noun)));
  if (noun == Tokens::kNone && !HasDeterminer(tokens, i) && BecomesOne(tokens, i))
    words = RankWords(tokens, i, value);
  if (atEnd) return Phrase{i + 1, words};
  if (tokens.IsWord(i + 2)) words += ' ';
  // "5.–7. Klasse", "2./3. Stock".
  const bool joined = JoinedOrdinalBehind(tokens, tokens.Skip(i + 2)) != Tokens::kNone;
  const std::size_t sign = tokens.Skip(i + 2);
  if (joined && tokens.IsDashAt(sign)) return Phrase{tokens.Skip(sign + 1), words + " bis "};
  if (joined && tokens.Is(sign, "/")) return Phrase{tokens.Skip(sign + 1), words + " und "};
  return Phrase{i + 2, words};
}

// Roman numbers.

namespace {

bool IsRomanHead(std::string_view word) {
  return IsOneOf(word, {"Kapitel",
                        "Teil",
                        "Band",
                        "Akt",
                        "Abschnitt",
                        "Buch",
                        "Klasse",
                        "Typ",
                        "Stufe",
                        "Grad",
                        "Gruppe",
                        "Kategorie",
                        "Phase",
                        "Kammer",
                        "Grades",
                        "Weltkrieg",
                        "Hartz",
                        "Agenda",
                        "Apollo",
                        "Artikel",
                        "Anhang",
                        "Anlage",
                        "Satz",
                        "Strophe",
                        "Symphonie",
                        "Sinfonie",
                        "Szene",
                        "Bd",
                        "Kap",
                        "Tafel",
                        "Abteilung",
                        "Windows",
                        "Rocky",
                        "Teile",
                        "SGB",
                        "BGBl",
                        "Bundesgesetzblatt",
                        "BStBl",
                        "Faust",
                        "Quartal",
                        "Bauteil",
                        "Schema",
                        "Zone",
                        "Level",
                        "Steuerklasse",
                        "Lohnsteuerklasse",
                        "Pflegestufe"});
}

bool IsRomanOrdinalHead(std::string_view word) {
  return IsNumberedHead(word) ||
         IsOneOf(word, {"Olympischen", "Olympische", "Vatikanisches", "Vatikanischen", "Internationale",
                        "Armeekorps", "Semester", "Vatikanum", "Dynastie"});
}

std::uint64_t RomanNumberAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (!tokens.IsWord(i) || word.size() > 12 || !tokens.FreeBefore(i) || !tokens.FreeBehind(i)) return 0;
  return RomanValue(word);
}

// Letters that make a number and hardly anything else: "III", "XIV", "LVIII".
bool IsPlainRoman(std::string_view word) {
  if (word.size() < 2 || word.find_first_not_of("IVXLC") != std::string_view::npos) return false;
  return word.find_first_of("LC") == std::string_view::npos || word.size() > 3;
}

// "Saal II", "Steuerklasse IV, nicht III".
bool NamesNumber(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  if (tokens.IsCapital(before))
    return !IsAllCaps(tokens.View(before)) || RomanValue(tokens.View(before)) != 0;
  return IsOneOf(tokens.View(before), {"nicht", "und", "oder", "bis", "sondern", ",", "–", "-", "/"});
}

bool IsTitle(std::string_view word) {
  return IsOneOf(word, {"König",      "Kaiser",   "Papst",   "Zar",      "Prinz",   "Fürst",   "Herzog",
                        "Graf",       "Kurfürst", "Königin", "Kaiserin", "Zarin",   "Sultan",  "Bischof",
                        "Erzbischof", "Königs",   "Kaisers", "Papstes",  "Zaren",   "Fürsten", "Herzogs",
                        "Grafen",     "Pharao",   "Ramses",  "Landgraf", "Markgraf"});
}

bool IsWomansName(std::string_view name) {
  if (name.ends_with('s')) name.remove_suffix(1);
  return IsOneOf(name, {"Elisabeth", "Maria",   "Katharina", "Margarethe", "Victoria",  "Viktoria",
                        "Christina", "Beatrix", "Juliana",   "Wilhelmina", "Isabella",  "Anna",
                        "Mary",      "Olga",    "Kleopatra", "Elizabeth",  "Margrethe", "Sophie",
                        "Louise",    "Luise",   "Johanna",   "Sonja",      "Silvia",    "Theresia"});
}

// Names of rulers and popes, by which a letter such as "I." or "V." is a number and no second name.
bool IsRulersName(std::string_view name) {
  for (int i = 0; i < 2; ++i) {
    if (IsWomansName(name) ||
        IsOneOf(
            name,
            {"Ludwig",    "Friedrich", "Wilhelm",       "Karl",      "Heinrich",  "Otto",       "Konrad",
             "Rudolf",    "Leopold",   "Josef",         "Joseph",    "Franz",     "Ferdinand",  "Maximilian",
             "Albrecht",  "Georg",     "Eduard",        "Edward",    "Charles",   "Carl",       "Gustav",
             "Philipp",   "Alfons",    "Johannes",      "Paul",      "Pius",      "Benedikt",   "Leo",
             "Gregor",    "Klemens",   "Clemens",       "Innozenz",  "Urban",     "Nikolaus",   "Alexander",
             "Peter",     "Iwan",      "Ramses",        "Napoleon",  "Otho",      "Lothar",     "August",
             "Christian", "Jakob",     "Richard",       "Sigismund", "Wenzel",    "Franziskus", "Mehmed",
             "Süleyman",  "Selim",     "Felipe",        "Juan",      "Carlos",    "Harald",     "Haakon",
             "Olaf",      "Albert",    "Bonifatius",    "Sixtus",    "Julius",    "Hadrian",    "Louis",
             "Henry",     "George",    "William",       "James",     "Thutmosis", "Amenophis",  "Dareios",
             "Xerxes",    "Philip",    "Pippin",        "Johann",    "Rainier",   "Faisal",     "Abdullah",
             "Adolf",     "Ernst",     "Ludwig-Wilhelm"}))
      return true;
    if (!name.ends_with('s')) return false;
    name.remove_suffix(1);
  }
  return false;
}

// "Ludwigs", but not "Johannes" or "Pius".
bool IsGenitiveName(std::string_view name) {
  if (name.ends_with("as") && IsWomansName(name) && !IsOneOf(name, {"Thomas"})) return true;
  return name.ends_with('s') && !HasSuffix(name, {"us", "es", "as", "is", "os", "James", "Louis"});
}

// The ruler's name right before the number.
std::size_t RulerBefore(const Tokens& tokens, std::size_t i) {
  const std::size_t name = tokens.WordIndexBefore(i);
  if (name == Tokens::kNone || !tokens.IsCapital(name)) return Tokens::kNone;
  if (IsRulersName(tokens.View(name))) return name;
  const auto title = tokens.WordBefore(name);
  return IsTitle(title) ? name : Tokens::kNone;
}

// The first word of the ruler's names and titles.
std::size_t FirstOfName(const Tokens& tokens, std::size_t name) {
  for (int step = 0; step < 4; ++step) {
    const std::size_t before = tokens.WordIndexBefore(name);
    if (before == Tokens::kNone || !tokens.IsCapital(before) || IsDeterminer(tokens.View(before)) ||
        CaseOfPreposition(tokens.View(before)))
      break;
    if (!IsTitle(tokens.View(before)) && !IsRulersName(tokens.View(before))) break;
    name = before;
  }
  return name;
}

// "Er besiegte Napoleon III."
bool OvercomesRuler(std::string_view verb) {
  return IsOneOf(verb, {"besiegte",  "besiegten", "stürzte", "stürzten",    "krönte",       "krönten",
                        "heiratete", "traf",      "empfing", "besuchte",    "unterstützte", "bekämpfte",
                        "ermordete", "wählte",    "wählten", "kannte",      "vertrieb",     "schlug",
                        "schlugen",  "beriet",    "malte",   "porträtierte"});
}

Case CaseOfRuler(const Tokens& tokens, std::size_t name) {
  if (IsGenitiveName(tokens.View(name))) return Case::Genitive;
  const std::size_t first = FirstOfName(tokens, name);
  if (IsOneOf(tokens.View(first), {"Königs", "Kaisers", "Papstes", "Herzogs"})) return Case::Genitive;
  const auto before = tokens.WordBefore(first);
  if (IsOneOf(before, {"des", "der"})) return Case::Genitive;
  if (IsOneOf(before, {"dem", "zum", "vom", "beim", "am", "im", "zur"})) return Case::Dative;
  if (before == "den" || before == "über" || OvercomesRuler(before)) return Case::Accusative;
  if (const auto asked = CaseOfPreposition(before)) return *asked;
  if (before != "und" && before != "oder") return Case::Nominative;
  // "unter Leo X. und Karl V.": the preposition before the first name holds for both.
  std::size_t at = tokens.WordIndexBefore(first);
  for (int step = 0; step < 9 && at != Tokens::kNone; ++step) {
    at = tokens.Before(at);
    if (at == Tokens::kNone) break;
    if (const auto asked = CaseOfPreposition(tokens.View(at)))
      return tokens.Is(at, "über") ? Case::Accusative : *asked;
    if (tokens.IsWord(at) && !tokens.IsCapital(at) && !IsDeterminer(tokens.View(at))) break;
  }
  return Case::Nominative;
}

}  // namespace

std::string WithNameOf(const Tokens& tokens, std::size_t i, std::string_view adjective) {
  const std::size_t name = tokens.WordIndexBefore(i);
  const Case asked = name == Tokens::kNone ? Case::Nominative : CaseOfRuler(tokens, name);
  const bool woman = name != Tokens::kNone && IsWomansName(tokens.View(name));
  constexpr std::string_view kMan[] = {"der", "des", "dem", "den"};
  constexpr std::string_view kWoman[] = {"die", "der", "der", "die"};
  const bool plain = asked == Case::Nominative || (woman && asked == Case::Accusative);
  const auto at = static_cast<std::size_t>(asked);
  return std::string(woman ? kWoman[at] : kMan[at]) + " " + std::string(adjective) + (plain ? "e" : "en");
}

namespace {

std::string RulersNumber(std::uint64_t value, Case asked, bool woman) {
  constexpr std::string_view kMan[] = {"der", "des", "dem", "den"};
  constexpr std::string_view kWoman[] = {"die", "der", "der", "die"};
  const auto at = static_cast<std::size_t>(asked);
  const bool plain = asked == Case::Nominative || (woman && asked == Case::Accusative);
  return std::string(woman ? kWoman[at] : kMan[at]) + " " +
         WithUpperStart(OrdinalWords(value, plain ? "e" : "en"));
}

}  // namespace

namespace {

// "I–III".
Found RomanSpan(const Tokens& tokens, std::size_t i, std::uint64_t value) {
  const std::uint64_t second = tokens.IsDashAt(i + 1) ? RomanNumberAt(tokens, i + 2) : 0;
  if (second > value) return Phrase{i + 3, CardinalWords(value) + " bis " + CardinalWords(second)};
  return Phrase{i + 1, CardinalWords(value)};
}

}  // namespace

namespace {

// "die I. und II. Mannschaft": the token of the last of them, where this one is joined with others.
std::size_t LastJoinedRoman(const Tokens& tokens, std::size_t i) {
  const std::size_t joint = tokens.Skip(i + 2);
  const std::size_t second = tokens.Skip(joint + 1);
  const bool joined = IsOneOf(tokens.View(joint), {"und", "oder", "bis"}) && tokens.Is(i + 1, ".") &&
                      RomanNumberAt(tokens, second) != 0 && tokens.Is(second + 1, ".");
  return joined ? second : i;
}

}  // namespace

bool IsRomanOrdinalAt(const Tokens& tokens, std::size_t i) {
  if (RomanNumberAt(tokens, i) == 0 || !tokens.Is(i + 1, ".")) return false;
  if (const std::size_t last = LastJoinedRoman(tokens, i); last != i) return IsRomanOrdinalAt(tokens, last);
  const std::size_t next = tokens.Skip(i + 2);
  if (next > i + 2 && tokens.IsCapital(next) && IsRomanOrdinalHead(tokens.View(next))) return true;
  if (next > i + 2 && tokens.IsCapital(next) && IsPlainRoman(tokens.View(i)) &&
      (HasDeterminer(tokens, i) || (tokens.OpensClause(i) && NounOf(tokens.View(next)).known)))
    return !StartsSentenceAt(tokens, next);
  return RulerBefore(tokens, i) != Tokens::kNone;
}

Found RomanAt(const Tokens& tokens, std::size_t i) {
  const std::uint64_t value = RomanNumberAt(tokens, i);
  if (value == 0) return std::nullopt;
  const bool point = tokens.Is(i + 1, ".");
  const std::size_t next = tokens.Skip(i + 2);
  if (const std::size_t last = LastJoinedRoman(tokens, i);
      last != i && IsRomanOrdinalAt(tokens, last) && RulerBefore(tokens, i) == Tokens::kNone)
    return Phrase{
        i + 2, OrdinalWords(value, EndingAt(tokens, i,
                                            AgreementAt(tokens, NounBehind(tokens, tokens.Skip(last + 2)))))};
  if (point && tokens.IsCapital(next) && next > i + 2 && IsRomanOrdinalHead(tokens.View(next)))
    return Phrase{i + 2,
                  OrdinalWords(value, EndingAt(tokens, i, AgreementAt(tokens, NounBehind(tokens, next))))};
  std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {".", "-"}) && before > 0)
    --before;  // "Typ-I-Fehler"
  if (before != Tokens::kNone && IsRomanHead(tokens.View(before)) && value <= 100)
    return RomanSpan(tokens, i, value);
  const bool ordinal = point && next > i + 2 && tokens.IsCapital(next) && !StartsSentenceAt(tokens, next);
  if (ordinal && IsPlainRoman(tokens.View(i)) &&
      (HasDeterminer(tokens, i) || (tokens.OpensClause(i) && NounOf(tokens.View(next)).known)))
    return Phrase{i + 2,
                  OrdinalWords(value, EndingAt(tokens, i, AgreementAt(tokens, NounBehind(tokens, next))))};
  const std::size_t name = point ? RulerBefore(tokens, i) : Tokens::kNone;
  if (name == Tokens::kNone && IsPlainRoman(tokens.View(i)) && value <= 100 && NamesNumber(tokens, i))
    return RomanSpan(tokens, i, value);
  if (name == Tokens::kNone || value > 40) return std::nullopt;
  const bool woman = IsWomansName(tokens.View(name));
  // A last name behind it makes a second name of it: "Max I. Meyer".
  if (value == 1 && tokens.IsCapital(next) && !StartsSentences(tokens.View(next)) &&
      !NounOf(tokens.View(next)).known && !IsRulersName(tokens.View(name)))
    return std::nullopt;
  return Phrase{tokens.IsLast(i + 1) ? i + 1 : i + 2, RulersNumber(value, CaseOfRuler(tokens, name), woman)};
}

}  // namespace lorelin
