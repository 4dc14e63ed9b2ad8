#include "german/amounts.h"

#include <algorithm>

#include "german/grammar.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

Agreement AgreementOf(Gender gender) {
  return {gender, false, false, true};
}

// A point that ends the unit and the sentence stays.
std::size_t EndOfUnit(const Tokens& tokens, std::size_t end) {
  return tokens.Is(end - 1, ".") && tokens.IsLast(end - 1) ? end - 1 : end;
}

// What a number of a measure is, with the tokens it stands in.
struct Quantity {
  std::string words;         // of a number other than one
  bool one = false;          // 1, to be said by its gender
  bool singular = false;     // the unit stands in the singular: "ein halber Liter"
  std::uint64_t halves = 0;  // 1 for a half: "ein halber"
  std::string part;          // of "ein viertel": "viertel"
  std::size_t end = 0;
  WrittenNumber number;
};

// "1 ½", "2 1/2", "½".
std::optional<Quantity> FractionQuantityAt(const Tokens& tokens, std::size_t i) {
  if (const auto fraction = FractionAt(tokens, i)) {
    Quantity quantity;
    quantity.halves = fraction->denominator == 2 ? 1 : 0;
    if (fraction->numerator == 1 && fraction->denominator > 2)
      quantity.part = OrdinalWords(fraction->denominator, "el");
    quantity.words = FractionText(*fraction);
    quantity.singular = true;
    quantity.end = fraction->end;
    return quantity;
  }
  const auto whole = DigitsAt(tokens, i, 3);
  if (!whole || *whole == 0) return std::nullopt;
  const std::size_t next = tokens.Skip(i + 1);
  const auto fraction = FractionAt(tokens, next);
  if (!fraction || (next == i + 1 && !IsFractionSign(tokens.View(next)))) return std::nullopt;
  Quantity quantity;
  const bool half = fraction->denominator == 2;
  quantity.words = CardinalWords(*whole, "ein");
  if (half) {
    quantity.words += "einhalb";
  } else if (fraction->denominator == 4) {
    quantity.words += fraction->numerator == 1 ? "einviertel" : "dreiviertel";
  } else {
    quantity.words += " " + FractionText(*fraction);
  }
  quantity.end = fraction->end;
  return quantity;
}

std::optional<Quantity> QuantityAt(const Tokens& tokens, std::size_t i) {
  if (auto fraction = FractionQuantityAt(tokens, i)) return fraction;
  const auto number = NumberAt(tokens, i);
  if (!number) return std::nullopt;
  Quantity quantity;
  quantity.number = *number;
  quantity.one = number->IsOne();
  quantity.words = NumberText(*number, "ein");
  quantity.end = number->end;
  return quantity;
}

// The number before a measure of this gender.
std::string QuantityWords(const Tokens& tokens, std::size_t first, std::size_t behind,
                          const Quantity& quantity, Gender gender) {
  if (quantity.halves == 1) return OneHalfBefore(tokens, first, behind, AgreementOf(gender));
  if (quantity.one) return OneBefore(tokens, first, behind, AgreementOf(gender));
  if (!quantity.part.empty() && CaseAt(tokens, first, behind) == Case::Dative)
    return OneBefore(tokens, first, behind, AgreementOf(gender)) + " " + quantity.part;
  return quantity.words;
}

std::string UnitWords(const Tokens& tokens, std::size_t first, std::size_t behind, const Quantity& quantity,
                      const Unit& unit) {
  if (quantity.one || quantity.singular) return unit.singular;
  return CaseAt(tokens, first, behind) == Case::Dative ? unit.dativePlural : unit.plural;
}

// Money.

std::uint64_t Hundredths(const WrittenNumber& number) {
  return static_cast<std::uint64_t>((number.decimals[0] - '0') * 10 + number.decimals[1] - '0');
}

std::string CurrencyName(const Currency& currency, bool one) {
  std::string name(currency.name);
  if (one && name.ends_with("Kronen")) name.pop_back();
  return name;
}

std::string MoneyWords(const Tokens& tokens, std::size_t first, std::size_t behind, const Quantity& quantity,
                       const Currency& currency) {
  const WrittenNumber& number = quantity.number;
  const bool cents = number.decimals.size() == 2 && !currency.hundredth.empty();
  const std::string whole = quantity.one || (cents && number.value == 1)
                                ? OneBefore(tokens, first, behind, AgreementOf(currency.gender))
                                : CardinalWords(number.value);
  if (number.IsWhole())
    return QuantityWords(tokens, first, behind, quantity, currency.gender) + " " +
           CurrencyName(currency, quantity.one);
  if (!cents) return NumberText(number) + " " + std::string(currency.name);
  const std::uint64_t rest = Hundredths(number);
  if (number.value == 0 && rest > 0)
    return CardinalWords(rest, "ein") + " " + std::string(currency.hundredth);
  std::string words = whole + " " + CurrencyName(currency, number.value == 1);
  if (rest > 0) words += " " + CardinalWords(rest);
  return words;
}

