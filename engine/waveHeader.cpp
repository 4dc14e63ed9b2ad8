#include "engine/waveHeader.h"

namespace lorelin::engine {
namespace {

constexpr std::size_t kSampleRateAt = 24;
constexpr std::size_t kDataSizeAt = 40;

void AppendNumber(std::string& bytes, std::uint32_t number, unsigned size) {
  for (unsigned i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> (8 * i)));
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (unsigned i = 0; i < 4; ++i)
    number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return number;
}

}  // namespace

std::string WaveHeader(std::uint32_t sampleRate, std::uint32_t dataBytes) {
  constexpr std::uint32_t kBytesPerSample = 2;
  std::string header = "RIFF";
  AppendNumber(header, dataBytes + static_cast<std::uint32_t>(kWaveHeaderSize) - 8, 4);
  header += "WAVEfmt ";
  AppendNumber(header, 16, 4);  // size of this chunk
  AppendNumber(header, 1, 2);   // PCM
  AppendNumber(header, 1, 2);   // channels
  AppendNumber(header, sampleRate, 4);
  AppendNumber(header, sampleRate * kBytesPerSample, 4);
  AppendNumber(header, kBytesPerSample, 2);
  AppendNumber(header, 8 * kBytesPerSample, 2);
  header += "data";
  AppendNumber(header, dataBytes, 4);
  return header;
}

std::optional<std::uint32_t> SampleRateOf(std::string_view bytes) {
  if (bytes.size() < kWaveHeaderSize) return std::nullopt;
  const std::uint32_t sampleRate = NumberAt(bytes, kSampleRateAt);
  const std::string whole = WaveHeader(sampleRate, NumberAt(bytes, kDataSizeAt));
  // Behind the letters "RIFF" stands the size of the file.
  const bool same =
      bytes.starts_with("RIFF") && bytes.substr(8, kDataSizeAt - 8) == whole.substr(8, kDataSizeAt - 8);
  return same && sampleRate > 0 ? std::optional(sampleRate) : std::nullopt;
}

}  // namespace lorelin::engine
