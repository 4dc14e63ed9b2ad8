#include "base/unfinishedName.h"

#include <string>
#include <system_error>

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as systems follow
// File systems allow 255 bytes; a longer name keeps its end, which holds the file type.
constexpr std::size_t kMostOfTheName = 240;

}  // namespace

fs::path FollowedLinks(fs::path path) {
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) break;
    const fs::path pointedTo = fs::read_symlink(path, error);
    if (error) break;
    path = path.parent_path() / pointedTo;  // an absolute one takes the place of the whole
  }
  return path;
}

fs::path UnfinishedName(const fs::path& target) {
  const fs::path followed = FollowedLinks(target);
  std::u8string name = followed.filename().u8string();
  if (name.size() > kMostOfTheName) name.erase(0, name.size() - kMostOfTheName);
  while (!name.empty() && (name.front() & 0xC0) == 0x80) name.erase(0, 1);  // no half of a character
  return followed.parent_path() / (std::u8string(kUnfinishedPrefix.begin(), kUnfinishedPrefix.end()) + name);
}

}  // namespace lorelin
