#include "cli/Progress.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace lorelin::cli {
namespace {

constexpr std::chrono::milliseconds kFirst{1000};
constexpr std::chrono::milliseconds kInterval{250};
constexpr std::uintmax_t kBytesPerSecond = 44100;

}  // namespace

Progress::Progress(std::string file)
    : file_(std::move(file)), next_(std::chrono::steady_clock::now() + kFirst) {}

void Progress::Turn() {
  if (file_.empty() || !line_.Wanted() || std::chrono::steady_clock::now() < next_) return;
  next_ = std::chrono::steady_clock::now() + kInterval;
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(file_, error);
  if (error) return;
  const std::uintmax_t seconds = size / kBytesPerSecond;
  std::array<char, 96> text{};
  std::snprintf(text.data(), text.size(), "%ju:%02ju:%02ju Sprache, %ju MB", seconds / 3600,
                seconds / 60 % 60, seconds % 60, size / 1000000);
  line_.Show(text.data());
}

}  // namespace lorelin::cli
