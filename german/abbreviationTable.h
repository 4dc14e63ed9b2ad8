#pragma once

#include <span>

#include "german/abbreviations.h"

namespace lorelin {

// Every abbreviation that is known. Among those that are written alike the first whose surroundings fit is
// meant.
[[nodiscard]] std::span<const Abbreviation> AbbreviationTable();

// Those that are adjectives where a noun follows; looked up behind the others.
[[nodiscard]] std::span<const Abbreviation> AdjectiveTable();

// What is cut in advertisements, notices and notes.
[[nodiscard]] std::span<const Abbreviation> NoticeTable();

}  // namespace lorelin