// "5,– €", "5,-".
std::size_t BehindDashes(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, ",") && !tokens.Is(i, ".")) return i;
  std::size_t end = i + 1;
  while (tokens.IsDashAt(end) && end < i + 3) ++end;
  return end > i + 1 ? end : i;
}

std::string PerWords(const Tokens& tokens, std::size_t& end) {
  const auto per = PerAt(tokens, end);
  if (!per) return {};
  end = per->end;
  return per->words;
}

Found MoneyAt(const Tokens& tokens, std::size_t i, std::size_t first) {
  const auto quantity = QuantityAt(tokens, i);
  if (!quantity) return std::nullopt;
  const std::size_t dashes = BehindDashes(tokens, quantity->end);
  const auto currency = CurrencyAt(tokens, tokens.Skip(dashes));
  if (!currency || (tokens.Is(tokens.Skip(dashes), "Fr") && quantity->number.value > 24 && false))
    return std::nullopt;
  std::size_t end = currency->end;
  std::string words =
      quantity->singular || quantity->number.whole.empty()
          ? QuantityWords(tokens, first, end, *quantity, currency->gender) + " " + std::string(currency->name)
          : MoneyWords(tokens, first, end, *quantity, *currency);
  words += PerWords(tokens, end);
  return Phrase{EndOfUnit(tokens, end), words};
}

// Measures.

// What may stand behind "Mio.": a unit, a currency, or nothing of the kind.
std::string MultipliedWords(const Tokens& tokens, std::size_t& end) {
  const std::size_t next = tokens.Skip(end);
  std::string words;
  if (const auto currency = CurrencyAt(tokens, next)) {
    words = " " + std::string(currency->name);
    end = currency->end;
    words += PerWords(tokens, end);
  } else if (const auto unit = UnitAt(tokens, next); unit && !unit->isWord) {
    words = " " + unit->plural;
    end = unit->end;
  }
  return words;
}

std::string MultipleWords(const Tokens& tokens, std::size_t first, const Quantity& quantity,
                          const Unit& multiple) {
  const std::string number = multiple.singular == "tausend"
                                 ? quantity.words
                                 : QuantityWords(tokens, first, multiple.end, quantity, multiple.gender);
  const std::string& name = quantity.one || quantity.singular ? multiple.singular : multiple.plural;
  return number + (multiple.singular == "tausend" && quantity.number.IsWhole() ? "" : " ") + name;
}

bool HasElectricContext(const Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.Count() && i < 60; ++i) {
    const auto word = WithLowerStart(tokens.View(i));
    if (tokens.IsWord(i) &&
        (IsOneOf(word, {"v", "w", "kW", "volt", "watt", "hz"}) ||
         HasSuffix(word, {"strom",          "sicherung",         "sicherungen", "ampere",    "spannung",
                          "netzteil",       "ladegerät",         "akku",        "batterie",  "leitung",
                          "steckdose",      "stromstärke",       "abgesichert", "anschluss", "kabel",
                          "ladestrom",      "sicherungsautomat", "automat",     "fließen",   "fließt",
                          "schutzschalter", "stromkreis"})))
      return true;
  }
  return false;
}

// "5 A" is a flat or a class as well, "Zimmer 5 m" no metre.
bool IsRealUnit(const Tokens& tokens, std::size_t first, const Quantity& quantity, std::size_t unitAt,
                const Unit& unit) {
  if (unit.isWord) return true;
  if (unit.singular == "Ampere")
    return !quantity.number.IsWhole() || (HasElectricContext(tokens) && !LabelBefore(tokens, first));
  const auto sign = tokens.View(unitAt);
  const bool letter = sign.size() == 1 && tokens.IsWord(unitAt);
  if (letter && LabelBefore(tokens, first)) return false;
  // "24 h", "5 m" beside a dash belong to a longer word: "100-m-Lauf" is read elsewhere.
  if (unit.singular.starts_with("Grad") && sign == "°" && tokens.IsNumber(unit.end)) return false;
  return !(tokens.IsDashAt(unit.end) && tokens.IsWord(unit.end + 1));
}

Found MeasureAt(const Tokens& tokens, std::size_t i, std::size_t first) {
  const auto quantity = QuantityAt(tokens, i);
  if (!quantity) return std::nullopt;
  const std::size_t at = tokens.Skip(quantity->end);
  if (const auto multiple = MultipleAt(tokens, at)) {
    std::size_t end = multiple->end;
    const std::string rest = MultipliedWords(tokens, end);
    return Phrase{EndOfUnit(tokens, end), MultipleWords(tokens, first, *quantity, *multiple) + rest};
  }
  const auto unit = UnitAt(tokens, at);
  if (!unit || !IsRealUnit(tokens, first, *quantity, at, *unit)) return std::nullopt;
  return Phrase{EndOfUnit(tokens, unit->end),
                QuantityWords(tokens, first, unit->end, *quantity, unit->gender) + " " +
                    UnitWords(tokens, first, unit->end, *quantity, *unit)};
}

Found SumAt(const Tokens& tokens, std::size_t i, std::size_t first) {
  if (auto money = MoneyAt(tokens, i, first)) return money;
  return MeasureAt(tokens, i, first);
}

