#include "engine/StreamResampler.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/Resampler.h"

namespace lorelin::engine {
namespace {

// As far as the kernel reaches to each side, at the largest step.
constexpr std::size_t kReach = 256;
constexpr std::size_t kBlock = 8192;  // samples that are worth a turn

std::int16_t Sample(float value) {
  return static_cast<std::int16_t>(std::lround(std::clamp(value, -32768.0F, 32767.0F)));
}

}  // namespace

StreamResampler::StreamResampler(std::uint32_t from, std::uint32_t to)
    : inGroup_(from / std::gcd(from, to)), outGroup_(to / std::gcd(from, to)) {}

const std::vector<std::int16_t>& StreamResampler::Next(std::span<const std::int16_t> samples) {
  read_.clear();
  waiting_.insert(waiting_.end(), samples.begin(), samples.end());
  if (waiting_.size() >= before_ + kBlock + kReach) Read(false);
  return read_;
}

const std::vector<std::int16_t>& StreamResampler::Last() {
  read_.clear();
  Read(true);
  waiting_.clear();
  before_ = 0;
  return read_;
}

// Groups begin at the same place of both rates, so that a piece that begins with one is read like the whole.
void StreamResampler::Read(bool end) {
  const std::size_t ready = waiting_.size() - before_;
  const std::size_t groups = end ? 0 : (ready - kReach) / inGroup_;
  const double step = static_cast<double>(inGroup_) / static_cast<double>(outGroup_);
  const std::size_t last = before_ / inGroup_ * outGroup_;
  const std::vector<float> resampled = Resampled(waiting_, step);
  const std::size_t behind = end ? resampled.size() : last + groups * outGroup_;
  for (std::size_t i = last; i < behind; ++i) read_.push_back(Sample(resampled[i]));
  if (end) return;
  before_ += groups * inGroup_;
  const std::size_t kept = (kReach / inGroup_ + 1) * inGroup_;
  if (before_ <= kept) return;
  waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(before_ - kept));
  before_ = kept;
}

}  // namespace lorelin::engine
