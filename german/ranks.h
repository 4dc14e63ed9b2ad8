#pragma once

#include <cstdint>
#include <string>

#include "german/tokens.h"

namespace lorelin {

constexpr std::uint64_t kLastRank = 15;  // more is rather an age

// Who has come in as which of a row: the number at the token, with a point behind it.

// "Er wurde 3.", "liegt Köln 6., Mainz …".
[[nodiscard]] bool BecomesOne(const Tokens& tokens, std::size_t i);
// The same, or the second of two who are compared, or what is asked for: "Wer war 1.?"
[[nodiscard]] bool IsRank(const Tokens& tokens, std::size_t i);
// "Dritter", "Dritte", "drittes" of the children.
[[nodiscard]] std::string RankWords(const Tokens& tokens, std::size_t i, std::uint64_t value);

}  // namespace lorelin
