#include "extensions/german/numberRule.h"

#include <algorithm>
#include <array>

#include "extensions/german/dateRule.h"
#include "extensions/german/measures.h"
#include "extensions/german/numberWords.h"

namespace lorelin {
namespace {

using Found = std::optional<SpokenMatch>;

bool IsPreposition(std::string_view word) {
  return IsOneOf(word,
                 {"in",       "an",      "auf",     "nach",  "vor",  "mit",   "von",   "bei",    "zu",
                  "aus",      "während", "wegen",   "seit",  "ab",   "trotz", "unter", "über",   "neben",
                  "zwischen", "In",      "An",      "Auf",   "Nach", "Vor",   "Mit",   "Von",    "Bei",
                  "Zu",       "Aus",     "Während", "Wegen", "Seit", "Ab",    "Ende",  "Anfang", "Mitte"});
}

// The gender of what is counted, for an ordinal without an article.
std::string_view EndingByNoun(std::string_view noun) {
  if (IsOneOf(noun, {"Stock",   "Platz",    "Weltkrieg",  "Tag",     "Monat",     "Teil",   "Band",
                     "Schritt", "Advent",   "Geburtstag", "Akt",     "Satz",      "Absatz", "Artikel",
                     "Preis",   "Spieltag", "Gang",       "Versuch", "Abschnitt", "Rang"}))
    return "er";
  if (IsOneOf(noun, {"Klasse", "Auflage", "Etage",   "Woche",   "Bundesliga", "Liga",     "Halbzeit",
                     "Runde",  "Stunde",  "Person",  "Minute",  "Seite",      "Sinfonie", "Strophe",
                     "Stufe",  "Reihe",   "Staffel", "Folge",   "Prise",      "Zwiebel",  "Zehe",
                     "Dose",   "Tasse",   "Scheibe", "Packung", "Sekunde"}))
    return "e";
  if (IsOneOf(noun, {"Kapitel", "Jahrhundert", "Jahr", "Mal", "Semester", "Quartal", "Lebensjahr",
                     "Obergeschoss", "Untergeschoss", "Halbjahr", "Viertel", "Drittel", "Buch", "Spiel",
                     "Bild", "Kind", "Ei", "Stück", "Glas"}))
    return "es";
  return {};
}

// "Ludwigs", but not "Johannes" or "Pius".
bool IsGenitive(std::string_view name) {
  if (!name.ends_with('s')) return false;
  return !name.ends_with("us") && !name.ends_with("es") && !name.ends_with("as") && !name.ends_with("is");
}

bool IsWomansName(std::string_view name) {
  return IsOneOf(
      name, {"Elisabeth", "Maria", "Katharina", "Margarethe", "Victoria", "Viktoria", "Christina", "Beatrix",
             "Juliana", "Wilhelmina", "Isabella", "Anna", "Mary", "Olga", "Kleopatra", "Elizabeth"});
}

// Digit by digit, a pause at every gap: what begins with 0 or a plus and has at least six digits.
Found PhoneAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  std::size_t digits = 0;
  std::string words;
  std::string group;
  if (text[end] == '+') {
    words = "plus";
    ++end;
  } else if (text[end] != '0') {
    return std::nullopt;
  }
  std::size_t good = at;
  int gaps = 0;
  while (end < text.size() && digits <= 16) {
    if (IsDigit(text[end])) {
      const std::size_t begin = end;
      while (end < text.size() && IsDigit(text[end])) ++end;
      digits += end - begin;
      words += (words.empty() ? "" : (gaps == 0 || words == "plus" ? " " : ", ")) +
               DigitWords(text.substr(begin, end - begin));
      good = end;
      gaps = 0;
      continue;
    }
    const std::size_t before = end;
    if (CharAt(text, end) == '(' || CharAt(text, end) == ')' || CharAt(text, end) == '/') ++end;
    if (end == before) end = SkipBlanks(text, end, 1);
    if (end == before) end += DashAt(text, end);
    if (end == before || ++gaps > 3) break;
  }
  const bool single = good - at == digits;
  if (digits < 6 || digits > 16 || (single && text[at] == '0' && digits < 7) || CharAt(text, good) == ',' ||
      CharAt(text, good) == '.') {
    const bool sentence =
        (CharAt(text, good) == ',' || CharAt(text, good) == '.') && !DigitFollows(text, good + 1);
    if (digits < 6 || digits > 16 || !sentence) return std::nullopt;
  }
  return SpokenMatch{good - at, words};
}

// "2:1" of a match, "1:100" of a scale.
Found RatioAt(std::string_view text, std::size_t at) {
  const auto first = DigitsAt(text, at, 4);
  if (!first || CharAt(text, first->end) != ':') return std::nullopt;
  const auto second = NumberAt(text, first->end + 1);
  if (!second || !second->IsWhole() || CharAt(text, second->end) == ':') return std::nullopt;
  return SpokenMatch{second->end - at, CardinalWords(first->value) + " zu " + CardinalWords(second->value)};
}

struct Fraction {
  std::uint64_t numerator;
  std::uint64_t denominator;
};

std::string FractionWords(Fraction fraction) {
  if (fraction.denominator == 2)
    return fraction.numerator == 1 ? "ein halb" : CardinalWords(fraction.numerator) + " halbe";
  std::string part = OrdinalWords(fraction.denominator, "el");
  return CardinalWords(fraction.numerator, "ein") + " " + part;
}

struct FractionSign {
  std::string_view sign;
  Fraction fraction;
};
constexpr std::array kFractionSigns{FractionSign{"½", {1, 2}}, FractionSign{"¼", {1, 4}},
                                    FractionSign{"¾", {3, 4}}, FractionSign{"⅓", {1, 3}},
                                    FractionSign{"⅔", {2, 3}}, FractionSign{"⅛", {1, 8}}};

// The fraction, and where it ends.
std::optional<std::pair<Fraction, std::size_t>> FractionAt(std::string_view text, std::size_t at) {
  for (const FractionSign& one : kFractionSigns) {
    if (at < text.size() && text.substr(at).starts_with(one.sign))
      return std::pair(one.fraction, at + one.sign.size());
  }
  const auto numerator = DigitsAt(text, at, 2);
  if (!numerator || CharAt(text, numerator->end) != '/') return std::nullopt;
  const auto denominator = DigitsAt(text, numerator->end + 1, 2);
  if (!denominator || denominator->value < 2 || denominator->value > 20 || numerator->value < 1 ||
      numerator->value >= denominator->value || CharAt(text, denominator->end) == '/')
    return std::nullopt;
  return std::pair(Fraction{numerator->value, denominator->value}, denominator->end);
}

// "½ TL", "1 ½ l", "3/4".
Found FractionPhraseAt(std::string_view text, std::size_t at) {
  std::string words;
  std::size_t begin = at;
  const auto whole = DigitsAt(text, at, 3);
  if (whole) {
    const std::size_t next = SkipBlanks(text, whole->end, 1);
    const auto fraction = FractionAt(text, next);
    if (fraction && (next > whole->end || !IsDigit(text[next]))) {
      begin = next;
      words = CardinalWords(whole->value, "ein");
    }
  }
  const auto fraction = FractionAt(text, begin);
  if (!fraction) return std::nullopt;
  const auto [value, end] = *fraction;
  const auto measure = MeasureAt(text, end);
  if (words.empty() && value.denominator == 2 && value.numerator == 1 && measure) {
    constexpr std::string_view kHalf[] = {"ein halber ", "eine halbe ", "ein halbes "};
    return SpokenMatch{measure->end - at, std::string(kHalf[static_cast<std::size_t>(measure->gender)]) +
                                              std::string(measure->singular)};
  }
  if (words.empty()) {
    words = FractionWords(value);
  } else if (value.denominator == 2 && value.numerator == 1) {
    words += "einhalb";
  } else {
    words += " " + FractionWords(value);
  }
  if (!measure) return SpokenMatch{end - at, words};
  return SpokenMatch{measure->end - at,
                     words + " " + std::string(begin == at ? measure->singular : measure->plural)};
}

// "fünf Euro fünfzig".
std::string MoneyWords(const WrittenNumber& number, const Currency& currency) {
  const bool cents = number.decimals.size() == 2;
  if (!number.IsWhole() && !cents) return NumberWords(number, "ein") + " " + std::string(currency.name);
  std::string words;
  const std::uint64_t rest =
      cents ? static_cast<std::uint64_t>((number.decimals[0] - '0') * 10 + number.decimals[1] - '0') : 0;
  if (number.value == 0 && rest > 0) return CardinalWords(rest, "ein") + " " + std::string(currency.part);
  words = CardinalWords(number.value, "ein") + " " + std::string(currency.name);
  if (rest > 0) words += " " + CardinalWords(rest, "eins");
  return words;
}

// "5,50 €", "€ 5", "3 Mio. Euro", "5,– €".
Found MoneyAt(std::string_view text, std::size_t at) {
  const auto number = NumberAt(text, at);
  if (!number) return std::nullopt;
  std::size_t end = number->end;
  if (CharAt(text, end) == ',' && DashAt(text, end + 1) != 0) end += 1 + DashAt(text, end + 1);
  const auto currency = CurrencyAt(text, SkipBlanks(text, end, 1));
  if (!currency) return std::nullopt;
  return SpokenMatch{currency->end - at, MoneyWords(*number, *currency)};
}

Found MoneySignFirstAt(std::string_view text, std::size_t at) {
  const auto currency = CurrencyAt(text, at);
  if (!currency) return std::nullopt;
  const auto number = NumberAt(text, SkipBlanks(text, currency->end, 1));
  if (!number) return std::nullopt;
  return SpokenMatch{number->end - at, MoneyWords(*number, *currency)};
}

std::string MeasureWords(const WrittenNumber& number, const Measure& measure) {
  const bool one = number.value == 1 && number.IsWhole();
  const std::string_view form = measure.gender == Gender::Feminine ? "eine" : "ein";
  return NumberWords(number, form) + " " + std::string(one ? measure.singular : measure.plural);
}

Found MeasurePhraseAt(std::string_view text, std::size_t at) {
  const auto number = NumberAt(text, at);
  if (!number) return std::nullopt;
  const auto measure = MeasureAt(text, number->end);
  if (!measure) return std::nullopt;
  // Half a million is money or people.
  std::string words = MeasureWords(*number, *measure);
  std::size_t end = measure->end;
  if (const auto currency = CurrencyAt(text, SkipBlanks(text, end, 1)); measure->counts && currency) {
    words += " " + std::string(currency->name);
    end = currency->end;
  }
  return SpokenMatch{end - at, words};
}

// "10–12 kg", "S. 10–12", "3 x 4 m", and other numbers with a dash between.
Found RangeAt(std::string_view text, std::size_t at) {
  const auto first = NumberAt(text, at);
  if (!first) return std::nullopt;
  const std::size_t gap = SkipBlanks(text, first->end, 1);
  std::string_view between = " bis ";
  std::size_t length = DashAt(text, gap);
  const bool times = StandsAt(text, gap, "x") || text.substr(std::min(gap, text.size())).starts_with("×");
  if (times) {
    between = " mal ";
    length = text[gap] == 'x' ? 1 : 2;
  }
  const bool word = StandsAt(text, gap, "bis");
  if (word) length = 3;
  if (length == 0) return std::nullopt;
  const auto second = NumberAt(text, SkipBlanks(text, gap + length, 1));
  if (!second) return std::nullopt;
  const bool hyphen = word || (!times && text[gap] == '-');
  const std::string words = NumberWords(*first, "eins") + std::string(between);
  if (const auto rest = MoneyAt(text, second->end - second->digits.size() -
                                          (second->IsWhole() ? 0 : second->decimals.size() + 1))) {
    const std::size_t begin =
        second->end - second->digits.size() - (second->IsWhole() ? 0 : second->decimals.size() + 1);
    return SpokenMatch{begin + rest->length - at, words + rest->words};
  }
  if (const auto measure = MeasureAt(text, second->end)) {
    return SpokenMatch{measure->end - at, words + MeasureWords(*second, *measure)};
  }
  // A hyphen may part a number of any kind; years and other whole numbers with a dash are a range.
  if (hyphen || DashAt(text, second->end) != 0) return std::nullopt;
  const bool years = first->digits.size() == 4 && !first->grouped;
  return SpokenMatch{second->end - at,
                     (years ? YearWords(first->value) : NumberWords(*first, "eins")) + std::string(between) +
                         (second->digits.size() == 4 && !second->grouped ? YearWords(second->value)
                                                                         : NumberWords(*second, "eins"))};
}

// "2. Weltkrieg" behind an article or before a word that is counted.
Found OrdinalAt(std::string_view text, std::size_t at) {
  const auto number = DigitsAt(text, at, 4);
  if (!number || number->value == 0 || CharAt(text, number->end) != '.') return std::nullopt;
  const std::size_t next = SkipBlanks(text, number->end + 1, 1);
  if (next == number->end + 1) return std::nullopt;
  const std::string_view noun = WordAt(text, next);
  if (noun.empty()) return std::nullopt;
  auto ending = OrdinalEnding(text, at);
  if (ending.empty()) ending = EndingByNoun(noun);
  const bool joined = IsOneOf(noun, {"und", "bis", "oder"}) && !OrdinalEnding(text, at).empty();
  if (ending.empty() || !(IsUpperAt(text, next) || joined)) return std::nullopt;
  return SpokenMatch{number->end + 1 - at, OrdinalWords(number->value, ending)};
}

Found PlainYearAt(std::string_view text, std::size_t at) {
  const auto number = DigitsAt(text, at, 4);
  if (!number || number->digits.size() != 4 || number->value < 1100 || number->value > 1999)
    return std::nullopt;
  const char next = CharAt(text, number->end);
  if ((next == ',' || next == '.' || next == ':' || next == '/') && DigitFollows(text, number->end + 1))
    return std::nullopt;
  const std::size_t word = SkipBlanks(text, number->end, 1);
  const std::string_view noun = WordAt(text, word);
  const bool counts =
      IsOneOf(noun, {"Meter", "Kilometer", "Gramm", "Liter", "Menschen", "Personen", "Stück", "Seiten", "Mal",
                     "Tage", "Stunden", "Einwohner", "Teile", "Umdrehungen", "Mitarbeiter", "Zeichen"});
  if (counts || DashAt(text, number->end) != 0 ||
      IsOneOf(WordBefore(text, at), {"Nummer", "Artikel", "Zimmer"}))
    return std::nullopt;
  const bool decade = StandsAt(text, number->end, "er");
  return SpokenMatch{number->end + (decade ? 2 : 0) - at, YearWords(number->value) + (decade ? "er" : "")};
}

// "3,14" and "1.250.000": what an engine would read as two numbers.
Found LongNumberAt(std::string_view text, std::size_t at) {
  const auto number = NumberAt(text, at);
  if (!number || (number->IsWhole() && !number->grouped)) return std::nullopt;
  const char next = CharAt(text, number->end);
  if ((next == ',' || next == '.') && DigitFollows(text, number->end + 1)) return std::nullopt;
  return SpokenMatch{number->end - at, NumberWords(*number, "eins")};
}

// "1 Woche", "1 Kind".
Found OneNounAt(std::string_view text, std::size_t at) {
  const auto number = DigitsAt(text, at, 1);
  if (!number || number->value != 1) return std::nullopt;
  const std::size_t next = SkipBlanks(text, number->end, 1);
  if (next == number->end) return std::nullopt;
  const auto ending = EndingByNoun(WordAt(text, next));
  if (ending.empty()) return std::nullopt;
  return SpokenMatch{1, ending == "e" ? "eine" : "ein"};
}

// "2x täglich".
Found TimesAt(std::string_view text, std::size_t at) {
  const auto number = DigitsAt(text, at, 3);
  if (!number || CharAt(text, number->end) != 'x' || CharAt(text, number->end + 1) != ' ')
    return std::nullopt;
  if (WordAt(text, number->end + 2).empty()) return std::nullopt;
  return SpokenMatch{number->end + 1 - at, CardinalWords(number->value, "ein") + "mal"};
}

// A version, an address, a serial number: every digit and point as it stands.
Found OtherDigitsAt(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && (IsDigit(text[end]) || ((text[end] == '.' || text[end] == ',' ||
                                                       text[end] == ':' || text[end] == '/') &&
                                                      DigitFollows(text, end + 1))))
    ++end;
  return SpokenMatch{end - at, std::string(text.substr(at, end - at))};
}

