#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace lorelin::engine {

// The sound in exactly so many samples, as high as it was: pieces of it that fit one another are laid closer
// together or farther apart (waveform similarity overlap-add). For up to a few times as many or as few.
[[nodiscard]] std::vector<float> Stretched(std::span<const float> samples, std::size_t size, int sampleRate);

}  // namespace lorelin::engine
