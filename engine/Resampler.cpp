#include "engine/Resampler.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace lorelin::engine {
namespace {

constexpr double kLobes = 16;        // of the kernel, to each side
constexpr std::size_t kSteps = 512;  // of its table, for each lobe

// A sinc below a Blackman window, from its middle to its end.
std::vector<float> MakeKernel() {
  const std::size_t size = static_cast<std::size_t>(kLobes) * kSteps;
  std::vector<float> kernel(size + 2, 0);
  for (std::size_t i = 0; i <= size; ++i) {
    const double x = static_cast<double>(i) / kSteps;
    const double angle = std::numbers::pi * x / kLobes;
    const double window = 0.42 + 0.5 * std::cos(angle) + 0.08 * std::cos(2 * angle);
    const double sinc = i == 0 ? 1 : std::sin(std::numbers::pi * x) / (std::numbers::pi * x);
    kernel[i] = static_cast<float>(window * sinc);
  }
  return kernel;
}

float At(const std::vector<float>& kernel, double lobe) {
  const double place = std::abs(lobe) * kSteps;
  const auto before = static_cast<std::size_t>(place);
  const auto part = static_cast<float>(place - static_cast<double>(before));
  return kernel[before] + (kernel[before + 1] - kernel[before]) * part;
}

}  // namespace

std::vector<float> Resampled(std::span<const float> samples, double step) {
  if (std::abs(step - 1) < 1e-9) return {samples.begin(), samples.end()};
  static const std::vector<float> kernel = MakeKernel();
  const double band = std::min(1.0, 1 / step);
  const double reach = kLobes / band;
  std::vector<float> result(static_cast<std::size_t>(static_cast<double>(samples.size()) / step));
  for (std::size_t i = 0; i < result.size(); ++i) {
    const double middle = static_cast<double>(i) * step;
    const double last = std::min(std::floor(middle + reach), static_cast<double>(samples.size()) - 1);
    float sum = 0;
    for (auto at = static_cast<std::size_t>(std::max(0.0, std::ceil(middle - reach)));
         static_cast<double>(at) <= last; ++at)
      sum += samples[at] * At(kernel, (static_cast<double>(at) - middle) * band);
    result[i] = sum * static_cast<float>(band);
  }
  return result;
}

}  // namespace lorelin::engine
