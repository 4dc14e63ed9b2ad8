#include "german/unitSurroundings.h"

namespace lorelin {
namespace {

// "2 J. 6 M.", "2 Jahre 6 M.".
bool StandsBehindYears(const Tokens& tokens, std::size_t i) {
  if (i < 5 || !tokens.Is(i + 1, ".")) return false;
  std::size_t years = tokens.Before(i - 2);
  if (years != Tokens::kNone && IsOneOf(tokens.View(years), {".", "und"}) && years > 1)
    years = tokens.Is(years, ".") ? years - 1 : tokens.Before(years);
  return years != Tokens::kNone && IsOneOf(tokens.View(years), {"J", "Jahr", "Jahre", "Jahren"});
}

bool SpeaksOfKnitting(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 60;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    if (tokens.IsWord(at) &&
        (IsOneOf(tokens.View(at), {"Umschlag", "Lm", "fM", "Fadenring", "Maschenprobe", "Stb", "Nadelspiel",
                                   "Maschen", "Masche", "Luftmaschen", "Rippenmuster"}) ||
         HasSuffix(WithLowerStart(tokens.View(at)), {"stricken", "häkeln", "abketten", "nadel", "zus"})))
      return true;
  }
  return false;
}

constexpr std::size_t kNearQuotation = 60;  // tokens

// "63° 37′": what stands behind degrees.
bool StandsBehindDegrees(const Tokens& tokens, std::size_t i) {
  return i >= 3 && tokens.Is(tokens.IsBlank(i - 2) ? i - 3 : i - 2, "°");
}

}  // namespace

std::optional<Unit> UnitBySurroundings(const Tokens& tokens, std::size_t i) {
  const auto sign = tokens.View(i);
  if (!IsOneOf(sign, {"M", "R", "Rd"}) || !tokens.FreeBehind(i) || tokens.IsDashAt(i + 1))
    return std::nullopt;
  Unit unit;
  unit.end = i + 1;
  if (sign == "M" && StandsBehindYears(tokens, i)) {
    unit.singular = "Monat";
    unit.plural = "Monate";
    unit.dativePlural = "Monaten";
    unit.gender = Gender::Masculine;
    unit.end = i + 2;
    unit.endsWithPoint = true;
    return unit;
  }
  if (!SpeaksOfKnitting(tokens, i)) return std::nullopt;
  unit.singular = sign == "M" ? "Masche" : (sign == "R" ? "Reihe" : "Runde");
  unit.plural = unit.dativePlural = unit.singular + "n";
  unit.gender = Gender::Feminine;
  return unit;
}

std::optional<PerUnit> PerTwoUnitsBehind(const Tokens& tokens, std::size_t i) {
  const bool bracket = tokens.Is(i, "(");
  std::size_t at = bracket ? i + 1 : i;
  if (tokens.Is(at, "mK") && tokens.FreeBehind(at)) return PerUnit{" pro Meter und Kelvin", at + 1};
  const bool square = tokens.Is(at + 1, "²");
  if (!tokens.Is(at, "m") || !(square || bracket)) return std::nullopt;
  at = tokens.Skip(square ? at + 2 : at + 1);
  if (IsOneOf(tokens.View(at), {"·", "*", "×"})) at = tokens.Skip(at + 1);
  const auto second = tokens.View(at);
  if (!IsOneOf(second, {"a", "K"}) || !tokens.FreeBehind(at) || (bracket && !tokens.Is(at + 1, ")")))
    return std::nullopt;
  return PerUnit{std::string(square ? " pro Quadratmeter" : " pro Meter") +
                     (second == "a" ? " und Jahr" : " und Kelvin"),
                 bracket ? at + 2 : at + 1};
}

std::optional<Unit> RunningMeterAt(const Tokens& tokens, std::size_t i) {
  std::size_t end = 0;
  if (IsOneOf(tokens.View(i), {"lfm", "lfdm", "Lfm", "lfdM"}) && tokens.FreeBehind(i)) end = i + 1;
  const std::size_t meter = tokens.Skip(i + 2);
  if (tokens.Is(i, "lfd") && tokens.Is(i + 1, ".") && IsOneOf(tokens.View(meter), {"m", "Meter", "Metern"}))
    end = meter + 1;
  if (end == 0) return std::nullopt;
  Unit unit;
  unit.singular = "laufender Meter";
  unit.plural = "laufende Meter";
  unit.dativePlural = "laufenden Metern";
  unit.end = end;
  return unit;
}

std::optional<Unit> InchAt(const Tokens& tokens, std::size_t i) {
  if (i == 0 || !IsOneOf(tokens.View(i), {"\"", "″"}) || !tokens.IsNumber(i - 1) || tokens.IsWord(i + 1))
    return std::nullopt;
  for (std::size_t at = i > kNearQuotation ? i - kNearQuotation : 0; at < i; ++at) {
    if (IsOneOf(tokens.View(at), {"\"", "„"})) return std::nullopt;
  }
  Unit unit;
  unit.singular = unit.plural = unit.dativePlural = "Zoll";
  unit.end = i + 1;
  return unit;
}

std::optional<Unit> ArcMinuteAt(const Tokens& tokens, std::size_t i) {
  if (!IsOneOf(tokens.View(i), {"′", "'"}) || !StandsBehindDegrees(tokens, i)) return std::nullopt;
  Unit unit;
  unit.singular = "Minute";
  unit.plural = unit.dativePlural = "Minuten";
  unit.gender = Gender::Feminine;
  unit.end = i + 1;
  return unit;
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

bool MayBeDividedBy(const Unit& unit) {
  return HasSuffix(unit.singular, {"ramm", "iter", "eter", "tunde", "inute", "ekunde", "Tag", "Stück"});
}

}  // namespace lorelin
