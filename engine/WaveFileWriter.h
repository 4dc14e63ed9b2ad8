#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "engine/SampleSink.h"

namespace lorelin::engine {

// A WAV file (RIFF/WAVE, PCM; Multimedia Programming Interface and Data Specifications 1.0, 1991) written as
// a stream; the sizes in its header are filled in at the end. A file that was not finished is removed by the
// destructor.
class WaveFileWriter final : public SampleSink {
 public:
  // The sizes in a RIFF header are 32 bits wide.
  static constexpr std::uint64_t kMaxDataBytes = 0xFFFFFFFFULL - 36;

  WaveFileWriter(const std::string& path, std::uint32_t sampleRate,
                 std::uint64_t maxDataBytes = kMaxDataBytes);
  ~WaveFileWriter() override;
  WaveFileWriter(const WaveFileWriter&) = delete;
  WaveFileWriter& operator=(const WaveFileWriter&) = delete;

  bool Write(std::span<const std::int16_t> samples) override;
  bool Finish() override;
  [[nodiscard]] std::string Problem() const override { return problem_; }

 private:
  bool Fail(int errorNumber);
  bool Flush();
  bool WriteBytes(const char* bytes, std::size_t size);
  [[nodiscard]] std::string Header() const;

  std::filesystem::path path_;
  std::uint32_t sampleRate_;
  std::uint64_t maxDataBytes_;
  std::uint64_t dataBytes_ = 0;
  std::ofstream file_;
  bool finished_ = false;
  std::string problem_;
  std::vector<char> buffer_;
};

}  // namespace lorelin::engine
