#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/SampleSink.h"
#include "engine/StreamResampler.h"
#include "engine/TargetFile.h"
#include "ports/SoundFile.h"

namespace lorelin::engine {

// A compressed sound file, encoded by libsndfile as the samples come; it takes the target's place when it is
// whole, see TargetFile. A byte that could not be written makes the file fail, whatever the library says.
class SoundFileWriter final : public SampleSink {
 public:
  // Any format but Wav.
  SoundFileWriter(const std::string& path, std::uint32_t sampleRate, SoundFormat format,
                  SoundQuality quality);
  ~SoundFileWriter() override;
  SoundFileWriter(const SoundFileWriter&) = delete;
  SoundFileWriter& operator=(const SoundFileWriter&) = delete;

  bool Write(std::span<const std::int16_t> samples) override;
  bool Finish() override;
  [[nodiscard]] std::string Problem() const override { return problem_; }

 private:
  // What the library sees as the file.
  class Bytes;

  void OpenEncoder(SoundFormat format, SoundQuality quality, std::uint32_t rate);
  bool Encode(std::span<const std::int16_t> samples);
  bool Close();
  bool Fail(int errorNumber);

  std::unique_ptr<Bytes> bytes_;
  SNDFILE* encoder_ = nullptr;
  std::unique_ptr<StreamResampler> resampler_;  // null where the format takes the engine's rate
  std::string problem_;
};

}  // namespace lorelin::engine
