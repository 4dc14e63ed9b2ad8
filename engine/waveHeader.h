#pragma once

#include <cstdint>
#include <string>

namespace lorelin::engine {

// The header of a WAV file (RIFF/WAVE, PCM; Multimedia Programming Interface and Data Specifications 1.0,
// 1991) with one channel of 16 bits: 44 bytes, behind which the samples stand. `dataBytes` is the samples'
// size, 2^32 - 37 at most.
[[nodiscard]] std::string WaveHeader(std::uint32_t sampleRate, std::uint32_t dataBytes);

}  // namespace lorelin::engine
