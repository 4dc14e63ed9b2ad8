#include "engine/Resampler.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace lorelin::engine {
namespace {

std::vector<float> Sine(double cyclesPerSample, std::size_t count) {
  std::vector<float> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] =
        static_cast<float>(std::sin(2 * std::numbers::pi * cyclesPerSample * static_cast<double>(i)));
  }
  return samples;
}

// The largest distance between the two, but for the ends.
double Distance(const std::vector<float>& a, const std::vector<float>& b) {
  double distance = 0;
  for (std::size_t i = 100; i + 100 < std::min(a.size(), b.size()); ++i)
    distance = std::max(distance, std::abs(static_cast<double>(a[i]) - b[i]));
  return distance;
}

TEST(Resampled, LeavesSamplesAsTheyAre) {
  const auto samples = Sine(0.01, 500);
  EXPECT_EQ(Resampled(samples, 1), samples);
  EXPECT_TRUE(Resampled({}, 0.5).empty());
}

TEST(Resampled, KeepsATone) {
  for (const double step : {16000.0 / 22050, 0.5, 1.3, 44100.0 / 22050, 48000.0 / 22050}) {
    const auto samples = Resampled(Sine(0.05, 4000), step);
    EXPECT_EQ(samples.size(), static_cast<std::size_t>(4000 / step));
    EXPECT_LT(Distance(samples, Sine(0.05 * step, samples.size())), 0.002) << step;
  }
}

TEST(Resampled, TakesOutWhatTheNewRateCannotHold) {
  const auto samples = Resampled(Sine(0.4, 4000), 2);
  EXPECT_LT(Distance(samples, std::vector<float>(samples.size(), 0)), 0.002);
}

}  // namespace
}  // namespace lorelin::engine
