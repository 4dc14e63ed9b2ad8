#include "voices/DownloadPace.h"

#include <algorithm>
#include <cmath>

#include "base/sizeText.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

constexpr double kMegabyte = 1e6;
constexpr double kLeastSeconds = 0.5;
constexpr double kMinute = 60;

std::string Left(double seconds) {
  if (seconds < 2 * kMinute) return std::to_string(std::llround(std::ceil(seconds))) + " Sekunden";
  return std::to_string(std::llround(std::ceil(seconds / kMinute))) + " Minuten";
}

}  // namespace

void DownloadPace::Turn(std::uintmax_t there, std::uintmax_t all) {
  const auto now = clock_.Steady();
  // A server that cannot go on where the last attempt ended begins anew.
  if (!begun_ || there < began_) {
    begun_ = true;
    began_ = there;
    since_ = now;
    bytesPerSecond_ = 0;
  }
  there_ = there;
  all_ = all;
  const double seconds = std::chrono::duration<double>(now - since_).count();
  if (seconds >= kLeastSeconds) bytesPerSecond_ = static_cast<double>(there - began_) / seconds;
}

int DownloadPace::Percent() const {
  if (all_ == 0) return 0;
  return static_cast<int>(std::min<std::uintmax_t>(there_ * 100 / all_, 100));
}

std::string DownloadPace::Text() const {
  std::string text = OneDecimal(static_cast<double>(there_) / kMegabyte) + " von " + SizeText(all_);
  if (bytesPerSecond_ < 1) return text;
  text += ", " + OneDecimal(bytesPerSecond_ / kMegabyte) + " MB/s";
  if (there_ < all_) text += ", noch " + Left(static_cast<double>(all_ - there_) / bytesPerSecond_);
  return text;
}

}  // namespace lorelin
