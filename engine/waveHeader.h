#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lorelin::engine {

// The header of a WAV file (RIFF/WAVE, PCM; Multimedia Programming Interface and Data Specifications 1.0,
// 1991) with one channel of 16 bits: 44 bytes, behind which the samples stand. `dataBytes` is the samples'
// size, 2^32 - 37 at most.
[[nodiscard]] std::string WaveHeader(std::uint32_t sampleRate, std::uint32_t dataBytes);

inline constexpr std::size_t kWaveHeaderSize = 44;

// Of such a header, which the bytes begin with; nothing when they begin with anything else. What it says of
// the size is not asked for: a file may have been cut.
[[nodiscard]] std::optional<std::uint32_t> SampleRateOf(std::string_view bytes);

}  // namespace lorelin::engine
