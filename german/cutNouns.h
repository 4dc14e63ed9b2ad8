#pragma once

#include <string>
#include <string_view>

#include "german/tokens.h"

namespace lorelin {

// A shortened noun in the number and case in which it stands at the token: "Mitgliedern" for "Mitgl." of "mit
// 5 Mitgl.", "Vertrags" for "Vertr." of "des Vertr.".
[[nodiscard]] std::string BentNoun(const Tokens& tokens, std::size_t i, std::string_view singular,
                                   std::string_view plural);

// "Temperatur" for "Temp." and "Gebühr" for "Geb.", else the noun as it stands.
[[nodiscard]] std::string WholeNounAt(const Tokens& tokens, std::size_t noun);

// "Etage", and "Etg." as well: a noun that goes with an ordinal.
[[nodiscard]] bool IsHeadAt(const Tokens& tokens, std::size_t i);

// "Anzahl d. Teiln.": many belong to the noun before the article at the token.
[[nodiscard]] bool CountsMembers(const Tokens& tokens, std::size_t article);

}  // namespace lorelin
