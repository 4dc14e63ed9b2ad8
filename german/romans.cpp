#include "german/romans.h"

#include "german/clauses.h"
#include "german/dates.h"
#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/wordLists.h"

namespace lorelin {

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
                        "WK",
                        "Abb",
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
                        "Steuerklassen",
                        "Stkl",
                        "StKl",
                        "NYHA",
                        "GOLD",
                        "CCS",
                        "ASA",
                        "Stadium",
                        "Schutzklasse",
                        "Art",
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

// "Gruppe C", "Band L": alone these letters only name.
bool IsRatherLetter(std::string_view word) {
  return IsOneOf(word, {"C", "D", "L", "M"});
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
  if (IsOneOf(tokens.View(before), {"SV", "TSV", "FC", "SC", "TV", "TuS", "BSC", "FSV"})) return true;
  if (tokens.IsCapital(before))
    return !IsAllCaps(tokens.View(before)) || RomanValue(tokens.View(before)) != 0;
  // "Zeichen: III/4-22".
  if (tokens.Is(before, ":") && IsOneOf(tokens.View(i + 1), {"/", "-"})) return true;
  return IsOneOf(tokens.View(before), {"nicht", "und", "oder", "bis", "sondern", ",", "–", "-", "/"});
}

// "Art. 20 III GG", "§ 823 I BGB".
bool StandsBehindArticle(const Tokens& tokens, std::size_t i) {
  if (i < 4 || !tokens.IsBlank(i - 1)) return false;
  const bool letter = tokens.IsWord(i - 2) && tokens.View(i - 2).size() == 1 && tokens.IsNumber(i - 3);
  const std::size_t number = letter ? i - 3 : i - 2;
  if (!tokens.IsNumber(number)) return false;
  std::size_t label = tokens.Before(number);
  if (label != Tokens::kNone && label > 0 && tokens.Is(label, ".")) --label;
  return label != Tokens::kNone &&
         IsOneOf(tokens.View(label), {"§", "§§", "Art", "Artikel", "Paragraf", "Paragraph"});
}

// "drei Teile: I. Kindheit, II. Jugend": the first of a row in the sentence.
bool OpensRow(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 40;  // tokens
  const std::size_t before = tokens.Before(i);
  if (!tokens.Is(i, "I") || !tokens.Is(i + 1, ".") || before == Tokens::kNone || !tokens.Is(before, ":"))
    return false;
  if (tokens.IsLast(i + 1)) return true;
  for (std::size_t at = i + 3; at < i + kNear; ++at) {
    if (tokens.Is(at, "II") && tokens.Is(at + 1, ".")) return true;
  }
  return false;
}

// "LG München I", "TSV Dorf I – SV Stadt II": a letter that names the first of several.
bool NamesFirst(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "I") || i < 2 || !tokens.IsCapital(i - 2) || !tokens.IsBlank(i - 1)) return false;
  if (IsOneOf(tokens.WordBefore(i - 2), {"LG", "Landgericht", "Landgerichts", "StA"})) return true;
  if (NounOf(tokens.View(i - 2)).whole) return false;
  const std::size_t next = tokens.Skip(i + 1);
  return (IsOneOf(tokens.View(next), {"–", "-", "gegen"}) && next > i + 1) || tokens.Is(next + 2, ":");
}

bool IsTitle(std::string_view word) {
  return IsOneOf(word, {"König",      "Kaiser",   "Papst",   "Zar",      "Prinz",   "Fürst",   "Herzog",
                        "Graf",       "Kurfürst", "Königin", "Kaiserin", "Zarin",   "Sultan",  "Bischof",
                        "Erzbischof", "Königs",   "Kaisers", "Papstes",  "Zaren",   "Fürsten", "Herzogs",
                        "Grafen",     "Pharao",   "Ramses",  "Landgraf", "Markgraf"});
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
  if (name == "Ottos" || name == "Hugos") return true;
  if (name.ends_with("as") && IsWomansName(name) && !IsOneOf(name, {"Thomas"})) return true;
  return name.ends_with('s') && !HasSuffix(name, {"us", "es", "as", "is", "os", "James", "Louis"});
}

bool IsApostrophe(std::string_view sign) {
  return IsOneOf(sign, {"'", "’", "‘"});
}

// The name before the number, over the apostrophe of "Ramses’ II.".
std::size_t NameBefore(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && before > 0 && IsApostrophe(tokens.View(before))) return before - 1;
  return tokens.WordIndexBefore(i);
}

