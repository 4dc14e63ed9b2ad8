#include "german/loneUnits.h"

#include <string>

#include "german/amounts.h"
#include "german/grammar.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

// What stands before a unit that is counted in words: "zwei kg", "einige km".
bool CountsInWords(std::string_view word) {
  return IsOneOf(word, {"Zwei",    "Drei",       "Einige",     "zwei",        "drei",    "vier",   "fünf",
                        "sechs",   "sieben",     "acht",       "neun",        "zehn",    "elf",    "zwölf",
                        "zwanzig", "dreißig",    "fünfzig",    "hundert",     "tausend", "einige", "einigen",
                        "wenige",  "wenigen",    "mehrere",    "mehreren",    "paar",    "viele",  "vielen",
                        "halbe",   "anderthalb", "eineinhalb", "zweieinhalb", "dutzend"});
}

bool CountsOne(std::string_view word) {
  return IsOneOf(
      word, {"Je",    "Pro",   "Ein",   "Eine", "je",    "pro",   "per",    "ein",    "eine",   "einen",
             "einem", "einer", "jeder", "jede", "jedes", "jeden", "halber", "halben", "letzte", "letzten"});
}

// Signs of a unit that are no word and no name.
bool IsMetricSign(std::string_view word) {
  return IsOneOf(word,
                 {"km", "kg", "cm", "mm", "kWh", "kW", "qm", "m²", "km²", "m³", "cm³", "ml", "mg", "ha"});
}

// "ab dem einundzwanzigsten km", "jedes weitere kg".
bool IsOrdinalBefore(const Tokens& tokens, std::size_t i) {
  const auto before = tokens.WordBefore(i);
  const std::size_t at = tokens.Before(i);
  const bool number = at != Tokens::kNone && at > 0 && tokens.Is(at, ".") && tokens.IsNumber(at - 1);
  return number || IsOrdinalWord(before) ||
         IsOneOf(before, {"weiterer", "weitere", "weiteres", "angefangene"});
}

// "(B x H x T)", "Länge x Breite".
bool IsSide(std::string_view word) {
  return IsOneOf(word, {"B", "H", "T", "L", "D", "Breite", "Höhe", "Tiefe", "Länge", "Durchmesser", "Dicke"});
}

}  // namespace

namespace {

// "100 Einträge/Seite": many of one thing for each of another.
bool CountsPerThing(const Tokens& tokens, std::size_t i) {
  if (i < 3 || !tokens.IsCapital(i - 1) || !tokens.IsCapital(i + 1) || !tokens.FreeBehind(i + 1) ||
      tokens.IsDashAt(i + 2) || !tokens.IsNumber(tokens.Before(i - 1)))
    return false;
  const Noun many = NounOf(tokens.View(i - 1));
  const Noun each = NounOf(tokens.View(i + 1));
  return many.known && many.plural && each.whole && each.singular && !each.plural;
}

}  // namespace

Found WordPerUnitAt(const Tokens& tokens, std::size_t i) {
  if (tokens.Is(i, "/") && CountsPerThing(tokens, i))
    return Phrase{i + 2, " pro " + std::string(tokens.View(i + 1))};
  if (!tokens.Is(i, "/") || i == 0 || !tokens.IsWord(i - 1) || tokens.View(i - 1).size() < 4 ||
      !tokens.IsWord(i + 1))
    return std::nullopt;
  if (!IsOneOf(tokens.View(i + 1), {"s", "min", "h", "Std", "Min", "Tag", "kg", "Woche", "Monat", "Jahr", "l",
                                    "Mon", "Wo", "Pers", "m", "km", "Stunde", "Minute", "Sekunde"}))
    return std::nullopt;
  // "in diesem Monat/Jahr": one or the other.
  if (IsOneOf(tokens.View(i - 1), {"Monat", "Woche", "Stunde", "Minute", "Jahr", "Quartal"}))
    return std::nullopt;
  const auto per = PerAt(tokens, i);
  if (!per) return std::nullopt;
  return Phrase{per->end, per->words};
}

