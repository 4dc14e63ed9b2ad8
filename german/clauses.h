#pragma once

#include <cstddef>

#include "german/tokens.h"

namespace lorelin {

// What the clause around a token tells of the case that its prepositions ask for.

// "Rücksendung an o. g. Adresse".
[[nodiscard]] bool SendsSomething(const Tokens& tokens, std::size_t i);

// "In 1 Becher geben": a verb of the clause tells that something goes there.
[[nodiscard]] bool MovesSomething(const Tokens& tokens, std::size_t i);

// "Auf 1 Arzt kommen 500 Einwohner".
[[nodiscard]] bool FallsTo(const Tokens& tokens, std::size_t first);

// "auf 1,35 € steigen".
[[nodiscard]] bool IsPriceAt(const Tokens& tokens, std::size_t first);

}  // namespace lorelin
