#include "platform/common/DirectorySearch.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// A byte of a name that is no UTF-8 counts as one character.
std::size_t CharacterLength(std::string_view text) {
  return std::max<std::size_t>(Utf8Length(text), 1);
}

// Whatever the language of the process: fnmatch would refuse some names there.
bool Matches(std::string_view pattern, std::string_view name) {
  std::string_view afterStar;
  std::string_view retry;
  bool starred = false;
  while (!name.empty()) {
    if (pattern.starts_with('*')) {
      starred = true;
      afterStar = pattern = pattern.substr(1);
      retry = name;
    } else if (pattern.starts_with('?')) {
      pattern.remove_prefix(1);
      name.remove_prefix(CharacterLength(name));
    } else if (!pattern.empty() && pattern[0] == name[0]) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (starred) {
      retry.remove_prefix(CharacterLength(retry));
      name = retry;
      pattern = afterStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

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
    if (Matches(names, fold_(name)) && IsFile(*entry)) found.push_back(std::move(name));
  }
  std::sort(found.begin(), found.end(), ListedBefore);
  return found;
}

}  // namespace lorelin
