#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/SampleSink.h"
#include "engine/TargetFile.h"

namespace lorelin::engine {

// A WAV file (RIFF/WAVE, PCM; Multimedia Programming Interface and Data Specifications 1.0, 1991) written as
// a stream; it takes the target's place when it is whole, its header patched, see TargetFile.
class WaveFileWriter final : public SampleSink {
 public:
  // The sizes in a RIFF header are 32 bits wide.
  static constexpr std::uint64_t kMaxDataBytes = 0xFFFFFFFFULL - 36;

  WaveFileWriter(const std::string& path, std::uint32_t sampleRate,
                 std::uint64_t maxDataBytes = kMaxDataBytes);

  bool Write(std::span<const std::int16_t> samples) override;
  bool Finish() override;
  [[nodiscard]] std::string Problem() const override { return problem_; }

 private:
  bool Fail(int errorNumber);
  bool Flush();
  [[nodiscard]] std::string Header() const;

  TargetFile file_;
  std::uint32_t sampleRate_;
  std::uint64_t maxDataBytes_;
  std::uint64_t dataBytes_ = 0;
  std::string problem_;
  std::vector<char> buffer_;
};

}  // namespace lorelin::engine