// "10–12 kg", "5 bis 7 €", "3 x 4 m", "5 % bis 7 %" is read in parts.

struct Between {
  std::string_view words;
  std::size_t end = 0;
};

std::optional<Between> BetweenAt(const Tokens& tokens, std::size_t i) {
  const std::size_t at = tokens.Skip(i);
  if (tokens.Is(at, "…")) return Between{" bis ", tokens.Skip(at + 1)};
  if (tokens.IsDashAt(at)) return Between{" bis ", tokens.Skip(at + 1)};
  if (tokens.Is(at, "bis") && at > i) return Between{" bis ", tokens.Skip(at + 1)};
  const bool times = tokens.Is(at, "×") ||
                     (tokens.Is(at, "x") && (at > i ? tokens.IsBlank(at + 1) : tokens.IsNumber(at + 1))) ||
                     (tokens.Is(at, "*") && tokens.IsNumber(tokens.Skip(at + 1)));
  if (times) return Between{" mal ", tokens.Skip(at + 1)};
  return std::nullopt;
}

// The first number of a range that a unit follows; a 1 stays "ein" before one.
std::string FirstWords(const Quantity& quantity) {
  return quantity.one ? "ein" : quantity.words;
}

bool IsRisingOrProduct(const Quantity& first, const Quantity& second, std::string_view between) {
  if (between == " mal ") return true;
  return first.number.whole.empty() || second.number.whole.empty() ||
         first.number.value <= second.number.value;
}

Found MeasureSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = QuantityAt(tokens, i);
  if (!first) return std::nullopt;
  const auto between = BetweenAt(tokens, first->end);
  if (!between) return std::nullopt;
  std::size_t at = between->end;
  std::string middle;
  auto second = QuantityAt(tokens, at);
  // "3 x 4 x 5 cm".
  if (second && between->words == " mal ") {
    const auto more = BetweenAt(tokens, second->end);
    if (more && more->words == " mal " && QuantityAt(tokens, more->end)) {
      middle = second->words + " mal ";
      at = more->end;
      second = QuantityAt(tokens, at);
    }
  }
  if (!second || !IsRisingOrProduct(*first, *second, between->words)) return std::nullopt;
  auto sum = SumAt(tokens, at, i);
  if (!sum) {
    const auto unit = UnitAt(tokens, tokens.Skip(second->end));
    if (!unit || !unit->isWord) return std::nullopt;
    return Phrase{second->end, FirstWords(*first) + std::string(between->words) + middle + second->words};
  }
  return Phrase{sum->end, FirstWords(*first) + std::string(between->words) + middle + sum->words};
}

}  // namespace

Found AmountAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.FreeBefore(i)) return std::nullopt;
  const bool dosage = i >= 2 && tokens.IsDashAt(i - 1) && tokens.IsNumber(i - 2);  // "20-20-20 Tropfen"
  if (auto span = dosage ? Found() : MeasureSpanAt(tokens, i)) return span;
  return SumAt(tokens, i, i);
}

Found CurrencyFirstAt(const Tokens& tokens, std::size_t i) {
  const auto currency = CurrencyAt(tokens, i);
  if (!currency || currency->isWord || (tokens.IsWord(i) && !tokens.FreeBefore(i))) return std::nullopt;
  const std::size_t at = tokens.Skip(currency->end);
  const auto quantity = QuantityAt(tokens, at);
  if (!quantity || quantity->number.whole.empty()) return std::nullopt;
  if (const auto multiple = MultipleAt(tokens, tokens.Skip(quantity->end)))
    return Phrase{EndOfUnit(tokens, multiple->end),
                  MultipleWords(tokens, i, *quantity, *multiple) + " " + std::string(currency->name)};
  if (quantity->number.IsYear() && tokens.IsDashAt(quantity->end)) return std::nullopt;
  const std::size_t end = BehindDashes(tokens, quantity->end);
  return Phrase{end, MoneyWords(tokens, i, end, *quantity, *currency)};
}

Found SignedAt(const Tokens& tokens, std::size_t i) {
  const auto sign = tokens.View(i);
  const bool minus = IsOneOf(sign, {"-", "−", "–"});
  if ((!minus && sign != "+" && sign != "±") || !tokens.IsNumber(i + 1)) return std::nullopt;
  const bool free =
      i == 0 || tokens.IsGap(i - 1) || IsOneOf(tokens.View(i - 1), {"(", "[", "=", "<", ">", "/", ":", "„"});
  if (!free) return std::nullopt;
  // Between two numbers it is a range or a sum: "5 -7".
  const std::size_t before = tokens.Before(i);
  if (before != Tokens::kNone && tokens.IsNumber(before)) return std::nullopt;
  const std::string name = minus ? "minus " : (sign == "+" ? "plus " : "plus minus ");
  if (auto amount = AmountAt(tokens, i + 1)) return Phrase{amount->end, name + amount->words};
  const auto number = NumberAt(tokens, i + 1);
  if (!number) return std::nullopt;
  const bool degrees = UnitAt(tokens, tokens.Skip(number->end)).has_value();
  // At the beginning of a line it is the dash of a list.
  if (tokens.OpensLine(i) && !degrees && !tokens.IsLast(number->end - 1)) return std::nullopt;
  if (!tokens.FreeBehind(number->end - 1) || tokens.IsDashAt(number->end)) return std::nullopt;
  // "-12 bis -5 Grad": only the sign changes.
  if (number->IsWhole() && !number->grouped) return Phrase{i + 1, name};
  return Phrase{number->end, name + NumberText(*number)};
}

