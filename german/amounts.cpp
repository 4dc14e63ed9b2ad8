#include "german/amounts.h"

#include <algorithm>

#include "german/grammar.h"
#include "german/labels.h"
#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/unitSurroundings.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

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
// "14/19 °C": by night and by day.
bool AreTemperatures(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i) || !tokens.Is(i + 1, "/") || !tokens.IsNumber(i + 2)) return false;
  const auto unit = UnitAt(tokens, tokens.Skip(i + 3));
  return unit && unit->singular.starts_with("Grad");
}

// "50/60 Hz": no fraction has such parts.
bool AreAlternatives(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 1, 4) || !tokens.Is(i + 1, "/") || !tokens.IsNumber(i + 2, 2, 4)) return false;
  const auto unit = UnitAt(tokens, tokens.Skip(i + 3));
  if (unit && unit->singular.ends_with("byte")) return true;  // "8/256 GB"
  // "alle 5/10 Min.", but "1/10 Sek."
  if (unit && !tokens.Is(i, "1") && IsOneOf(unit->singular, {"Minute", "Stunde", "Tag", "Woche", "Monat"}))
    return true;
  return unit && !unit->isWord && !tokens.IsNumber(i, 1, 1);
}

std::optional<Quantity> FractionQuantityAt(const Tokens& tokens, std::size_t i) {
  if (AreTemperatures(tokens, i) || AreAlternatives(tokens, i)) return std::nullopt;
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

// "1.80 m", "62.5 kg": a point before the decimals, as it is written in Switzerland and by many others.
void TakePointDecimals(const Tokens& tokens, WrittenNumber& number, std::size_t i) {
  const std::size_t point = number.end;
  if (!number.IsWhole() || number.grouped || number.whole.size() > 3 || !tokens.Is(point, ".") ||
      !tokens.IsNumber(point + 1, 1, 2) || LabelBefore(tokens, i) ||
      (i > 0 && IsOneOf(tokens.View(i - 1), {".", ",", ":", "/"})))
    return;
  const std::size_t at = tokens.Skip(point + 2);
  const auto unit = UnitAt(tokens, at);
  const bool letter =
      tokens.IsCapital(at) && tokens.View(at).size() == 1 && !IsOneOf(tokens.View(at), {"V", "W"});
  if (!unit || unit->isWord || letter || unit->singular == "Stunde" || tokens.Is(at, "M")) return;
  number.decimals = tokens.View(point + 1);
  number.end = point + 2;
}

std::optional<Quantity> QuantityAt(const Tokens& tokens, std::size_t i) {
  if (auto fraction = FractionQuantityAt(tokens, i)) return fraction;
  auto number = NumberAt(tokens, i);
  if (!number) return std::nullopt;
  TakePointDecimals(tokens, *number, i);
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
  if (!quantity.part.empty() && (gender == Gender::Feminine || CaseAt(tokens, first, behind) == Case::Dative))
    return OneBefore(tokens, first, behind, AgreementOf(gender)) + " " + quantity.part;
  return quantity.words;
}

// "in den ersten 6 Mon.": "den" before many is always the dative.
bool StandsBehindDen(const Tokens& tokens, std::size_t first) {
  constexpr int kAdjectives = 2;
  std::size_t at = tokens.WordIndexBefore(first);
  for (int step = 0; step <= kAdjectives && at != Tokens::kNone; ++step) {
    const auto word = tokens.View(at);
    if (IsOneOf(word, {"den", "Den", "diesen", "seinen", "ihren", "Ihren", "unseren", "meinen"})) return true;
    if (IsUpperWord(word) || !word.ends_with("en") || IsDeterminer(word)) return false;
    at = tokens.WordIndexBefore(at);
  }
  return false;
}

// "zu 2 Jahren 6 Mon.": what goes on with an amount stands in its case.
std::size_t FirstOfJoined(const Tokens& tokens, std::size_t first) {
  std::size_t unit = tokens.Before(first);
  if (unit != Tokens::kNone && unit > 0 && tokens.Is(unit, ".")) --unit;
  if (unit == Tokens::kNone || !tokens.IsWord(unit)) return first;
  const std::size_t number = tokens.Before(unit);
  const auto found = UnitAt(tokens, unit);
  return number != Tokens::kNone && tokens.IsNumber(number) && found &&
                 IsOneOf(found->plural, {"Jahre", "Monate", "Wochen", "Tage", "Stunden"})
             ? number
             : first;
}

// "nach 64 km", "nach etwa 500 m".
bool EndsWay(const Tokens& tokens, std::size_t first) {
  const auto before = tokens.WordBefore(first);
  const std::size_t degree = tokens.WordIndexBefore(first);
  return IsOneOf(IsDegreeWord(before) ? tokens.WordBefore(degree) : before, {"nach", "Nach"});
}

std::string UnitWords(const Tokens& tokens, std::size_t first, std::size_t behind, const Quantity& quantity,
                      const Unit& unit) {
  if (quantity.one || quantity.singular) return unit.singular;
  const bool dative =
      CaseAt(tokens, FirstOfJoined(tokens, first), behind) == Case::Dative || StandsBehindDen(tokens, first);
  // "nach 64 km" stands alone, "auf 812 m Höhe" does not; of the others both forms are said.
  const bool way = EndsWay(tokens, first) && IsOneOf(unit.plural, {"Meter", "Kilometer", "Zentimeter"});
  if (way && !tokens.IsCapital(tokens.Skip(behind))) return unit.plural + "n";
  return dative ? unit.dativePlural : unit.plural;
}

// "92 Tkm", "300 TEUR": a thousand grows together with what counts it.
std::string GapBefore(const Quantity& quantity, std::string_view name) {
  return name.starts_with("tausend ") && quantity.number.IsWhole() && !quantity.one ? "" : " ";
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

// "statt 1,49 €": with its hundredths it stays as it is named.
std::string OneOfCurrency(const Tokens& tokens, std::size_t first, std::size_t behind,
                          const Currency& currency, bool cents) {
  std::string one = OneBefore(tokens, first, behind, AgreementOf(currency.gender));
  return cents && one == "eines" ? "ein" : one;
}

std::string MoneyWords(const Tokens& tokens, std::size_t first, std::size_t behind, const Quantity& quantity,
                       const Currency& currency) {
  const WrittenNumber& number = quantity.number;
  const bool cents = number.decimals.size() == 2 && !currency.hundredth.empty();
  const std::string whole = quantity.one || (cents && number.value == 1)
                                ? OneOfCurrency(tokens, first, behind, currency, cents)
                                : CardinalWords(number.value);
  if (number.IsWhole())
    return QuantityWords(tokens, first, behind, quantity, currency.gender) +
           GapBefore(quantity, currency.name) + CurrencyName(currency, quantity.one);
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

// "$4.99", "20.50 CHF": a point before the hundredths.
void TakeHundredths(const Tokens& tokens, Quantity& quantity) {
  const bool point =
      quantity.number.IsWhole() && !quantity.number.whole.empty() && tokens.Is(quantity.end, ".") &&
      tokens.IsNumber(quantity.end + 1, 2, 2) && tokens.FreeBehind(quantity.end + 1) &&
      !(IsOneOf(tokens.View(quantity.end + 2), {".", ","}) && tokens.IsNumber(quantity.end + 3));
  if (!point) return;
  quantity.number.decimals = tokens.View(quantity.end + 1);
  quantity.end += 2;
  quantity.number.end = quantity.end;
  quantity.one = false;
}

Found MoneyAt(const Tokens& tokens, std::size_t i, std::size_t first) {
  auto quantity = QuantityAt(tokens, i);
  if (!quantity) return std::nullopt;
  if (CurrencyAt(tokens, tokens.Skip(quantity->end + 2))) TakeHundredths(tokens, *quantity);
  const std::size_t dashes = BehindDashes(tokens, quantity->end);
  const auto currency = CurrencyAt(tokens, tokens.Skip(dashes));
  // "KM 520,-": what else has such an end?
  const auto code = tokens.View(tokens.Skip(dashes));  // "1.000,- JMD" of a currency that has no name here
  const bool named = code.size() == 3 && IsAllCaps(code);
  if (dashes > quantity->end && !currency && named && quantity->number.IsWhole() &&
      !quantity->number.whole.empty())
    return Phrase{dashes, CardinalWords(quantity->number.value)};
  const bool bare = dashes > quantity->end && !currency && quantity->number.IsWhole() &&
                    !quantity->number.whole.empty() &&
                    (tokens.IsGap(dashes) || IsOneOf(tokens.View(dashes), {".", ",", ")", ";", "!", "/"}));
  if (bare)
    return Phrase{dashes, QuantityWords(tokens, first, dashes, *quantity, Gender::Masculine) + " Euro"};
  if (!currency) return std::nullopt;
  std::size_t end = currency->end;
  std::string words =
      quantity->singular || quantity->number.whole.empty()
          ? QuantityWords(tokens, first, end, *quantity, currency->gender) + " " + std::string(currency->name)
          : MoneyWords(tokens, first, end, *quantity, *currency);
  words += PerWords(tokens, end);
  return Phrase{tokens.WithoutLastPoint(end), words};
}

// Measures.

// What may stand behind "Mio.": a unit, a currency, or nothing of the kind.
std::string MultipliedWords(const Tokens& tokens, std::size_t first, std::size_t& end) {
  const std::size_t next = tokens.Skip(end);
  std::string words;
  if (const auto currency = CurrencyAt(tokens, next)) {
    words = " " + std::string(currency->name);
    end = currency->end;
    words += PerWords(tokens, end);
  } else if (const auto unit = UnitAt(tokens, next); unit && !unit->isWord) {
    words = " " + (CaseAt(tokens, first, unit->end) == Case::Dative ? unit->dativePlural : unit->plural);
    end = unit->end;
  } else if (tokens.Is(end, "/")) {
    words = PerWords(tokens, end);  // "11,2 Tsd./µl"
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

// "5 A" is a flat or a class as well, "Zimmer 5 m" no metre.
bool IsRealUnit(const Tokens& tokens, std::size_t first, const Quantity& quantity, std::size_t unitAt,
                const Unit& unit) {
  if (unit.isWord) return true;
  if (unit.singular == "Umdrehung") return false;  // "7 U 12/23"
  // "12 C 345/21": the register of a court.
  const std::size_t file = tokens.Skip(unitAt + 1);
  if (tokens.View(unitAt).size() == 1 && file > unitAt + 1 && tokens.IsNumber(file) &&
      tokens.Is(file + 1, "/") && tokens.IsNumber(file + 2))
    return false;
  // "205/55 R 16 91 V" of a tyre.
  if (unit.singular == "Volt" && first > 1 && tokens.IsBlank(first - 1) && tokens.IsNumber(first - 2))
    return false;
  // "Core i7-13700K".
  if (unitAt == first + 1 && first > 1 && tokens.Is(first - 1, "-") && tokens.IsWord(unitAt) &&
      tokens.View(unitAt).size() == 1 &&
      (tokens.IsNumber(first - 2) ||
       (tokens.IsWord(first - 2) && (first < 3 || !tokens.IsNumber(first - 3)))))
    return false;
  if (unit.singular == "Kelvin")
    return !quantity.number.IsWhole() || unit.end != unitAt + 1 || quantity.number.value >= 1000 ||
           (quantity.number.value >= 70 && tokens.IsBlank(unitAt - 1) && !tokens.IsCapital(file));
  if (unit.singular == "Ampere")
    return !quantity.number.IsWhole() || (HasElectricContext(tokens) && !LabelBefore(tokens, first));
  const auto sign = tokens.View(unitAt);
  const bool letter = sign.size() == 1 && tokens.IsWord(unitAt);
  const bool side = sign == "m" && IsOneOf(tokens.WordBefore(first), {"H", "B", "T", "L"});  // "B 2 m"
  if (letter && !IsOneOf(unit.singular, {"Monat", "Masche", "Reihe"}) && quantity.number.IsWhole() &&
      LabelBefore(tokens, first) && !side)
    return false;
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
    const std::string rest = MultipliedWords(tokens, first, end);
    return Phrase{tokens.WithoutLastPoint(end), MultipleWords(tokens, first, *quantity, *multiple) + rest};
  }
  const auto unit = UnitAt(tokens, at);
  if (!unit || !IsRealUnit(tokens, first, *quantity, at, *unit)) return std::nullopt;
  return Phrase{tokens.WithoutLastPoint(unit->end),
                QuantityWords(tokens, first, unit->end, *quantity, unit->gender) +
                    GapBefore(*quantity, unit->singular) +
                    UnitWords(tokens, first, unit->end, *quantity, *unit)};
}

Found SumAt(const Tokens& tokens, std::size_t i, std::size_t first) {
  if (auto money = MoneyAt(tokens, i, first)) return money;
  return MeasureAt(tokens, i, first);
}

// "10–12 kg", "5 bis 7 €", "3 x 4 m", "5 % bis 7 %" is read in parts.

}  // namespace

std::optional<Between> BetweenAt(const Tokens& tokens, std::size_t i) {
  const std::size_t at = tokens.Skip(i);
  if (tokens.Is(at, "/") && at == i && i > 0 && AreTemperatures(tokens, i - 1))
    return Between{" bis ", i + 1};
  if (tokens.Is(at, "…")) return Between{" bis ", tokens.Skip(at + 1)};
  if (tokens.IsDashAt(at)) return Between{" bis ", tokens.Skip(at + 1)};
  if (tokens.Is(at, "bis") && at > i) return Between{" bis ", tokens.Skip(at + 1)};
  const bool times = tokens.Is(at, "×") ||
                     (tokens.Is(at, "x") && (at > i ? tokens.IsBlank(at + 1) : tokens.IsNumber(at + 1))) ||
                     (tokens.Is(at, "*") && tokens.IsNumber(tokens.Skip(at + 1)));
  if (times) return Between{" mal ", tokens.Skip(at + 1)};
  return std::nullopt;
}

namespace {

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
  const bool longDash = tokens.Is(first->end, "–") && between->end == first->end + 1;  // "68–66 Mio. Jahre"
  if (!second || (!longDash && !IsRisingOrProduct(*first, *second, between->words))) return std::nullopt;
  auto sum = SumAt(tokens, at, i);
  if (!sum) {
    const auto unit = UnitAt(tokens, tokens.Skip(second->end));
    if (!unit || !unit->isWord) return std::nullopt;
    return Phrase{second->end, FirstWords(*first) + std::string(between->words) + middle + second->words};
  }
  return Phrase{sum->end, FirstWords(*first) + std::string(between->words) + middle + sum->words};
}

}  // namespace

namespace {

// "-,50 €", "–,99 EUR".
Found CentsAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsDashAt(i) || !tokens.Is(i + 1, ",") || !tokens.IsNumber(i + 2, 2, 2)) return std::nullopt;
  const auto currency = CurrencyAt(tokens, tokens.Skip(i + 3));
  if (!currency || currency->hundredth.empty()) return std::nullopt;
  std::size_t end = currency->end;
  std::string words =
      CardinalWords(*DigitsAt(tokens, i + 2, 2), "ein") + " " + std::string(currency->hundredth);
  words += PerWords(tokens, end);
  return Phrase{tokens.WithoutLastPoint(end), words};
}

}  // namespace

