#include "german/clauses.h"

#include "german/units.h"

namespace lorelin {

// "Rücksendung an o. g. Adresse".
bool SendsSomething(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    const std::string word = WithLowerStart(tokens.View(at));
    for (const std::string_view stem : {"send", "schick", "richt", "wend", "zahl", "adress", "liefer",
                                        "überw", "schreib", "weiterleit", "zurück", "geh"}) {
      if (word.find(stem) != std::string::npos) return true;
    }
  }
  return false;
}

// "In 1 Becher geben": a verb of the clause tells that something goes there.
bool MovesSomething(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 32;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    const std::string word = WithLowerStart(tokens.View(at));
    for (const std::string_view stem :
         {"geben", "gieß", "füll", "leg", "stellen", "stellt", "schütt", "tauch", "steck", "umfüll",
          "einfüll", "eingieß", "überweis", "überw"}) {
      if (word.starts_with(stem)) return true;
    }
  }
  return false;
}

// "Auf 1 Arzt kommen 500 Einwohner".
bool FallsTo(const Tokens& tokens, std::size_t first) {
  constexpr std::size_t kNear = 10;  // tokens
  // "Runde auf 1 Stelle", "warten auf 1 Platz".
  for (std::size_t at = first > kNear ? first - kNear : 0; at < first + kNear; ++at) {
    if (HasPrefix(WithLowerStart(tokens.View(at)),
                  {"runde", "gerundet", "aufgerundet", "kürz", "gekürzt", "begrenz", "beschränk", "reduzier",
                   "verteil", "warte", "hoff"}))
      return true;
  }
  for (std::size_t at = first; at < first + kNear; ++at) {
    if (IsOneOf(tokens.View(at), {"kommen", "kommt", "kamen", "kam", "entfallen", "entfällt", "entfielen"}))
      return true;
  }
  return false;
}

// "auf 1,35 € steigen".
bool IsPriceAt(const Tokens& tokens, std::size_t first) {
  std::size_t at = first;
  while (tokens.IsNumber(at) || IsOneOf(tokens.View(at), {",", "."})) ++at;
  return CurrencyAt(tokens, tokens.Skip(at)).has_value();
}

}  // namespace lorelin
