#pragma once

#include <cstdint>
#include <string_view>

namespace lorelin {

enum class Gender : std::uint8_t { Masculine, Feminine, Neuter };

// What the form of a noun can be.
struct Noun {
  bool known = false;    // the word or its last part stands in the lexicon
  bool whole = false;    // ... the word itself
  bool guessed = false;  // only its ending tells
  bool singular = false;
  bool plural = false;
  bool genitive = false;           // in the singular this form is the genitive only
  bool dativePlural = false;       // in the plural this form is the dative only
  bool adjectival = false;         // an adjective that became a noun: "Deutsche", "Gute"
  Gender gender = Gender::Neuter;  // of the singular
};

// The noun as it stands in a text, "Tassen" or "Obergeschosses": itself, by its last part, or by its ending.
// Takes a capitalised word of any length; the lexicon's table is unpacked at the first call. Thread-safe.
[[nodiscard]] Noun NounOf(std::string_view word);

// The word, or a last part of it that begins not behind this byte, stands in the lexicon.
[[nodiscard]] bool IsNounFrom(std::string_view word, std::size_t latest);

// The word, or a last part of it that begins not behind this byte and has the first part of a compound before
// it, stands in the lexicon.
[[nodiscard]] bool IsNounOrCompound(std::string_view word, std::size_t latest);

// A compound that is whole, in any case: "Besprechungen", "Werkzeuges"; its last part has more bytes than
// this.
[[nodiscard]] bool EndsInWholeNoun(std::string_view word, std::size_t moreThan);

// The word can be the first part of a compound: "Wohn", "Baus", "Haupt".
[[nodiscard]] bool BeginsCompounds(std::string_view word);

// "Nachbar", "Zeuge": the first case of a man or beast whose others end in "-n".
[[nodiscard]] bool IsWeakNominative(std::string_view word);

}  // namespace lorelin