namespace {

bool IsCodeBefore(const Tokens& tokens, std::size_t i) {
  const auto before = tokens.WordBefore(i);
  if (IsAllCaps(before) && !IsOneOf(before, {"KW", "SS", "WS"})) return true;
  return IsOneOf(before,
                 {"Nr",         "Nummer",       "Code",    "Artikelnummer", "Norm",         "Konto",
                  "Modell",     "Typ",          "Telefon", "Tel",           "Fax",          "Kennzeichen",
                  "Durchwahl",  "Aktenzeichen", "Az",      "Bestellnummer", "Kundennummer", "Rechnungsnummer",
                  "Drucksache", "Rechnung",     "Version"});
}

// Two digits that shorten the second year: "2019/20", "1914-18".
bool ShortensYear(const WrittenNumber& first, const Tokens& tokens, std::size_t second) {
  if (!first.IsYear() || !tokens.IsNumber(second, 2, 2) || first.value < 1100 || first.value > 2200)
    return false;
  return *DigitsAt(tokens, second, 2) == (first.value + 1) % 100 ||
         *DigitsAt(tokens, second, 2) > first.value % 100;
}

// "2019/20", "2023/2024", "1998/99".
Found StrokedYearsAt(const Tokens& tokens, std::size_t i) {
  const auto first = NumberAt(tokens, i);
  if (!first || !first->IsYear() || first->value < 1100 || first->value > 2200 || !tokens.Is(first->end, "/"))
    return std::nullopt;
  const std::size_t second = first->end + 1;
  if (tokens.Is(second + 1, "/") || !tokens.FreeBehind(second)) return std::nullopt;
  if (LabelBefore(tokens, i) && IsCodeBefore(tokens, i)) return std::nullopt;
  if (tokens.IsNumber(second, 4, 4) && *DigitsAt(tokens, second, 4) == first->value + 1)
    return Phrase{second + 1, YearWords(first->value) + " " + YearWords(first->value + 1)};
  if (!tokens.IsNumber(second, 2, 2) ||
      *DigitsAt(tokens, second, 2) <= first->value % 100 - (first->value % 100 == 99 ? 99 : 0))
    return std::nullopt;
  const auto digits = tokens.View(second);
  return Phrase{second + 1, YearWords(first->value) + " " +
                                (digits.front() == '0' ? DigitWords(digits)
                                                       : CardinalWords(*DigitsAt(tokens, second, 2)))};
}

std::string SpanWords(const WrittenNumber& number) {
  return number.value >= 1100 ? NumberOrYearText(number) : NumberText(number);
}

}  // namespace

Found SpanAt(const Tokens& tokens, std::size_t i) {
  if (auto years = StrokedYearsAt(tokens, i)) return years;
  const auto first = NumberAt(tokens, i);
  if (!first) return std::nullopt;
  const auto between = BetweenAt(tokens, first->end);
  if (!between) return std::nullopt;
  const std::size_t at = between->end;
  // "2020–heute".
  if (between->words == " bis " && IsOneOf(tokens.View(at), {"heute", "jetzt"}) && first->IsYear() &&
      tokens.IsDashAt(tokens.Skip(first->end)))
    return Phrase{at, NumberOrYearText(*first) + " bis "};
  const auto second = NumberAt(tokens, at);
  if (!second || !tokens.FreeBehind(second->end - 1) || tokens.IsDashAt(second->end)) return std::nullopt;
  if (i > 0 && (tokens.IsDashAt(i - 1) || IsOneOf(tokens.View(i - 1), {"/", ".", ":"}))) return std::nullopt;
  if (tokens.Is(second->end, "/") && tokens.IsNumber(second->end + 1)) return std::nullopt;
  if (between->words == " mal ")
    return Phrase{second->end, NumberText(*first) + " mal " + NumberText(*second)};
  const bool word = tokens.Is(tokens.Skip(first->end), "bis");
  const bool shortened = ShortensYear(*first, tokens, at);
  const bool rising =
      first->value < second->value || shortened || (first->value == second->value && !first->IsWhole());
  if (!word &&
      (!rising || first->whole.front() == '0' || (tokens.Is(first->end, "-") && IsCodeBefore(tokens, i))))
    return std::nullopt;
  if (!word && first->whole.size() > 4 && !first->grouped) return std::nullopt;
  const bool noun = NounBehind(tokens, tokens.Skip(second->end)) != Tokens::kNone;
  const bool countsNoun = noun && !tokens.IsLast(second->end - 1) && !LabelBefore(tokens, i);
  const bool year = first->IsYear() && (second->IsYear() || shortened) && !IsLabel(tokens.WordBefore(i));
  std::string left = year ? SpanWords(*first) : NumberText(*first, countsNoun ? "ein" : "eins");
  std::string right = year ? SpanWords(*second) : NumberText(*second);
  return Phrase{second->end, left + " bis " + right};
}

