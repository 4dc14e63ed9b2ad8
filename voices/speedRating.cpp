#include "voices/speedRating.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <vector>

namespace lorelin {
namespace {

using std::chrono::steady_clock;

constexpr std::size_t kChannels = 48;
constexpr std::size_t kFrames = 2048;
constexpr int kRounds = 5;
constexpr std::chrono::milliseconds kMostTime{100};

// Billions of multiplications and additions for a second of speech as MeasureMachine counts them: models of
// the sizes of "medium" and "high" (bench/make-voice) took 0.09 and 0.7 s of a core where it found 3.7
// billion.
constexpr std::array<double, 4> kWork{0.15, 0.3, 0.4, 2.8};

// As a decoder's layers do: every channel of the output is a sum of all channels of the input.
float Layer(const std::vector<float>& input, const std::vector<float>& weights, std::vector<float>& output) {
  std::fill(output.begin(), output.end(), 0.0F);
  for (std::size_t to = 0; to < kChannels; ++to) {
    float* const sum = &output[to * kFrames];
    for (std::size_t from = 0; from < kChannels; ++from) {
      const float weight = weights[to * kChannels + from];
      const float* const values = &input[from * kFrames];
      for (std::size_t frame = 0; frame < kFrames; ++frame) sum[frame] += weight * values[frame];
    }
  }
  return output[kFrames / 2];
}

}  // namespace

std::optional<double> MeasureMachine(Clock& clock) {
  const std::vector<float> input(kChannels * kFrames, 0.5F);
  const std::vector<float> weights(kChannels * kChannels, 0.25F);
  std::vector<float> output(kChannels * kFrames);
  constexpr double kOperations = 1e-9 * kChannels * kChannels * kFrames;
  const auto begin = clock.Steady();
  double best = 0;
  volatile float kept = 0;
  for (int round = 0; round < kRounds && clock.Steady() - begin < kMostTime; ++round) {
    const auto before = clock.Steady();
    kept = Layer(input, weights, output);
    const double seconds = std::chrono::duration<double>(clock.Steady() - before).count();
    if (seconds > 0) best = std::max(best, kOperations / seconds);
  }
  (void)kept;
  return best > 0 ? std::optional(best) : std::nullopt;
}

double ComputingTime(VoiceQuality quality, double machine) {
  return kWork.at(static_cast<std::size_t>(quality)) / machine;
}

std::string_view SpeedText(VoiceQuality quality, std::optional<double> machine) {
  if (!machine) return {};
  const double seconds = ComputingTime(quality, *machine);
  if (seconds < 0.15) return "sehr schnell";
  if (seconds < 0.5) return "schnell";
  return seconds < 1 ? "knapp" : "zu langsam";
}

}  // namespace lorelin
