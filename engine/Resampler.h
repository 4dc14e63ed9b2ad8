#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace lorelin::engine {

// The samples read `step` times as fast: at another rate, or higher (and shorter) than they were. What
// would be mirrored from beyond the new band is taken out. `step` between 0.1 and 10.
[[nodiscard]] std::vector<float> Resampled(std::span<const float> samples, double step);

}  // namespace lorelin::engine