namespace {

bool MayBeFraction(const Tokens& tokens, std::size_t i, const Fraction& fraction) {
  if (IsFractionSign(tokens.View(i))) return true;
  if (!tokens.FreeBefore(i) || !tokens.FreeBehind(fraction.end - 1) || tokens.Is(fraction.end, "/"))
    return false;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {"/", "-", ".", ","})) return false;
  if (tokens.IsDashAt(fraction.end) || LabelBefore(tokens, i) || IsAllCaps(tokens.WordBefore(i)))
    return false;
  const std::size_t next = tokens.Skip(fraction.end);
  if (IsOneOf(tokens.View(next),
              {"der", "des", "aller", "davon", "von", "seiner", "ihrer", "unserer", "meiner", "dieser"}))
    return true;
  const bool usual = IsOneOf(tokens.View(fraction.end - 1), {"2", "3", "4", "5", "6", "8", "10", "100"});
  if (tokens.IsCapital(next) && next > fraction.end) return !StartsSentences(tokens.View(next)) && usual;
  return usual;
}

// "1/2 Liter", "eine halbe Zitrone".
Found FractionOfNoun(const Tokens& tokens, std::size_t i, const Fraction& fraction) {
  const std::size_t at = tokens.Skip(fraction.end);
  const std::size_t noun = NounBehind(tokens, at);
  if (noun == Tokens::kNone || at == fraction.end || StartsSentences(tokens.View(noun))) return std::nullopt;
  const Agreement agreement = AgreementAt(tokens, noun);
  if (!agreement.known || agreement.plural || fraction.numerator != 1) return std::nullopt;
  if (fraction.denominator == 2) return Phrase{fraction.end, OneHalfBefore(tokens, i, noun + 1, agreement)};
  if (CaseAt(tokens, i, noun + 1) != Case::Dative) return std::nullopt;
  return Phrase{fraction.end,
                OneBefore(tokens, i, noun + 1, agreement) + " " + OrdinalWords(fraction.denominator, "el")};
}

}  // namespace

Found FractionPhraseAt(const Tokens& tokens, std::size_t i) {
  if (const auto mixed = FractionQuantityAt(tokens, i);
      mixed && !mixed->singular && tokens.FreeBehind(mixed->end - 1)) {
    return Phrase{mixed->end, mixed->words};
  }
  const auto fraction = FractionAt(tokens, i);
  if (!fraction || !MayBeFraction(tokens, i, *fraction)) return std::nullopt;
  if (auto half = FractionOfNoun(tokens, i, *fraction)) return half;
  if (fraction->denominator == 2) return Phrase{fraction->end, FractionText(*fraction)};
  const bool many = fraction->numerator > 1 && CaseAt(tokens, i, fraction->end) == Case::Dative;
  return Phrase{fraction->end, CardinalWords(fraction->numerator, "ein") + " " +
                                   WithUpperStart(OrdinalWords(fraction->denominator, many ? "eln" : "el"))};
}

namespace {

// "bei 1 von 100 Patienten": one of them.
Found OneOfMany(const Tokens& tokens, std::size_t i) {
  std::size_t noun = Tokens::kNone;
  for (std::size_t at = i + 2; at < i + 12 && noun == Tokens::kNone; ++at) {
    if (tokens.IsCapital(at)) noun = at;
  }
  if (noun == Tokens::kNone) return std::nullopt;
  const auto word = tokens.View(noun);
  Agreement agreement = AgreementOf(
      HasSuffix(word, {"innen", "ungen", "heiten", "keiten", "ionen", "Frauen", "Personen", "Familien"})
          ? Gender::Feminine
          : Gender::Masculine);
  if (HasSuffix(word, {"Kindern", "Kinder", "Häusern", "Ländern", "Jahren", "Jahre"}))
    agreement.gender = Gender::Neuter;
  std::string one = OneBefore(tokens, i, i + 1, agreement);
  if (one == "ein") one = agreement.gender == Gender::Neuter ? "eines" : "einer";
  return Phrase{i + 1, one};
}

// "1 Tasse", "mit 1 großen Zwiebel".
Found OneNounAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "1") || !tokens.IsBlank(i + 1) || !tokens.FreeBefore(i) || LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "»", "–", "•"}))
    return std::nullopt;
  if (tokens.Is(i + 2, "von")) return OneOfMany(tokens, i);
  const std::size_t noun = NounBehind(tokens, i + 2);
  if (noun == Tokens::kNone || StartsSentences(tokens.View(noun))) return std::nullopt;
  Agreement agreement = AgreementAt(tokens, noun);
  if (agreement.known && agreement.plural) return std::nullopt;
  // Most words that no lexicon knows are masculine; behind another noun the number is its name.
  if (!agreement.known && (tokens.Before(i) == Tokens::kNone ||
                           (tokens.IsCapital(tokens.Before(i)) && !tokens.OpensClause(tokens.Before(i)))))
    return std::nullopt;
  if (!agreement.known) agreement = AgreementOf(Gender::Masculine);
  return Phrase{i + 1, OneBefore(tokens, i, noun + 1, agreement)};
}

