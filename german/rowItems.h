#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// "Diagnosen: 1. Arterielle Hypertonie, 2. Diabetes": the number at the token is an item of a row in the
// sentence. What stands behind the sentence need not be known.
[[nodiscard]] bool IsItemOfRow(const Tokens& tokens, std::size_t i);

// "erstens", "zweitens" of a row that stands in one line.
[[nodiscard]] Found RowItemAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
