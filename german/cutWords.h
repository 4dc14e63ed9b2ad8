#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "german/tokens.h"

namespace lorelin {

enum class CutKind : std::uint8_t {
  Noun,
  Adjective,  // bends with its noun
  Fixed       // adverbs and verbs, as they are
};

// A word that is cut off at a point, wherever its writer stopped: "Anspr.", "Bestellw.", "gleichz.".
struct CutWord {
  CutKind kind = CutKind::Noun;
  std::string words;      // of an adjective without its ending
  std::string plural;     // of a noun, where the singular says no more than that
  bool compound = false;  // only its last part is known
  bool certain = false;   // no word ends like that, so that it needs no neighbour to tell it is cut
};

// The word that is meant by this one with a point behind it; nothing when it may be whole, or is cut from
// none that is known.
[[nodiscard]] std::optional<CutWord> WholeOfCut(std::string_view word);

// The same in the sentence: nothing where it may as well be the sentence's last word. The point is one token
// behind.
[[nodiscard]] std::optional<CutWord> CutWordAt(const Tokens& tokens, std::size_t i);

// "Mitglieder" for "Mitglied"; empty when it is none of the words that are cut.
[[nodiscard]] std::string_view PluralOf(std::string_view noun);

// A name that is as long as what is left of a word: "Klaus" of "Klausel".
[[nodiscard]] bool IsNameLikeCut(std::string_view word);

// No word ends like that: "Anspr", "gleichz".
[[nodiscard]] bool EndsLikeNoWord(std::string_view word);

}  // namespace lorelin