// The ruler's name right before the number.
std::size_t RulerBefore(const Tokens& tokens, std::size_t i) {
  const std::size_t name = NameBefore(tokens, i);
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
  return IsOneOf(
      verb,
      {"besiegte",     "besiegten", "stürzte",       "stürzten",     "krönte",     "krönten",    "heiratete",
       "traf",         "empfing",   "besuchte",      "unterstützte", "bekämpfte",  "ermordete",  "wählte",
       "wählten",      "kannte",    "vertrieb",      "schlug",       "schlugen",   "beriet",     "malte",
       "porträtierte", "besiegt",   "stürzt",        "trifft",       "trafen",     "heiratet",   "empfängt",
       "besucht",      "besuchten", "beerbte",       "überlebte",    "begleitete", "bewunderte", "verehrte",
       "zwang",        "zwangen",   "unterstützten", "bekämpften",   "ermordeten", "enthauptete"});
}

// "Er diente Ludwig XIV."
bool ServesRuler(std::string_view verb) {
  return IsOneOf(verb, {"diente", "dienten", "dient", "unterlag", "unterlagen", "half", "halfen", "huldigte",
                        "huldigten", "gehorchte", "gehorchten", "begegnete", "begegneten", "gratulierte"});
}

bool IsPersonWord(std::string_view word) {
  return IsOneOf(WithLowerStart(word), {"er", "sie", "man", "der", "die", "wer", "ich", "wir"});
}

// "Er krönte", "Der Sohn des Königs besiegte", but not "Im Jahr 800 krönte": who does it stands before the
// verb.
bool SubjectStandsBefore(const Tokens& tokens, std::size_t verb) {
  constexpr int kWords = 10;
  std::size_t at = tokens.Before(verb);
  if (at == Tokens::kNone || tokens.IsNumber(at)) return false;
  if (IsPersonWord(tokens.View(at))) return true;
  for (int step = 0; step < kWords; ++step) {
    const std::size_t before = tokens.Before(at);
    if (before == Tokens::kNone || !(tokens.IsWord(before) || tokens.IsNumber(before))) break;
    at = before;
  }
  const auto first = tokens.View(at);
  return tokens.IsWord(at) && !CaseOfPreposition(first) &&
         !IsOneOf(first,
                  {"Im", "Am", "Zum", "Zur", "Vom", "Beim", "Dort", "Dann", "Danach", "Hier", "Später"});
}

// "traf er Karl V.": a pronoun between the verb and the name is who does it.
std::optional<Case> CaseOfVerb(const Tokens& tokens, std::size_t first) {
  std::size_t verb = tokens.WordIndexBefore(first);
  if (verb == Tokens::kNone) return std::nullopt;
  const bool pronoun = IsOneOf(tokens.View(verb), {"er", "sie", "man"});
  if (pronoun) verb = tokens.WordIndexBefore(verb);
  if (verb == Tokens::kNone) return std::nullopt;
  const bool serves = ServesRuler(tokens.View(verb));
  if (!serves && !OvercomesRuler(tokens.View(verb))) return std::nullopt;
  if (!pronoun && !SubjectStandsBefore(tokens, verb)) return Case::Nominative;
  return serves ? Case::Dative : Case::Accusative;
}

// "des Königs", "der Kaiserin", but "der König".
Case CaseBehindArticle(std::string_view article, bool woman) {
  if (article == "der") return woman ? Case::Genitive : Case::Nominative;
  return article == "des" ? Case::Genitive : Case::Dative;
}

