#include "platform/common/LogFile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMaxSize = 1 << 20;

void KeepSmall(const fs::path& path) {
  std::error_code error;
  if (fs::file_size(path, error) >= kMaxSize && !error) {
    fs::path older = path;
    older += ".1";
    fs::rename(path, older, error);
  }
}

}  // namespace

LogFile::LogFile(const std::string& path, Clock& clock, bool copyToStandardError)
    : path_(NativePath(path)), clock_(clock), copyToStandardError_(copyToStandardError) {
  const fs::path folder = path_.parent_path();
  std::error_code error;
  const bool made = fs::create_directories(folder, error);
  // One that somebody named, or the program's own beside it, is what it is.
  if (made || folder.filename() == "lorelin") (void)MakePrivateFolder(folder);
}

std::string LogFile::WithTime(std::string_view line) {
  const LocalTime now = clock_.Now();
  std::array<char, 64> time{};
  std::snprintf(time.data(), time.size(), "%04d-%02d-%02d %02d:%02d:%02d ", now.year, now.month, now.day,
                now.hour, now.minute, now.second);
  std::string entry = time.data() + WithoutCredentials(line);
  std::replace(entry.begin(), entry.end(), '\n', ' ');
  return entry + '\n';
}

void LogFile::Write(std::string_view line) {
  const std::lock_guard guard(mutex_);
  const std::string entry = WithTime(line);
  if (copyToStandardError_) std::fwrite(entry.data(), 1, entry.size(), stderr);
  KeepSmall(path_);
  std::error_code error;
  std::ofstream file(path_, std::ios::binary | std::ios::app);
  // What somebody reads is nobody else's business.
  fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, error);
  file.write(entry.data(), static_cast<std::streamsize>(entry.size()));
}

}  // namespace lorelin