Found AmountAt(const Tokens& tokens, std::size_t i) {
  if (auto cents = CentsAt(tokens, i)) return cents;
  if (!tokens.FreeBefore(i)) return std::nullopt;
  const bool dosage = i >= 2 && tokens.IsDashAt(i - 1) && tokens.IsNumber(i - 2);  // "20-20-20 Tropfen"
  if (auto span = dosage ? Found() : MeasureSpanAt(tokens, i)) return span;
  return SumAt(tokens, i, i);
}

Found CurrencyFirstAt(const Tokens& tokens, std::size_t i) {
  const auto currency = CurrencyAt(tokens, i);
  if (!currency || currency->isWord || (tokens.IsWord(i) && !tokens.FreeBefore(i))) return std::nullopt;
  const std::size_t at = tokens.Skip(currency->end);
  auto quantity = QuantityAt(tokens, at);
  if (!quantity || quantity->number.whole.empty()) return std::nullopt;
  TakeHundredths(tokens, *quantity);
  if (const auto multiple = MultipleAt(tokens, tokens.Skip(quantity->end)))
    return Phrase{tokens.WithoutLastPoint(multiple->end),
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
  const bool degrees =
      UnitAt(tokens, tokens.Skip(number->end)).has_value() || tokens.Is(tokens.Skip(number->end), "bis");
  // At the beginning of a line it is the dash of a list.
  if (tokens.OpensLine(i) && !degrees && !tokens.IsLast(number->end - 1)) return std::nullopt;
  if (!tokens.FreeBehind(number->end - 1) || tokens.IsDashAt(number->end)) return std::nullopt;
  // "-12 bis -5 Grad": only the sign changes.
  if (number->IsWhole() && !number->grouped) return Phrase{i + 1, name};
  return Phrase{number->end, name + NumberText(*number)};
}

namespace {

// "„Das Boot“ (1/6)".
bool IsPartOfSeries(const Tokens& tokens, std::size_t i) {
  return tokens.IsNumber(i, 1, 2) && tokens.Is(i + 1, "/") && tokens.IsNumber(i + 2, 1, 2) && i >= 3 &&
         tokens.Is(i - 1, "(") && tokens.Is(i + 3, ")") && IsOneOf(tokens.View(i - 3), {"“", "\"", "”", "«"});
}

// "RR 120/80 mmHg", "Blutdruck: 140/90".
bool MeasuresBloodPressure(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(i, 2, 3) || !tokens.Is(i + 1, "/") || !tokens.IsNumber(i + 2, 2, 3)) return false;
  std::size_t before = tokens.Before(i);
  for (int step = 0; step < 2 && before != Tokens::kNone; ++step) {
    if (!IsOneOf(tokens.View(before), {":", "von", "bei", "auf", "liegt", "lag", "betrug", "ist", "war"}))
      break;
    before = tokens.Before(before);
  }
  const bool named =
      before != Tokens::kNone && IsOneOf(tokens.View(before), {"RR", "Blutdruck", "Blutdruckwert"});
  return named || tokens.Is(tokens.Skip(i + 3), "mmHg");
}

bool MayBeFraction(const Tokens& tokens, std::size_t i, const Fraction& fraction) {
  if (IsFractionSign(tokens.View(i))) return true;
  if (!tokens.FreeBefore(i) || !tokens.FreeBehind(fraction.end - 1) || tokens.Is(fraction.end, "/") ||
      AreAlternatives(tokens, i))
    return false;
  if (i > 0 && IsOneOf(tokens.View(i - 1), {"/", "-", ".", ","})) return false;
  if (tokens.IsDashAt(fraction.end) || LabelBefore(tokens, i) || IsAllCaps(tokens.WordBefore(i)))
    return false;
  const std::size_t next = tokens.Skip(fraction.end);
  if (IsOneOf(tokens.WordBefore(i), {"Bruch", "Bruchs", "Bruches", "Brüche", "Brüchen", "Anteil"}))
    return true;
  if (IsOneOf(tokens.View(next),
              {"der", "des", "aller", "davon", "von", "seiner", "ihrer", "unserer", "meiner", "dieser"}))
    return true;
  const bool usual = IsOneOf(tokens.View(fraction.end - 1), {"2", "3", "4", "5", "6", "8", "10", "100"});
  const bool answer = IsOneOf(tokens.View(next), {"Ja", "Nein"});  // "1/3 Nein"
  if (tokens.IsCapital(next) && next > fraction.end)
    return (answer || !StartsSentences(tokens.View(next))) && usual;
  return usual;
}

// "1/2 Liter", "eine halbe Zitrone".
Found FractionOfNoun(const Tokens& tokens, std::size_t i, const Fraction& fraction) {
  const std::size_t at = tokens.Skip(fraction.end);
  // "die 1/2 der Zeit".
  if (fraction.numerator == 1 && fraction.denominator == 2 &&
      IsOneOf(tokens.View(at), {"der", "des", "von"}) &&
      IsOneOf(tokens.WordBefore(i), {"die", "der", "zur", "Die"}))
    return Phrase{fraction.end, "Hälfte"};
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
  if (IsPartOfSeries(tokens, i))
    return Phrase{
        i + 3, CardinalWords(*DigitsAt(tokens, i, 2)) + " von " + CardinalWords(*DigitsAt(tokens, i + 2, 2))};
  if (MeasuresBloodPressure(tokens, i)) return Phrase{i + 2, CardinalWords(*DigitsAt(tokens, i, 3)) + " zu "};
  if (const auto mixed = FractionQuantityAt(tokens, i);
      mixed && !mixed->singular && tokens.FreeBehind(mixed->end - 1)) {
    return Phrase{mixed->end, mixed->words};
  }
  const auto fraction = FractionAt(tokens, i);
  if (!fraction || !MayBeFraction(tokens, i, *fraction)) return std::nullopt;
  if (auto half = FractionOfNoun(tokens, i, *fraction)) return half;
  if (fraction->denominator == 2) return Phrase{fraction->end, FractionText(*fraction)};
  // "ein 1/4 der Befragten"
  if (fraction->numerator == 1 && IsOneOf(tokens.WordBefore(i), {"ein", "Ein"}))
    return Phrase{fraction->end, WithUpperStart(OrdinalWords(fraction->denominator, "el"))};
  const bool dative = CaseAt(tokens, i, fraction->end) == Case::Dative;
  const bool many = fraction->numerator > 1 && dative;
  // "der Kläger zu 1/3".
  if (fraction->numerator == 1 && dative && IsOneOf(tokens.WordBefore(i), {"zu", "mit", "von", "bei"}))
    return Phrase{fraction->end, "einem " + WithUpperStart(OrdinalWords(fraction->denominator, "el"))};
  return Phrase{fraction->end, CardinalWords(fraction->numerator, "ein") + " " +
                                   WithUpperStart(OrdinalWords(fraction->denominator, many ? "eln" : "el"))};
}

}  // namespace lorelin
