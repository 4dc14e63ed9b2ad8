#include "platform/linux/LogFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

namespace lorelin {
namespace {

constexpr std::uintmax_t kMaxSize = 1 << 20;

std::string WithTime(std::string_view line) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 32> time{};
  std::strftime(time.data(), time.size(), "%Y-%m-%d %H:%M:%S ", &local);
  std::string entry = time.data() + std::string(line);
  std::replace(entry.begin(), entry.end(), '\n', ' ');
  return entry + '\n';
}

void KeepSmall(const std::string& path) {
  std::error_code error;
  if (std::filesystem::file_size(path, error) >= kMaxSize && !error) {
    std::filesystem::rename(path, path + ".1", error);
  }
}

}  // namespace

LogFile::LogFile(std::string path, bool copyToStandardError)
    : path_(std::move(path)), copyToStandardError_(copyToStandardError) {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
}

void LogFile::Write(std::string_view line) {
  const std::lock_guard guard(mutex_);
  const std::string entry = WithTime(line);
  if (copyToStandardError_) (void)!write(STDERR_FILENO, entry.data(), entry.size());
  KeepSmall(path_);
  const int file = open(path_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0) return;
  (void)!write(file, entry.data(), entry.size());
  close(file);
}

}  // namespace lorelin
