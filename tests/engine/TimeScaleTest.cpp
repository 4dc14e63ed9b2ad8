#include "engine/timeScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace lorelin::engine {
namespace {

constexpr int kRate = 22050;

std::vector<float> Tone(double hertz, double seconds) {
  std::vector<float> samples(static_cast<std::size_t>(seconds * kRate));
  for (std::size_t i = 0; i < samples.size(); ++i)
    samples[i] =
        static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / kRate));
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
  return rises < 2 ? 0 : (rises - 1) * static_cast<double>(kRate) / static_cast<double>(last - first);
}

double Loudness(const std::vector<float>& samples) {
  double sum = 0;
  for (const float sample : samples) sum += static_cast<double>(sample) * sample;
  return std::sqrt(sum / static_cast<double>(samples.size()));
}

TEST(TimeScale, ChangesTheLengthAndNotTheHeight) {
  for (const double hertz : {90.0, 220.0, 1000.0}) {
    const auto tone = Tone(hertz, 1);
    for (const double factor : {0.39, 0.71, 0.97, 1.03, 1.41, 2.2}) {
      const auto size = static_cast<std::size_t>(factor * kRate);
      const auto scaled = Stretched(tone, size, kRate);
      EXPECT_EQ(scaled.size(), size);
      EXPECT_NEAR(Hertz(scaled) / hertz, 1, 0.01) << hertz << " x " << factor;
      EXPECT_NEAR(Loudness(scaled) / Loudness(tone), 1, 0.05) << hertz << " x " << factor;
    }
  }
}

TEST(TimeScale, LeavesASoundOfTheRightLengthAsItIs) {
  const auto tone = Tone(220, 0.3);
  EXPECT_EQ(Stretched(tone, tone.size(), kRate), tone);
}

TEST(TimeScale, KeepsWhatHappensInItsPlace) {
  std::vector<float> samples(kRate, 0);
  const auto tone = Tone(440, 0.2);
  std::copy(tone.begin(), tone.end(), samples.begin() + kRate / 2);
  const auto scaled = Stretched(samples, kRate * 3 / 2, kRate);
  const auto begin = std::find_if(scaled.begin(), scaled.end(), [](float s) { return std::abs(s) > 0.1F; });
  EXPECT_NEAR(static_cast<double>(begin - scaled.begin()) / kRate, 0.75, 0.02);
}

TEST(TimeScale, TakesShortSoundsAndNone) {
  EXPECT_TRUE(Stretched({}, 0, kRate).empty());
  EXPECT_EQ(Stretched({}, 10, kRate), std::vector<float>(10));
  EXPECT_TRUE(Stretched(Tone(440, 0.01), 0, kRate).empty());
  EXPECT_EQ(Stretched(std::vector<float>{0.5F}, 3, kRate).size(), 3U);
}

}  // namespace
}  // namespace lorelin::engine
