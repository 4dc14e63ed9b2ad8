#include "platform/common/DirectorySearch.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"
#include "base/wildcards.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

bool IsFile(const fs::directory_entry& entry) {
  std::error_code error;
  // A dangling link is a file: it can be listed and deleted.
  return entry.is_symlink(error) ? !fs::is_directory(entry.path(), error) : !entry.is_directory(error);
}

}  // namespace

std::vector<std::string> DirectorySearch::FilesMatching(const std::string& pattern) {
  const auto slash = pattern.find_last_of("/\\");
  const bool inFolder = slash != std::string::npos;
  const std::string folder = inFolder ? pattern.substr(0, std::max<std::size_t>(slash, 1)) : ".";
  std::string names = fold_(std::string_view(pattern).substr(inFolder ? slash + 1 : 0));
  if (names == "*.*") names = "*";
  std::vector<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(NativePath(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = PathText(entry->path().filename());
    if (MatchesWildcards(names, fold_(name)) && IsFile(*entry)) found.push_back(std::move(name));
  }
  std::sort(found.begin(), found.end(), ListedBefore);
  return found;
}

}  // namespace lorelin
