#include "base/paths.h"

#include <algorithm>
#include <system_error>

namespace lorelin {
namespace {

namespace fs = std::filesystem;

fs::path FromUtf8(std::string_view text) {
  return fs::path(std::u8string(text.begin(), text.end()));
}

}  // namespace

fs::path NativePath(std::string_view path) {
  std::error_code error;
  const fs::path literal = FromUtf8(path);
  if (fs::symlink_status(literal, error).type() != fs::file_type::not_found) return literal;
  std::string converted(path);
  std::replace(converted.begin(), converted.end(), '\\', '/');
  return FromUtf8(converted);
}

std::string PathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(NativePath(path), error);
  return error ? path : PathText(absolute);
}

std::string JoinPath(std::string_view folder, std::initializer_list<std::string_view> names) {
  fs::path joined = FromUtf8(folder);
  for (const auto name : names) joined /= FromUtf8(name);
  return PathText(joined);
}

std::error_code MakePrivateFolder(const std::filesystem::path& folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error || fs::is_symlink(fs::symlink_status(folder, error))) return error;
  fs::permissions(folder, fs::perms::owner_all, error);
  return error;
}

}  // namespace lorelin
