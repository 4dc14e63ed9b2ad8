#include "platform/linux/DirectorySearch.h"

#include <fnmatch.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "app/paths.h"
#include "app/text.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// The pattern for fnmatch: only "*" and "?" have a meaning.
std::string NamePattern(std::string_view pattern) {
  if (pattern == "*.*") return "*";
  std::string escaped;
  for (const char c : pattern) {
    if (c == '[' || c == '\\') escaped.push_back('\\');
    escaped.push_back(c);
  }
  return escaped;
}

bool IsFile(const fs::directory_entry& entry) {
  std::error_code error;
  // A dangling link is a file: it can be listed and deleted.
  return entry.is_symlink(error) ? !fs::is_directory(entry.path(), error) : !entry.is_directory(error);
}

}  // namespace

std::vector<std::string> DirectorySearch::FilesMatching(const std::string& pattern) {
  const auto slash = pattern.find_last_of("/\\");
  const std::string folder = slash == std::string::npos ? "." : pattern.substr(0, slash == 0 ? 1 : slash);
  const std::string names =
      NamePattern(std::string_view(pattern).substr(slash == std::string::npos ? 0 : slash + 1));
  std::vector<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(NativePath(folder), error), end; !error && entry != end;
       entry.increment(error)) {
    std::string name = PathText(entry->path().filename());
    if (fnmatch(names.c_str(), name.c_str(), 0) == 0 && IsFile(*entry)) found.push_back(std::move(name));
  }
  return found;
}

}  // namespace lorelin
