#pragma once

#include <string>

namespace lorelin {

// Removes the folders "run-<process>" in the cache folder whose process is no more. Never throws.
void RemoveAbandonedRuns(const std::string& cacheFolder);

}  // namespace lorelin
