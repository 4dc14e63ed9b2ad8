#include "engine/waveHeader.h"

#include <cstddef>

namespace lorelin::engine {
namespace {

constexpr std::uint32_t kHeaderSize = 44;

void AppendNumber(std::string& bytes, std::uint32_t number, unsigned size) {
  for (unsigned i = 0; i < size; ++i) bytes.push_back(static_cast<char>(number >> (8 * i)));
}

}  // namespace

std::string WaveHeader(std::uint32_t sampleRate, std::uint32_t dataBytes) {
  constexpr std::uint32_t kBytesPerSample = 2;
  std::string header = "RIFF";
  AppendNumber(header, dataBytes + kHeaderSize - 8, 4);
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

}  // namespace lorelin::engine