Found SignedAt(std::string_view text, std::size_t at) {
  const std::size_t sign = text[at] == '-' ? 1 : (text.substr(at).starts_with("−") ? 3 : 0);
  if (sign == 0 || !DigitFollows(text, at + sign)) return std::nullopt;
  if (at > 0 && text[at - 1] != ' ' && text[at - 1] != '(' && text[at - 1] != '\n') return std::nullopt;
  const auto measure = MeasurePhraseAt(text, at + sign);
  if (measure) return SpokenMatch{sign + measure->length, "minus " + measure->words};
  const auto money = MoneyAt(text, at + sign);
  if (money) return SpokenMatch{sign + money->length, "minus " + money->words};
  return std::nullopt;
}

}  // namespace

std::string_view OrdinalEnding(std::string_view text, std::size_t at) {
  const std::string_view before = WordBefore(text, at);
  if (IsOneOf(before,
              {"am",     "Am",     "vom",     "Vom",      "zum",     "Zum",    "dem",     "Dem",    "den",
               "Den",    "beim",   "Beim",    "im",       "Im",      "ab",     "Ab",      "bis",    "Bis",
               "seit",   "Seit",   "des",     "einem",    "einen",   "jeden",  "diesem",  "diesen", "ihren",
               "seinen", "meinen", "unseren", "ihrem",    "seinem",  "meinem", "unserem", "zur",    "Zur",
               "ins",    "ans",    "aufs",    "nächsten", "letzten", "ersten"}))
    return "en";
  if (IsOneOf(before, {"der",    "die",    "das",   "Der",   "Die",   "Das",   "diese", "dieser",
                       "dieses", "jede",   "jeder", "jedes", "eine",  "Eine",  "ihre",  "seine",
                       "meine",  "unsere", "Ihre",  "Seine", "Meine", "Unsere"})) {
    if (before != "der") return "e";
    const auto begin = static_cast<std::size_t>(before.data() - text.data());
    // "in der 5. Klasse", "Wagen der 2. Klasse".
    const std::string_view earlier = WordBefore(text, begin);
    return IsPreposition(earlier) || (earlier.size() > 1 && IsUpperAt(earlier, 0)) ? "en" : "e";
  }
  if (IsOneOf(before,
              {"ein", "Ein", "kein", "sein", "ihr", "mein", "unser", "Sein", "Ihr", "Mein", "Unser"})) {
    const std::size_t dot = text.find('.', at);
    const auto byNoun =
        EndingByNoun(WordAt(text, SkipBlanks(text, dot == std::string_view::npos ? at : dot + 1)));
    return byNoun.empty() ? "er" : byNoun;
  }
  return {};
}