Found LoneUnitAt(const Tokens& tokens, std::size_t i) {
  // "nach m² umgelegt".
  if (IsOneOf(tokens.View(i), {"m", "km", "cm"}) && tokens.Is(i + 1, "²") && tokens.FreeBefore(i) &&
      !tokens.Is(i + 2, "/") && tokens.Before(i) != Tokens::kNone && tokens.IsWord(tokens.Before(i))) {
    const auto unit = UnitAt(tokens, i);
    if (unit) return Phrase{unit->end, unit->plural + (tokens.WordBefore(i) == "nach" ? "n" : "")};
  }
  if (!tokens.Is(i, "€") && !tokens.Is(i + 1, "/") && !tokens.Is(i + 2, "/")) return std::nullopt;
  if (!tokens.FreeBefore(i) || (i > 0 && tokens.Is(i - 1, "/"))) return std::nullopt;
  std::string name;
  std::size_t end = 0;
  if (const auto currency = CurrencyAt(tokens, i); currency && !currency->isWord) {
    name = currency->name;
    end = currency->end;
  } else if (const auto unit = UnitAt(tokens, i); unit && !unit->isWord && tokens.View(i).size() <= 4) {
    if (tokens.View(i, unit->end).find('/') == std::string_view::npos) return std::nullopt;
    return Phrase{unit->end, unit->plural};
  }
  if (end == 0) return std::nullopt;
  const auto per = PerAt(tokens, end);
  if (!per && tokens.Is(i, "€") && tokens.FreeBehind(i)) return Phrase{i + 1, "Euro"};
  if (!per) return std::nullopt;
  return Phrase{per->end, name + per->words};
}

Found DashBetweenSumsAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsDashAt(i) || i < 2) return std::nullopt;
  const std::size_t before = tokens.Before(i);
  const std::size_t next = tokens.Skip(i + 1);
  if (!tokens.IsNumber(next) || (next > i + 1) != tokens.IsBlank(i - 1)) return std::nullopt;
  // "die Klassen 5a–5d".
  const auto isClass = [&](std::size_t number) {
    return tokens.IsNumber(number, 1, 3) && tokens.IsWord(number + 1) &&
           tokens.View(number + 1).size() == 1 && !tokens.IsCapital(number + 1);
  };
  if (next == i + 1 && isClass(i - 2) && isClass(next) && tokens.FreeBefore(i - 2) &&
      tokens.FreeBehind(next + 1) && !tokens.IsDashAt(next + 2))
    return Phrase{next, " bis "};
  // "63 v. Chr.–14 n. Chr."
  if (tokens.Is(before, ".") && before > 0 && tokens.Is(before - 1, "Chr"))
    return Phrase{next, before + 1 == i ? " bis " : "bis "};
  std::size_t number = tokens.Before(before);
  if (tokens.Is(before, "C") && number != Tokens::kNone && tokens.Is(number, "°"))
    number = tokens.Before(number);  // "160 °C - 180 °C"
  const bool sum = IsOneOf(tokens.View(before), {"€", "EUR", "%", "$", "kg", "km", "cm", "mm", "C", "°", "h",
                                                 "ml", "mg", "g", "m"}) &&
                   number != Tokens::kNone && tokens.IsNumber(number);
  if (!sum || !AmountAt(tokens, next) || tokens.Is(tokens.Skip(next + 1), "=")) return std::nullopt;
  return Phrase{next, before + 1 == i ? " bis " : "bis "};
}

