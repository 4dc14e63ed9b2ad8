#pragma once

#include "german/phrase.h"
#include "german/tokens.h"

namespace lorelin {

// Two years with a stroke between, and what runs from one such season to another: "2019/20", "2023/2024",
// "2021/22–2023/24".
[[nodiscard]] Found SeasonsAt(const Tokens& tokens, std::size_t i);

// Pages of which the last is written without the digits that stay the same: "S. 210-14", "S. 133–9".
[[nodiscard]] Found ShortenedSpanAt(const Tokens& tokens, std::size_t i);

// Ranges and products of mere numbers: "1914–1918", "3-4 Eier", "2019/20", "60 × 40".
[[nodiscard]] Found SpanAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