// "Wir waren zu 4."
Found TogetherAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 2);
  const std::size_t zu = tokens.WordIndexBefore(i);
  if (!number || *number < 2 || *number > 12 || zu == Tokens::kNone || !tokens.Is(zu, "zu"))
    return std::nullopt;
  const bool alone = IsOneOf(tokens.View(i + 1), {".", ",", "!", "?"}) || tokens.IsGap(i + 1);
  const std::size_t next = tokens.Skip(i + 1);
  if (!alone || tokens.IsCapital(next) || tokens.IsNumber(next) || tokens.IsNumber(i + 2))
    return std::nullopt;
  if (!IsOneOf(tokens.WordBefore(zu),
               {"waren", "sind", "wir", "gingen", "gehen", "kamen", "kommen", "spielen", "spielten", "fahren",
                "fuhren", "leben", "wohnen", "saßen", "sitzen", "reisten", "sie"}))
    return std::nullopt;
  return Phrase{i + 1, OrdinalWords(*number, "")};
}

bool CountsSomething(const Tokens& tokens, std::size_t i, const WrittenNumber& number) {
  const std::size_t next = tokens.Skip(number.end);
  if (next == number.end) return false;
  if (UnitAt(tokens, next) || CurrencyAt(tokens, next) || MultipleAt(tokens, next)) return true;
  if (IsDegreeWord(WithLowerStart(tokens.WordBefore(i))) &&
      !IsOneOf(tokens.WordBefore(i), {"erst", "schon", "noch", "bereits", "zu"}))
    return true;
  const std::size_t noun = NounBehind(tokens, next);
  if (noun == Tokens::kNone) return false;
  const Noun what = NounOf(tokens.View(noun));
  const bool many = (what.known || what.guessed) && what.plural && !StartsSentences(tokens.View(noun));
  return many && !GoesBeforeYears(tokens.WordBefore(i));
}

Found YearAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !number->IsYear() || number->value < 1100 || number->value > 1999) return std::nullopt;
  if (!tokens.FreeBefore(i) || !tokens.FreeBehind(i) || tokens.IsDashAt(i + 1) || LabelBefore(tokens, i))
    return std::nullopt;
  if (i > 0 && (tokens.IsDashAt(i - 1) || IsOneOf(tokens.View(i - 1), {".", ",", ":", "+", "#"})) &&
      !tokens.Is(i - 1, "–"))
    return std::nullopt;
  if (IsOneOf(tokens.View(i + 1), {".", ",", ":", "/"}) && tokens.IsNumber(i + 2)) return std::nullopt;
  if (i > 0 && tokens.Is(i - 1, "/") && number->value < 1900) return std::nullopt;
  // Trains, flights and standards.
  if (IsOneOf(tokens.WordBefore(i), {"LH", "ICE", "IC", "EC", "RE", "RB", "RTX", "GTX", "ISO", "DIN",
                                     "EN", "IEC", "EW", "AF", "BA", "UA", "KL",  "FR",  "LX",  "OS"}))
    return std::nullopt;
  if (CountsSomething(tokens, i, *number)) return std::nullopt;
  return Phrase{i + 1, YearWords(number->value)};
}

// "3,14" and "1.250.000": what an engine would read as two numbers.
Found LongNumberAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || (number->IsWhole() && !number->grouped) || !tokens.FreeBefore(i)) return std::nullopt;
  if (IsOneOf(tokens.View(number->end), {".", ","}) && tokens.IsNumber(number->end + 1)) return std::nullopt;
  if (!number->IsWhole() && number->whole.size() > 1 && number->whole.front() == '0') return std::nullopt;
  if (!tokens.FreeBehind(number->end - 1)) return std::nullopt;
  return Phrase{number->end, NumberText(*number)};
}

// "2x täglich", "3×".
Found TimesAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 3);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t at = tokens.Skip(i + 1);
  const bool times = tokens.Is(at, "x") || tokens.Is(at, "×") || (*number == 1 && tokens.Is(at, "mal"));
  if (!times || !tokens.FreeBehind(at) || tokens.IsNumber(tokens.Skip(at + 1))) return std::nullopt;
  return Phrase{at + 1, CardinalWords(*number, "ein") + "mal"};
}

// "1-2x täglich", "2–3 mal".
Found TimesSpanAt(const Tokens& tokens, std::size_t i) {
  const auto first = DigitsAt(tokens, i, 2);
  if (!first || !tokens.FreeBefore(i) || !tokens.IsDashAt(tokens.Skip(i + 1))) return std::nullopt;
  auto second = TimesAt(tokens, tokens.Skip(tokens.Skip(i + 1) + 1));
  if (!second) return std::nullopt;
  second->words = CardinalWords(*first, "ein") + "- bis " + second->words;
  second->words =
      CardinalWords(*first, "ein") + " bis " + second->words.substr(second->words.find("bis ") + 4);
  return second;
}

}  // namespace