Case CaseOfRuler(const Tokens& tokens, std::size_t name) {
  if (IsGenitiveName(tokens.View(name)) || IsApostrophe(tokens.View(name + 1))) return Case::Genitive;
  const std::size_t first = FirstOfName(tokens, name);
  if (IsOneOf(tokens.View(first), {"Königs", "Kaisers", "Papstes", "Herzogs"})) return Case::Genitive;
  const auto before = tokens.WordBefore(first);
  // "ihrem Gatten Peter III."
  if (const std::size_t noun = tokens.WordIndexBefore(first);
      noun != Tokens::kNone && tokens.IsCapital(noun) && !IsOneOf(tokens.View(noun), {"Namen", "Titel"})) {
    const auto article = tokens.WordBefore(noun);
    if (IsDeterminer(article) && article.ends_with("em")) return Case::Dative;
    if (IsDeterminer(article) && article.ends_with("en")) return Case::Accusative;
    if (IsDeterminer(article) && article.ends_with("es")) return Case::Genitive;
  }
  const std::string article = WithLowerStart(before);
  if (IsOneOf(article, {"des", "der", "dem", "zum", "vom", "beim", "am", "im", "zur"}))
    return CaseBehindArticle(article, IsWomansName(tokens.View(name)));
  if (article == "den" || article == "über") return Case::Accusative;
  // "fiel an Otto IV.", "folgte auf Otto IV.", but "Kritik an Otto IV."
  const bool towards = article == "an" || article == "auf";
  if (towards && !HasSuffix(tokens.WordBefore(tokens.WordIndexBefore(first)),
                            {"Kritik", "Mord", "Rache", "Interesse", "Zweifel", "Beispiel"}))
    return Case::Accusative;
  if (article == "bis" && tokens.OpensClause(tokens.WordIndexBefore(first)))
    return Case::Nominative;  // "…, bis Otto II. sie verpfändete"
  if (const auto asked = CaseOfPreposition(before)) return *asked;
  if (const auto asked = CaseOfVerb(tokens, first)) return *asked;
  if (before != "und" && before != "oder") return Case::Nominative;
  // "unter Leo X. und Karl V.": the preposition before the first name holds for both.
  std::size_t at = tokens.WordIndexBefore(first);
  for (int step = 0; step < 9 && at != Tokens::kNone; ++step) {
    at = tokens.Before(at);
    if (at == Tokens::kNone) break;
    if (const auto asked = CaseOfPreposition(tokens.View(at)))
      return tokens.Is(at, "über") ? Case::Accusative : *asked;
    if (OvercomesRuler(tokens.View(at)) && SubjectStandsBefore(tokens, at)) return Case::Accusative;
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
  const std::uint64_t other = tokens.Is(i + 1, "/") ? RomanNumberAt(tokens, i + 2) : 0;
  if (other != 0) return Phrase{i + 3, CardinalWords(value) + " " + CardinalWords(other)};  // "III/V"
  if (tokens.Is(i + 1, ".") && tokens.IsNumber(i + 2)) return Phrase{i + 2, CardinalWords(value) + " Punkt "};
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

bool GoesOnWithName(const Tokens& tokens, std::size_t i) {
  const auto verb = tokens.View(tokens.Skip(i + 1));
  return IsRulersName(tokens.View(i)) &&
         !(IsFiniteVerb(verb) || (!IsUpperWord(verb) && HasSuffix(verb, {"te", "ten"})));
}

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

namespace {

// "Stadium IIb".
Found RomanWithLetterAt(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  if (!tokens.IsWord(i) || word.size() < 2 || word.size() > 5 || word.front() < 'I' || word.front() > 'X' ||
      word.back() < 'a' || word.back() > 'd' || !tokens.FreeBefore(i) || !tokens.FreeBehind(i))
    return std::nullopt;
  const std::uint64_t value = RomanValue(word.substr(0, word.size() - 1));
  if (value == 0 || value > 10 || !IsRomanHead(tokens.WordBefore(i))) return std::nullopt;
  return Phrase{i + 1, CardinalWords(value) + " " + std::string(1, word.back())};
}

// "Anlage V" of a tax return is named by a letter, as "Anlage N" and "Anlage KAP" are.
bool NamesTaxForm(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 40;  // tokens
  if (tokens.View(i).size() != 1 || !IsOneOf(tokens.WordBefore(i), {"Anlage", "Anlagen"})) return false;
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (!tokens.IsWord(at)) continue;
    if (HasPrefix(WithLowerStart(tokens.View(at)), {"steuer", "einkommensteuer", "einkünfte", "vermietung",
                                                    "finanzamt", "elster", "werbungskosten", "mieteinn"}))
      return true;
    if (IsOneOf(tokens.View(at), {"N", "KAP", "SO", "G", "S", "R", "AUS"}) &&
        IsOneOf(tokens.WordBefore(at), {"Anlage", "Anlagen", "und"}))
      return true;
  }
  return false;
}

}  // namespace

Found RomanAt(const Tokens& tokens, std::size_t i) {
  if (auto lettered = RomanWithLetterAt(tokens, i)) return lettered;
  const std::uint64_t value = RomanNumberAt(tokens, i);
  if (value == 0 || (tokens.Is(i, "D") && tokens.OpensClause(i)) || NamesTaxForm(tokens, i))
    return std::nullopt;
  const bool point = tokens.Is(i + 1, ".");
  const std::size_t next = tokens.Skip(i + 2);
  // "Blütezeit: V–VII".
  if (tokens.IsDashAt(i + 1) && tokens.FreeBefore(i) && IsPlainRoman(tokens.View(i + 2)) &&
      RomanNumberAt(tokens, i + 2) > value && value <= 12 && !tokens.IsDashAt(i + 3))
    return RomanSpan(tokens, i, value);
  if (const std::size_t last = LastJoinedRoman(tokens, i);
      last != i && IsRomanOrdinalAt(tokens, last) && RulerBefore(tokens, i) == Tokens::kNone)
    return Phrase{
        i + 2, OrdinalWords(value, EndingAt(tokens, i,
                                            AgreementAt(tokens, NounBehind(tokens, tokens.Skip(last + 2)))))};
  // "Karls V. Reich" is no fifth empire.
  const std::size_t ruler = point ? RulerBefore(tokens, i) : Tokens::kNone;
  const bool owner = ruler != Tokens::kNone && IsGenitiveName(tokens.View(ruler));
  const bool named = owner || (ruler != Tokens::kNone && IsMonth(tokens.View(next)));  // "Philipp II. August"
  if (!named && point && tokens.IsCapital(next) && next > i + 2 && IsRomanOrdinalHead(tokens.View(next)))
    return Phrase{i + 2,
                  OrdinalWords(value, EndingAt(tokens, i, AgreementAt(tokens, NounBehind(tokens, next))))};
  std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && IsOneOf(tokens.View(before), {".", "-"}) && before > 0)
    --before;  // "Typ-I-Fehler"
  if (before != Tokens::kNone && IsRomanHead(tokens.View(before)) && value <= 100 &&
      !IsRatherLetter(tokens.View(i)))
    return RomanSpan(tokens, i, value);
  // "II. Persönliche Angaben" of a heading.
  if (point && tokens.OpensLine(i) && IsPlainRoman(tokens.View(i)) && value <= 30 && tokens.IsCapital(next) &&
      HasSuffix(tokens.View(next), {"e", "er", "es"}) && tokens.IsBlank(next + 1) &&
      tokens.IsCapital(next + 2))
    return Phrase{i + 1, WithUpperStart(CardinalWords(value))};
  const bool ordinal = point && next > i + 2 && tokens.IsCapital(next) && !StartsSentenceAt(tokens, next);
  if (ordinal && IsPlainRoman(tokens.View(i)) &&
      (HasDeterminer(tokens, i) || (tokens.OpensClause(i) && NounOf(tokens.View(next)).known)))
    return Phrase{i + 2,
                  OrdinalWords(value, EndingAt(tokens, i, AgreementAt(tokens, NounBehind(tokens, next))))};
  // "Louis XIV" without its point.
  const std::size_t bare = point || !IsPlainRoman(tokens.View(i)) ? Tokens::kNone : RulerBefore(tokens, i);
  const bool king = bare != Tokens::kNone && IsRulersName(tokens.View(bare));
  const std::size_t name = point ? ruler : (king ? bare : Tokens::kNone);
  if (name == Tokens::kNone && value <= 20 && StandsBehindArticle(tokens, i))
    return Phrase{i + 1, CardinalWords(value)};
  if (name == Tokens::kNone && (NamesFirst(tokens, i) || OpensRow(tokens, i))) return Phrase{i + 1, "eins"};
  if (name == Tokens::kNone && IsPlainRoman(tokens.View(i)) && value <= 100 && NamesNumber(tokens, i))
    return RomanSpan(tokens, i, value);
  if (name == Tokens::kNone || value > 40) return std::nullopt;
  const bool woman = IsWomansName(tokens.View(name));
  // A last name behind it makes a second name of it: "Max I. Meyer".
  if (value == 1 && tokens.IsCapital(next) && !StartsSentences(tokens.View(next)) &&
      !NounOf(tokens.View(next)).known && !IsRulersName(tokens.View(name)))
    return std::nullopt;
  // "Franz X. Huber" is called Xaver.
  if (tokens.Is(i, "X") && tokens.Is(name, "Franz") && point && tokens.IsCapital(next)) return std::nullopt;
  return Phrase{!point || tokens.IsLast(i + 1) ? i + 1 : i + 2,
                RulersNumber(value, CaseOfRuler(tokens, name), woman)};
}

}  // namespace lorelin
