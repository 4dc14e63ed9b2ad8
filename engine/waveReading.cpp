#include "engine/waveReading.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace lorelin::engine {
namespace {

constexpr std::size_t kChunkHeader = 8;
constexpr std::uint32_t kPlain = 1;
constexpr std::uint32_t kFloatingPoint = 3;
constexpr std::uint32_t kExtensible = 0xFFFE;
constexpr std::uint32_t kMostChannels = 8;

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size; ++i)
    number |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
  return number;
}

struct Form {
  std::uint32_t kind = 0;
  std::uint32_t channels = 0;
  std::uint32_t rate = 0;
  std::uint32_t bits = 0;

  [[nodiscard]] bool IsKnown() const {
    const bool whole = kind == kPlain && (bits == 8 || bits == 16 || bits == 24 || bits == 32);
    return (whole || (kind == kFloatingPoint && bits == 32)) && channels >= 1 && channels <= kMostChannels &&
           rate >= kLowestRate && rate <= kHighestRate;
  }
};

Form ReadForm(std::string_view chunk) {
  constexpr std::size_t kLeast = 16;
  constexpr std::size_t kSubKindAt = 24;
  if (chunk.size() < kLeast) return {};
  Form form{Number(chunk, 0, 2), Number(chunk, 2, 2), Number(chunk, 4, 4), Number(chunk, 14, 2)};
  if (form.kind == kExtensible && chunk.size() >= kSubKindAt + 2) form.kind = Number(chunk, kSubKindAt, 2);
  return form;
}

float Sample(std::string_view bytes, std::size_t at, const Form& form) {
  const std::uint32_t raw = Number(bytes, at, form.bits / 8);
  if (form.kind == kFloatingPoint) {
    const auto sample = std::bit_cast<float>(raw);
    return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0;
  }
  if (form.bits == 8) return (static_cast<float>(raw) - 128) / 128;
  // The highest bit is the sign.
  return static_cast<float>(static_cast<double>(static_cast<std::int32_t>(raw << (32 - form.bits))) /
                            2147483648.0);
}

Sound Mixed(std::string_view data, const Form& form) {
  const std::size_t size = form.bits / 8;
  const std::size_t frames = data.size() / (size * form.channels);
  Sound sound{.samples = std::vector<float>(frames), .sampleRate = static_cast<int>(form.rate)};
  std::size_t at = 0;
  for (float& mixed : sound.samples) {
    for (std::uint32_t channel = 0; channel < form.channels; ++channel, at += size)
      mixed += Sample(data, at, form);
    mixed /= static_cast<float>(form.channels);
  }
  return sound;
}

}  // namespace

std::optional<Sound> ReadWave(std::string_view bytes) {
  if (!ToldWaveSize(bytes)) return std::nullopt;
  Form form;
  bytes.remove_prefix(kWaveBeginning);
  while (bytes.size() >= kChunkHeader) {
    const std::string_view name = bytes.substr(0, 4);
    const std::size_t told = Number(bytes, 4, 4);
    bytes.remove_prefix(kChunkHeader);
    const std::size_t size = name == "data" && told == 0 ? bytes.size() : std::min(told, bytes.size());
    if (name == "fmt ") form = ReadForm(bytes.substr(0, size));
    if (name == "data")
      return form.IsKnown() ? std::optional(Mixed(bytes.substr(0, size), form)) : std::nullopt;
    bytes.remove_prefix(std::min(size + size % 2, bytes.size()));
  }
  return std::nullopt;
}

Sound ReadSamples(std::string_view bytes, int sampleRate) {
  return Mixed(bytes,
               {.kind = kPlain, .channels = 1, .rate = static_cast<std::uint32_t>(sampleRate), .bits = 16});
}

std::optional<std::size_t> ToldWaveSize(std::string_view bytes) {
  if (bytes.size() < kWaveBeginning || !bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE")
    return std::nullopt;
  return std::size_t{Number(bytes, 4, 4)} + 8;
}

}  // namespace lorelin::engine