Found PlainNumberAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading : {&TogetherAt, &TimesSpanAt, &TimesAt, &OneNounAt, &YearAt, &LongNumberAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

// "A380", "M8": the number behind letters is said for itself.
Found NumberBehindLettersAt(const Tokens& tokens, std::size_t i) {
  const auto value = DigitsAt(tokens, i, 4);
  if (i == 0 || !value || !tokens.IsWord(i - 1)) return std::nullopt;
  if (const auto number = NumberAt(tokens, i); number && !number->IsWhole())
    return Phrase{number->end, NumberText(*number)};
  return Phrase{i + 1, tokens.View(i).front() == '0' ? DigitWords(tokens.View(i)) : CardinalWords(*value)};
}

namespace {

// "96/min", "50+".
Found NumberWithTailAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  if (tokens.Is(number->end, "+") && tokens.IsGap(number->end + 1))
    return Phrase{number->end + 1, NumberText(*number) + " plus"};
  if (!tokens.Is(number->end, "/")) return std::nullopt;
  // "1/10.000": so many of so many.
  const auto many = NumberAt(tokens, number->end + 1);
  if (number->IsOne() && many && many->IsWhole() && many->value >= 100)
    return Phrase{many->end, "eins zu " + NumberText(*many)};
  const auto per = PerAt(tokens, number->end);
  if (!per || tokens.IsNumber(number->end + 1)) return std::nullopt;
  return Phrase{EndOfUnit(tokens, per->end), NumberText(*number) + per->words};
}

}  // namespace

Found IntegerAt(const Tokens& tokens, std::size_t i) {
  if (auto found = NumberWithTailAt(tokens, i)) return found;
  const auto value = DigitsAt(tokens, i, 12);
  const auto digits = tokens.View(i);
  const bool letter = tokens.IsWord(i + 1) && tokens.View(i + 1).size() == 1 && tokens.FreeBehind(i + 1);
  if (!value || !tokens.FreeBefore(i) || (tokens.IsWord(i + 1) && !letter)) return std::nullopt;
  if (IsOneOf(tokens.View(i + 1), {".", ",", ":", "/"}) && tokens.IsNumber(i + 2) && digits.front() == '0')
    return std::nullopt;
  return Phrase{i + 1,
                digits.size() > 1 && digits.front() == '0' ? DigitWords(digits) : CardinalWords(*value)};
}

// Words that are glued to a number.

namespace {

// What makes an adjective or adverb of a number: "jährig", "fach".
bool IsAdjectivePart(std::string_view word, bool dash) {
  if (IsUpperWord(word))
    return HasSuffix(word, {"ige", "igen", "iger", "iges", "fache", "fachen", "Fache", "Fachen", "Fachem"});
  if (dash && word.size() >= 3 && !IsOneOf(word, {"bis", "und", "oder", "mal"})) return true;
  return word.starts_with("fach") || word.starts_with("mal") ||
         HasSuffix(word, {"ig", "ige", "igen", "iger", "iges", "igem", "lich", "liche", "lichen", "licher",
                          "tonner"});
}

// "einfach", "zweimal"; hundreds lose their "ein" inside a word.
std::string PartWords(std::uint64_t value) {
  if (value == 100) return "hundert";
  if (value == 1000) return "tausend";
  return CardinalWords(value, "ein");
}

// "80er", "1980er-Jahre", "2er-Team".
Found DecadeAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 4);
  std::size_t er = i + 1;
  if (tokens.Is(er, "-") || tokens.Is(er, "'") || tokens.Is(er, "’")) ++er;
  const auto word = tokens.View(er);
  if (!number || !IsOneOf(word, {"er", "ern", "ers"}) || !tokens.FreeBefore(i)) return std::nullopt;
  std::string stem = tokens.IsNumber(i, 4, 4) ? YearWords(*number) : CardinalWords(*number, "eins");
  if (*number == 100 || *number == 1000) stem = PartWords(*number);
  const bool decade = *number % 10 == 0 && *number >= 20;
  if (!decade) stem = WithUpperStart(stem);
  return Phrase{er + 1, stem + std::string(word)};
}

// "20%ige", "5%-Hürde", "100%ig".
Found PercentPartAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t sign = tokens.Skip(number->end);
  if (!tokens.Is(sign, "%")) return std::nullopt;
  std::size_t next = sign + 1;
  if (tokens.Is(next, "-") && tokens.IsWord(next + 1) && !IsUpperWord(tokens.View(next + 1))) ++next;
  const auto word = tokens.View(next);
  if (tokens.IsWord(next) && (word.starts_with("ig")))
    return Phrase{next + 1,
                  (number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein") + " ") +
                      "prozent" + std::string(word)};
  if (tokens.Is(sign + 1, "-") && tokens.IsCapital(sign + 2))
    return Phrase{sign + 1, WithUpperStart(NumberText(*number, "ein")) + "-Prozent"};
  return std::nullopt;
}