std::optional<SpokenMatch> NumberPhraseAt(std::string_view text, std::size_t at) {
  if (!IsDigit(text[at])) {
    for (const auto rule : {&PhoneAt, &SignedAt, &FractionPhraseAt, &MoneySignFirstAt}) {
      if (auto found = rule(text, at)) return found;
    }
    return std::nullopt;
  }
  for (const auto rule :
       {&PhoneAt, &DayBeforeDateAt, &DateAt, &TimeAt, &FractionPhraseAt, &RatioAt, &RangeAt, &MoneyAt,
        &MeasurePhraseAt, &OrdinalAt, &OneNounAt, &TimesAt, &PlainYearAt, &LongNumberAt, &OtherDigitsAt}) {
    if (auto found = rule(text, at)) return found;
  }
  return std::nullopt;
}

std::optional<SpokenMatch> RomanAt(std::string_view text, std::size_t at) {
  const std::string_view numeral = WordAt(text, at);
  const std::uint64_t value = numeral.size() <= 15 ? RomanValue(numeral) : 0;
  if (value == 0) return std::nullopt;
  const std::string_view before = WordBefore(text, at);
  if (before.empty()) return std::nullopt;
  const auto begin = static_cast<std::size_t>(before.data() - text.data());
  const bool point = CharAt(text, at + numeral.size()) == '.';
  if (IsOneOf(before, {"Kapitel", "Teil", "Band", "Akt", "Abschnitt", "Buch", "Artikel", "Klasse", "Typ"})) {
    return SpokenMatch{numeral.size(), CardinalWords(value)};
  }
  const std::size_t end = at + numeral.size() + (point ? 1 : 0);
  const std::string_view noun = WordAt(text, SkipBlanks(text, end, 1));
  if (point && IsOneOf(noun, {"Jahrhundert", "Jahrhunderts", "Weltkrieg", "Weltkriegs", "Akt", "Kapitel",
                              "Olympischen"})) {
    const auto ending = OrdinalEnding(text, at);
    return SpokenMatch{end - at, OrdinalWords(value, ending.empty() ? "e" : ending)};
  }
  if (!point || !IsUpperAt(before, 0) || before.size() < 3 || value > 30) return std::nullopt;
  const std::string_view article = WordBefore(text, begin);
  const bool genitive = IsOneOf(article, {"Königs", "Kaisers", "Papstes"}) || IsGenitive(before);
  const bool dative =
      IsOneOf(article, {"von", "mit", "unter", "bei", "nach", "zu", "vor", "König", "Kaiser"}) &&
      !IsOneOf(article, {"König", "Kaiser"});
  // "Max I. Meyer" has a second name.
  if (value == 1 && IsUpperAt(text, SkipBlanks(text, end, 1))) return std::nullopt;
  const bool woman = IsWomansName(before) || (genitive && IsWomansName(before.substr(0, before.size() - 1)));
  std::string words = genitive ? "des " : (dative ? "dem " : "der ");
  if (woman) words = genitive || dative ? "der " : "die ";
  std::string ordinal = OrdinalWords(value, genitive || dative ? "en" : "e");
  if (ordinal[0] >= 'a' && ordinal[0] <= 'z') ordinal[0] = static_cast<char>(ordinal[0] - 'a' + 'A');
  if (ordinal.starts_with("fünf")) ordinal = "F" + ordinal.substr(1);
  const std::size_t next = SkipBlanks(text, end);
  const bool ends = next >= text.size() || text[next] == '\n';
  return SpokenMatch{end - at, words + ordinal + (ends ? "." : "")};
}

}  // namespace lorelin
