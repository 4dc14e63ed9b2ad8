#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "german/nouns.h"
#include "german/tokens.h"

namespace lorelin {

enum class Case { Nominative, Genitive, Dative, Accusative };

// What a counted or numbered thing is, for the endings before it.
struct Agreement {
  Gender gender = Gender::Masculine;
  bool plural = false;
  bool genitive = false;  // its form is that of the genitive
  bool known = false;     // nothing is known of it when false
  bool mayBePlural = false;
  bool bent = false;  // "Experten": many of them, or one in another case than the first
};

[[nodiscard]] Agreement AgreementOf(const Noun& noun);
// One thing of this gender.
[[nodiscard]] Agreement AgreementOf(Gender gender);

// The noun that the word at the token describes: adjectives in small letters may stand between. kNone when
// there is none within reach.
[[nodiscard]] std::size_t NounBehind(const Tokens& tokens, std::size_t i);

// The ending of an ordinal or adjective at the token, by the determiner or preposition before it and the noun
// it belongs to: "e", "en", "er", "es" or "em".
[[nodiscard]] std::string_view EndingAt(const Tokens& tokens, std::size_t i, const Agreement& noun);

// The same, only when a determiner or preposition before the token tells that something of that kind must
// follow.
[[nodiscard]] bool HasDeterminer(const Tokens& tokens, std::size_t i);
[[nodiscard]] bool HasPreposition(const Tokens& tokens, std::size_t i);

// "ein", "eine", "einen" … for a written 1 before a noun; `first` and `behind` are the tokens of the whole
// phrase.
[[nodiscard]] std::string OneBefore(const Tokens& tokens, std::size_t first, std::size_t behind,
                                    const Agreement& noun);

// "ein halber", "eine halbe", "einem halben".
[[nodiscard]] std::string OneHalfBefore(const Tokens& tokens, std::size_t first, std::size_t behind,
                                        const Agreement& noun);

// The case that what stands before the token asks for.
[[nodiscard]] Case CaseAt(const Tokens& tokens, std::size_t first, std::size_t behind);

// The case that a preposition asks for, "in" that of a place.
[[nodiscard]] std::optional<Case> CaseOfPreposition(std::string_view word);

// "der", "diesem", "meine", "zum".
[[nodiscard]] bool IsDeterminer(std::string_view word);

// A word of the closed classes that begins a sentence where it has a capital: "Die", "Danach", "Er".
[[nodiscard]] bool StartsSentences(std::string_view word);

}  // namespace lorelin