// "3-fach", "3fach", "18-Jährige", "10-tägig"; with a range before it: "2- bis 3-mal".
Found AdjectivePartAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i) || (number->grouped && tokens.IsBlank(i + 1))) return std::nullopt;
  std::size_t part = number->end;
  const bool dash = tokens.Is(part, "-") || tokens.Is(part, "‑");
  if (dash) ++part;
  const auto word = tokens.View(part);
  if (!tokens.IsWord(part) || !IsAdjectivePart(word, dash || word == "mal") || tokens.Is(part + 1, "-"))
    return std::nullopt;
  std::string words = number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein");
  if (!number->IsWhole()) return Phrase{part + 1, words + "-" + std::string(word)};
  if (IsUpperWord(word)) words = WithUpperStart(words);
  return Phrase{part + 1, words + WithLowerStart(word)};
}

// "6–12-Jährige", "50-60-mal".
Found PartSpanAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 4);
  if (!number || !tokens.FreeBefore(i) || !tokens.IsDashAt(i + 1)) return std::nullopt;
  auto part = AdjectivePartAt(tokens, i + 2);
  if (!part) return std::nullopt;
  part->words = CardinalWords(*number) + " bis " + part->words;
  return part;
}

// "2- bis 3-mal", "3-, 4- und 5-fach": a number with a dash that waits for its word.
Found WaitingPartAt(const Tokens& tokens, std::size_t i) {
  const auto number = DigitsAt(tokens, i, 3);
  if (!number || !tokens.FreeBefore(i) || !tokens.Is(i + 1, "-") || !tokens.IsBlank(i + 2))
    return std::nullopt;
  if (!IsOneOf(tokens.View(i + 3), {"bis", "und", "oder"})) return std::nullopt;
  if (!tokens.IsNumber(i + 5)) return std::nullopt;
  return Phrase{i + 2, PartWords(*number) + "-"};
}

// "9/8-Takt".
Found FractionCompoundAt(const Tokens& tokens, std::size_t i) {
  const auto over = DigitsAt(tokens, i, 2);
  const auto under = DigitsAt(tokens, i + 2, 2);
  if (!over || !under || *under < 2 || !tokens.Is(i + 1, "/") || !tokens.Is(i + 3, "-") ||
      !tokens.IsCapital(i + 4))
    return std::nullopt;
  return Phrase{i + 3, WithUpperStart(PartWords(*over)) + OrdinalWords(*under, "el")};
}

// "4-Zimmer-Wohnung", "24-Stunden-Dienst", "100-m-Lauf", "0,5-l-Flasche".
Found CompoundAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i) || !tokens.Is(number->end, "-") || !tokens.IsWord(number->end + 1))
    return std::nullopt;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {"-", "/", "."})) return std::nullopt;
  const std::size_t part = number->end + 1;
  std::string words =
      WithUpperStart(number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein"));
  std::replace(words.begin(), words.end(), ' ', '-');
  const bool goesOn =
      tokens.Is(part + 1, "-") || tokens.Is(part + 1, "/") || IsOneOf(tokens.View(part + 1), {"²", "³"});
  if (const auto unit = UnitAt(tokens, part); unit && !unit->isWord && goesOn && tokens.Is(unit->end, "-")) {
    std::string name = unit->plural;
    std::replace(name.begin(), name.end(), ' ', '-');
    return Phrase{unit->end, words + "-" + name};
  }
  if (const auto currency = CurrencyAt(tokens, part); currency && tokens.Is(currency->end, "-"))
    return Phrase{currency->end, words + "-" + std::string(currency->name)};
  if (!IsUpperWord(tokens.View(part)) || tokens.View(part).size() < 3 || IsAllCaps(tokens.View(part)))
    return std::nullopt;
  return Phrase{number->end, words};
}

// "20-€-Schein", "90°-Winkel".
Found SignCompoundAt(const Tokens& tokens, std::size_t i) {
  const auto number = NumberAt(tokens, i);
  if (!number || !tokens.FreeBefore(i)) return std::nullopt;
  std::size_t sign = number->end;
  if (tokens.Is(sign, "-")) ++sign;
  std::string words =
      WithUpperStart(number->IsWhole() ? PartWords(number->value) : NumberText(*number, "ein"));
  if (const auto currency = CurrencyAt(tokens, sign);
      currency && tokens.Is(currency->end, "-") && tokens.IsWord(currency->end + 1))
    return Phrase{currency->end, words + "-" + std::string(currency->name)};
  if (tokens.Is(sign, "°") && tokens.Is(sign + 1, "-") && tokens.IsWord(sign + 2))
    return Phrase{sign + 1, words + "-Grad"};
  return std::nullopt;
}

}  // namespace

Found GluedAt(const Tokens& tokens, std::size_t i) {
  for (const auto reading : {&DecadeAt, &PercentPartAt, &PartSpanAt, &AdjectivePartAt, &WaitingPartAt,
                             &FractionCompoundAt, &SignCompoundAt, &CompoundAt}) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

}  // namespace lorelin
