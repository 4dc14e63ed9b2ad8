#include "speech/ReadingPace.h"

#include <algorithm>
#include <cmath>

namespace lorelin {
namespace {

constexpr double kLongestGap = 10;  // seconds; what is longer was no reading, as when the computer slept
constexpr double kMemory = 60;      // seconds, after which what was heard counts a third
constexpr double kEnough = 3;       // seconds that are worth an estimate

}  // namespace

void ReadingPace::Begin(Time now) {
  *this = {};
  since_ = now;
}

void ReadingPace::Pass(Time now) {
  if (!held_) passed_ += std::chrono::duration<double>(now - since_).count();
  since_ = now;
}

void ReadingPace::Heard(Time now, std::size_t character, bool jumped) {
  Pass(now);
  const double interval = std::min(passed_, kLongestGap);
  passed_ = 0;
  gone_ += interval;
  if (last_ && !jumped && character > *last_) {
    const double kept = std::exp(-interval / kMemory);
    seconds_ = seconds_ * kept + interval;
    characters_ = characters_ * kept + static_cast<double>(character - *last_);
  }
  last_ = character;
}

void ReadingPace::Hold(Time now, bool held) {
  Pass(now);
  held_ = held;
}

void ReadingPace::ChangeSpeed() {
  seconds_ = 0;
  characters_ = 0;
}

std::chrono::seconds ReadingPace::Gone() const {
  return std::chrono::seconds(static_cast<std::chrono::seconds::rep>(gone_));
}

std::optional<std::chrono::seconds> ReadingPace::Left(std::size_t characters) const {
  if (seconds_ < kEnough || characters_ <= 0) return std::nullopt;
  const double left = static_cast<double>(characters) * seconds_ / characters_;
  return std::chrono::seconds(static_cast<std::chrono::seconds::rep>(std::ceil(left)));
}

}  // namespace lorelin
