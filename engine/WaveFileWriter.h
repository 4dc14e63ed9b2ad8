#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/SampleSink.h"

namespace lorelin::engine {

// A WAV file (RIFF/WAVE, PCM; Multimedia Programming Interface and Data Specifications 1.0, 1991) written as
// a stream under its UnfinishedName; it takes the target's place when it is whole, its header patched. Until
// then, and when it is never finished, what was there stays as it was. A link keeps pointing to its file, a
// file keeps its permissions; a new file in a folder that others may not enter is closed to them too.
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
  // Answer 0 or an errno.
  [[nodiscard]] int CheckTarget();
  [[nodiscard]] int OpenUnfinished();
  [[nodiscard]] int ClearStale() const;
  [[nodiscard]] int PutInPlace();
  [[nodiscard]] int SetPermissions() const;
  bool Flush();
  bool WriteBytes(const char* bytes, std::size_t size);
  [[nodiscard]] std::string Header() const;

  const std::filesystem::path target_;
  const std::filesystem::path unfinished_;
  std::uint32_t sampleRate_;
  std::uint64_t maxDataBytes_;
  std::uint64_t dataBytes_ = 0;
  int descriptor_ = -1;
  mode_t newMode_ = 0;     // what a new file gets here
  bool replaces_ = false;  // a file that is there
  std::string problem_;
  std::vector<char> buffer_;
};

}  // namespace lorelin::engine
