#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "scripts/interpreter.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kWildcards = "*?";

struct Pattern {
  std::string folder;  // with its separator at the end; "" for the working folder
  std::string name;
};

Pattern Cut(const std::string& pattern) {
  const auto separator = pattern.find_last_of("/\\");
  if (separator == std::string::npos) return {.folder = "", .name = pattern};
  return {.folder = pattern.substr(0, separator + 1), .name = pattern.substr(separator + 1)};
}

bool IsLink(const std::string& folder) {
  const auto end = folder.find_last_not_of("/\\");
  if (end == std::string::npos) return false;
  std::error_code error;
  return fs::is_symlink(fs::symlink_status(NativePath(folder.substr(0, end + 1)), error));
}

void Delete(const fs::path& file) {
  std::error_code error;
  if (fs::remove(file, error)) return;
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
      error == std::errc::read_only_file_system) {
    throw RuntimeError(ErrorNumber::PermissionDenied);
  }
  throw RuntimeError(error ? ErrorNumber::PathFileAccess : ErrorNumber::FileNotFound);
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view commandLine) {
  std::vector<std::string> arguments;
  std::string argument;
  bool begun = false;
  bool quoted = false;
  const auto finish = [&] {
    if (begun) arguments.push_back(std::move(argument));
    argument.clear();
    begun = false;
  };
  for (const char c : commandLine) {
    if (c == '"') {
      quoted = !quoted;
      begun = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      finish();
    } else {
      argument.push_back(c);
      begun = true;
    }
  }
  finish();
  return arguments;
}

void DeleteFiles(const std::string& pattern, FileSearch& fileSearch) {
  const Pattern cut = Cut(pattern);
  const bool many = cut.name.find_first_of(kWildcards) != std::string::npos;
  if (many && IsLink(cut.folder)) throw RuntimeError(ErrorNumber::PathFileAccess);
  const std::string folder = PathText(NativePath(cut.folder));
  bool found = false;
  for (const std::string& name : fileSearch.FilesMatching(pattern)) {
    if (name.starts_with('.') && !cut.name.starts_with('.')) continue;
    found = true;
    Delete(NativePath(JoinPath(folder, {name})));
  }
  if (!found) throw RuntimeError(ErrorNumber::FileNotFound);
}

}  // namespace lorelin