Found UnitBehindWordAt(const Tokens& tokens, std::size_t i) {
  const auto before = tokens.WordBefore(i);
  if (before.empty() || tokens.View(i).size() > 8 || !tokens.FreeBefore(i) ||
      IsOneOf(tokens.View(i), {"A", "V", "U", "P", "K", "J", "N", "W", "Pack", "Sch", "E"}))
    return std::nullopt;
  // "1,80 € das St."
  const std::size_t price = before == "das" ? tokens.Before(tokens.WordIndexBefore(i)) : Tokens::kNone;
  const bool each = price != Tokens::kNone && IsOneOf(tokens.View(price), {"€", "EUR", "Euro"}) &&
                    IsOneOf(tokens.View(i), {"St", "Stk", "Stck", "kg", "Pfd", "Paar"});
  const bool one = each || CountsOne(before) || (IsMetricSign(tokens.View(i)) && IsOrdinalBefore(tokens, i));
  const bool listed =
      (before == "in" && !tokens.IsCapital(i) && tokens.View(i).size() > 1) || IsMetricSign(tokens.View(i));
  if (!one && !listed && !CountsInWords(before)) return std::nullopt;
  const auto unit = UnitAt(tokens, i);
  if (!unit || unit->isWord || tokens.IsDashAt(unit->end) || tokens.IsNumber(unit->end)) return std::nullopt;
  if (tokens.View(i).size() == 1 && tokens.IsWord(i) &&
      !IsOneOf(before, {"je", "pro", "per", "zwei", "drei"}))
    return std::nullopt;
  if (one) return Phrase{tokens.WithoutLastPoint(unit->end), unit->singular};
  const std::size_t count = tokens.WordIndexBefore(i);
  // "in vollen km", but "in km".
  const bool bare = listed && CaseOfPreposition(before).has_value();
  const bool described = !listed || before.ends_with("en");
  const bool dative = !bare && described && CaseOfPreposition(tokens.WordBefore(count)) == Case::Dative;
  return Phrase{tokens.WithoutLastPoint(unit->end), dative ? unit->dativePlural : unit->plural};
}

Found UnitBehindBracketsAt(const Tokens& tokens, std::size_t i) {
  if (i < 3 || !tokens.IsBlank(i - 1) || !tokens.Is(i - 2, ")") || !tokens.IsNumber(i - 3))
    return std::nullopt;
  const auto unit = UnitAt(tokens, i);
  if (!unit || unit->isWord || !tokens.FreeBehind(unit->end - 1)) return std::nullopt;
  return Phrase{tokens.WithoutLastPoint(unit->end), unit->plural};
}

Found UnitOfCompoundAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i + 1, "-")) return std::nullopt;
  if (!IsOneOf(tokens.View(i),
               {"km", "kg", "kWh", "kW", "cm", "mm", "GB", "MB", "ml", "qm", "%", "€", "mg", "EUR", "ha"}) ||
      !tokens.FreeBefore(i) || !tokens.Is(i + 1, "-") || !tokens.IsCapital(i + 2))
    return std::nullopt;
  if (i > 0 && !tokens.IsGap(i - 1) && !tokens.Is(i - 1, "(")) return std::nullopt;
  if (tokens.Is(i, "€") || tokens.Is(i, "EUR")) return Phrase{i + 1, "Euro"};
  const auto unit = UnitAt(tokens, i);
  if (!unit) return std::nullopt;
  return Phrase{i + 1, unit->singular};
}

Found TimesBetweenMeasuresAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "x") || i < 2 || !tokens.IsBlank(i - 1) || !tokens.IsBlank(i + 1)) return std::nullopt;
  if (IsSide(tokens.View(i - 2)) && IsSide(tokens.View(i + 2))) return Phrase{i + 1, "mal"};
  const bool point = i >= 4 && tokens.Is(i - 2, ".");
  const bool measure =
      tokens.IsNumber(i - 2) || UnitAt(tokens, point ? i - 3 : i - 2) || tokens.Is(i - 2, "€");
  if (!measure || !tokens.IsNumber(i + 2)) return std::nullopt;
  return Phrase{i + 1, "mal"};
}

}  // namespace lorelin
