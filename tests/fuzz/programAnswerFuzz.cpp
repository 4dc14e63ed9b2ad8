#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/SpeechModule.h"
#include "engine/waveReading.h"

namespace {

using namespace lorelin::engine;

void CheckSound(const Sound& sound, std::size_t bytes) {
  if (sound.samples.size() > bytes) std::abort();
  for (const float sample : sound.samples) {
    if (!(std::abs(sample) <= 1)) std::abort();
  }
}

}  // namespace

// Whatever a program writes as a WAV file or a module of speech-dispatcher answers, no more comes of it than
// it wrote, and it does not matter how it comes in.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (const auto sound = ReadWave(bytes)) {
    CheckSound(*sound, size);
    if (sound->sampleRate < kLowestRate || sound->sampleRate > kHighestRate) std::abort();
  }
  ModuleAnswers whole;
  std::string rest(bytes);
  whole.Read(rest);
  CheckSound(whole.Spoken(), size);
  ModuleAnswers parts;
  std::string some;
  for (std::size_t at = 0; at < size; at += 7) {
    some += bytes.substr(at, 7);
    parts.Read(some);
  }
  if (some != rest || parts.Count() != whole.Count() || parts.Broken() != whole.Broken() ||
      parts.Spoken().samples != whole.Spoken().samples || parts.Marks().size() != whole.Marks().size())
    std::abort();
  return 0;
}
