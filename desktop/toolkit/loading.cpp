#include "desktop/toolkit/loading.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::uintmax_t kLong = 16 << 20;  // bytes; what is shorter is there at once
constexpr double kShareOfReading = 0.3;
constexpr auto kGlance = std::chrono::milliseconds(50);

bool IsLong(const std::string& path) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(NativePath(path), error);
  return !error && size > kLong;
}

}  // namespace

Loading::Loading(const std::string& path) : path_(path), long_(IsLong(path)) {}

StoredRichText Loading::Read() {
  if (!long_) return ReadRichTextFile(path_);
  std::future<StoredRichText> text =
      std::async(std::launch::async, [path = path_] { return ReadRichTextFile(path); });
  double done = 0;
  while (text.wait_for(kGlance) != std::future_status::ready) {
    ShowShare(done);
    done += (kShareOfReading - done) / 50;  // how far it is nobody knows
  }
  return text.get();
}

void Loading::Advance(double done) {
  if (long_) ShowShare(kShareOfReading + (1 - kShareOfReading) * done);
}

void Loading::ShowShare(double share) {
  if (!window_.Show("Der Text wird geladen …", share)) throw RuntimeError(ErrorNumber::Cancelled);
}

}  // namespace lorelin
