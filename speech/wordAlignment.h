#pragma once

#include <string_view>
#include <vector>

#include "german/SpokenText.h"

namespace lorelin {

// What in `after` comes from where in `before`, when nobody knows how the one was made of the other: words
// that are the same stay themselves, by the longest common subsequence; what lies between two of them comes
// from what lay between them. Long texts are aligned bit by bit with a bounded look ahead, so that time and
// memory stay small; where more than that was left out or put in, the rest up to there is one run.
[[nodiscard]] std::vector<SpokenRun> AlignWords(std::string_view before, std::string_view after);

}  // namespace lorelin
