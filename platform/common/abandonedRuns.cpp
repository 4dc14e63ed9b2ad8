#include "platform/common/abandonedRuns.h"

#include <charconv>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/paths.h"
#include "platform/common/console.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "run-";

bool IsAbandoned(const std::string& name) {
  if (!name.starts_with(kPrefix)) return false;
  unsigned long process = 0;
  const char* const end = name.data() + name.size();
  const auto result = std::from_chars(name.data() + kPrefix.size(), end, process);
  if (result.ec != std::errc() || result.ptr != end || process == 0) return false;
  return !ProcessIsThere(process);
}

}  // namespace

void RemoveAbandonedRuns(const std::string& cacheFolder) {
  std::error_code error;
  std::vector<fs::path> abandoned;
  for (fs::directory_iterator entry(NativePath(cacheFolder), error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsAbandoned(PathText(entry->path().filename()))) abandoned.push_back(entry->path());
  }
  for (const fs::path& folder : abandoned) fs::remove_all(folder, error);
}

}  // namespace lorelin
