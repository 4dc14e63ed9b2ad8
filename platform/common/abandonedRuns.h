#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// A process's list of unfinished files: this and its number; the paths in it end with a zero.
inline constexpr std::string_view kUnfinishedListPrefix = "unfinished-";

// Clears away what processes left that are no more: their folders "run-<process>" in the cache folder, and
// the files of their lists that no living process has on its own. Never throws.
void RemoveAbandonedRuns(const std::string& cacheFolder);

}  // namespace lorelin
