#include "engine/timeScale.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace lorelin::engine {
namespace {

constexpr double kHopSeconds = 0.015;  // from one piece to the next; a piece is two of them
constexpr double kReachSeconds =
    0.008;  // how far a piece may be from where it belongs; half a low voice's period

class Stretcher {
 public:
  Stretcher(std::span<const float> samples, int sampleRate)
      : samples_(samples),
        hop_(static_cast<std::ptrdiff_t>(kHopSeconds * sampleRate)),
        reach_(static_cast<std::ptrdiff_t>(kReachSeconds * sampleRate)) {
    for (std::ptrdiff_t i = 0; i < hop_; ++i) {
      const double angle = std::numbers::pi * static_cast<double>(i) / static_cast<double>(hop_);
      rise_.push_back(static_cast<float>(0.5 - 0.5 * std::cos(angle)));
    }
  }

  std::vector<float> Run(std::size_t size) {
    std::vector<float> result(size);
    const double pace = static_cast<double>(samples_.size()) / static_cast<double>(size);
    std::ptrdiff_t before = -hop_;
    for (std::ptrdiff_t at = 0; at < static_cast<std::ptrdiff_t>(size); at += hop_) {
      const auto wanted = static_cast<std::ptrdiff_t>(std::llround(static_cast<double>(at) * pace));
      // The first piece is the beginning itself.
      const std::ptrdiff_t found = at == 0 ? 0 : Nearest(wanted, before + hop_);
      const auto room = std::min<std::ptrdiff_t>(hop_, static_cast<std::ptrdiff_t>(size) - at);
      for (std::ptrdiff_t i = 0; i < room; ++i) {
        const float rise = rise_[static_cast<std::size_t>(i)];
        const float old = at == 0 ? At(i) : At(before + hop_ + i);
        result[static_cast<std::size_t>(at + i)] = old + (At(found + i) - old) * rise;
      }
      before = found;
    }
    return result;
  }

 private:
  [[nodiscard]] float At(std::ptrdiff_t i) const {
    return i >= 0 && i < static_cast<std::ptrdiff_t>(samples_.size()) ? samples_[static_cast<std::size_t>(i)]
                                                                      : 0;
  }

  // How much the sound from `there` on is like that from `here` on.
  [[nodiscard]] double Likeness(std::ptrdiff_t here, std::ptrdiff_t there) const {
    double product = 0;
    double energy = 1e-9;
    for (std::ptrdiff_t i = 0; i < hop_; ++i) {
      const double sample = At(there + i);
      product += sample * At(here + i);
      energy += sample * sample;
    }
    return product / std::sqrt(energy);
  }

  // The place around `wanted` that goes on most like the sound does that is being left; of equals the
  // nearest.
  [[nodiscard]] std::ptrdiff_t Nearest(std::ptrdiff_t wanted, std::ptrdiff_t goesOn) const {
    std::ptrdiff_t best = wanted;
    double most = Likeness(goesOn, wanted);
    for (std::ptrdiff_t away = 1; away <= reach_; ++away) {
      for (const std::ptrdiff_t there : {wanted - away, wanted + away}) {
        const double likeness = Likeness(goesOn, there);
        if (likeness <= most * 1.000001 + 1e-9) continue;
        most = likeness;
        best = there;
      }
    }
    return best;
  }

  const std::span<const float> samples_;
  const std::ptrdiff_t hop_;
  const std::ptrdiff_t reach_;
  std::vector<float> rise_;
};

}  // namespace

std::vector<float> Stretched(std::span<const float> samples, std::size_t size, int sampleRate) {
  if (samples.size() == size) return {samples.begin(), samples.end()};
  if (samples.empty() || size == 0) return std::vector<float>(size);
  return Stretcher(samples, sampleRate).Run(size);
}

}  // namespace lorelin::engine
