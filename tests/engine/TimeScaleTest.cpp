#include "engine/timeScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace lorelin::engine {
namespace {

constexpr int kScaleRate = 22050;

std::vector<float> ScaledTone(double hertz, double seconds) {
  std::vector<float> samples(static_cast<std::size_t>(seconds * kScaleRate));
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] = static_cast<float>(
        0.5 * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / kScaleRate));
  return samples;
}

double Hertz(const std::vector<float>& samples) {
  std::size_t first = 0;
  std::size_t last = 0;
  int rises = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    if (samples[i - 1] >= 0 || samples[i] < 0) continue;
    if (rises++ == 0) first = i;
    last = i;
  }
  return rises < 2 ? 0 : (rises - 1) * static_cast<double>(kScaleRate) / static_cast<double>(last - first);
}

double Loudness(const std::vector<float>& samples) {
  double sum = 0;
  for (const float sample : samples) sum += static_cast<double>(sample) * sample;
  return std::sqrt(sum / static_cast<double>(samples.size()));
}

TEST(TimeScale, ChangesTheLengthAndNotTheHeight) {
  for (const double hertz : {90.0, 220.0, 1000.0}) {
    const auto tone = ScaledTone(hertz, 1);
    for (const double factor : {0.39, 0.71, 0.97, 1.03, 1.41, 2.2}) {
      const auto size = static_cast<std::size_t>(factor * kScaleRate);
      const auto scaled = Stretched(tone, size, kScaleRate);
      EXPECT_EQ(scaled.size(), size);
      EXPECT_NEAR(Hertz(scaled) / hertz, 1, 0.01) << hertz << " x " << factor;
      EXPECT_NEAR(Loudness(scaled) / Loudness(tone), 1, 0.05) << hertz << " x " << factor;
    }
  }
}

TEST(TimeScale, LeavesASoundOfTheRightLengthAsItIs) {
  const auto tone = ScaledTone(220, 0.3);
  EXPECT_EQ(Stretched(tone, tone.size(), kScaleRate), tone);
}

TEST(TimeScale, KeepsWhatHappensInItsPlace) {
  std::vector<float> samples(kScaleRate, 0);
  const auto tone = ScaledTone(440, 0.2);
  std::copy(tone.begin(), tone.end(), samples.begin() + kScaleRate / 2);
  const auto scaled = Stretched(samples, kScaleRate * 3 / 2, kScaleRate);
  const auto begin = std::find_if(scaled.begin(), scaled.end(), [](float s) { return std::abs(s) > 0.1F; });
  EXPECT_NEAR(static_cast<double>(begin - scaled.begin()) / kScaleRate, 0.75, 0.02);
}

TEST(TimeScale, TakesShortSoundsAndNone) {
  EXPECT_TRUE(Stretched({}, 0, kScaleRate).empty());
  EXPECT_EQ(Stretched({}, 10, kScaleRate), std::vector<float>(10));
  EXPECT_TRUE(Stretched(ScaledTone(440, 0.01), 0, kScaleRate).empty());
  EXPECT_EQ(Stretched(std::vector<float>{0.5F}, 3, kScaleRate).size(), 3U);
}

}  // namespace
}  // namespace lorelin::engine
