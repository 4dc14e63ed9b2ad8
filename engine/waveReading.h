#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace lorelin::engine {

// One channel, full loudness is 1.
struct Sound {
  std::vector<float> samples;
  int sampleRate = 0;
};

inline constexpr int kLowestRate = 4000;
inline constexpr int kHighestRate = 96000;

// The sound of a WAV file (RIFF/WAVE; Multimedia Programming Interface and Data Specifications 1.0, 1991, and
// its WAVEFORMATEXTENSIBLE): PCM of 8, 16, 24 or 32 bits or 32-bit floating point, up to eight channels,
// which are mixed. Sizes of 0 and beyond the end, as programs write them that do not know better, mean the
// rest of the bytes. Nothing when it is anything else.
[[nodiscard]] std::optional<Sound> ReadWave(std::string_view bytes);

// The sound of plain samples: 16 bit, one channel, the least significant byte first.
[[nodiscard]] Sound ReadSamples(std::string_view bytes, int sampleRate);

inline constexpr std::size_t kWaveBeginning = 12;

// The size of the WAV file that these at least kWaveBeginning bytes begin, as it tells it; nothing when they
// begin something else.
[[nodiscard]] std::optional<std::size_t> ToldWaveSize(std::string_view bytes);

}  // namespace lorelin::engine
