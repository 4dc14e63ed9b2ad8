#pragma once

#include <string>

#include "german/grammar.h"
#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// What the point behind a number is.
enum class PointMeaning {
  Sentence,      // the end of a sentence: the number is a mere number
  Ordinal,       // "der 2. Mann"
  OrdinalAtEnd,  // "am 5." at the end of a sentence: both
  List           // "2. Alles mischen." at the beginning of a line
};

// For the number at the token, behind which a point stands. What stands behind the sentence need not be
// known.
[[nodiscard]] PointMeaning JudgePoint(const Tokens& tokens, std::size_t i);

// "2." in words, with the ending that its noun and determiner ask for.
[[nodiscard]] Found OrdinalAt(const Tokens& tokens, std::size_t i);

// "Die", or "Warten" of "Warten Sie": a sentence begins with it.
[[nodiscard]] bool StartsSentenceAt(const Tokens& tokens, std::size_t i);

// The noun that an ordinal belongs to, over "und 4." and adjectives; kNone without one.
[[nodiscard]] std::size_t NounOfOrdinal(const Tokens& tokens, std::size_t behind);

// What is known of that noun.
[[nodiscard]] Agreement AgreementAt(const Tokens& tokens, std::size_t noun);

}  // namespace lorelin
