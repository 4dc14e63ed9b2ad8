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

bool MayBeDividedBy(const Unit& unit) {
  return HasSuffix(unit.singular, {"ramm", "iter", "eter", "tunde", "inute", "ekunde", "Tag", "Stück"});
}

}  // namespace lorelin
