#include "engine/WaveFileWriter.h"

#include <bit>

#include "engine/waveHeader.h"

namespace lorelin::engine {
namespace {

constexpr std::size_t kBufferSize = 1 << 18;

}  // namespace

WaveFileWriter::WaveFileWriter(const std::string& path, std::uint32_t sampleRate, std::uint64_t maxDataBytes)
    : file_(path), sampleRate_(sampleRate), maxDataBytes_(maxDataBytes) {
  if (const int error = file_.Open(); error != 0) {
    Fail(error);
    return;
  }
  buffer_.reserve(kBufferSize);
  const std::string header = Header();
  buffer_.assign(header.begin(), header.end());
}

bool WaveFileWriter::Fail(int errorNumber) {
  problem_ = "Die WAV-Datei konnte nicht geschrieben werden. " + WriteProblem(errorNumber);
  return false;
}

bool WaveFileWriter::Flush() {
  const int error = file_.Write(buffer_.data(), buffer_.size());
  buffer_.clear();
  return error == 0 || Fail(error);
}

bool WaveFileWriter::Write(std::span<const std::int16_t> samples) {
  if (!problem_.empty()) return false;
  dataBytes_ += samples.size_bytes();
  if (dataBytes_ > maxDataBytes_) {
    problem_ = "Der Text ist zu lang für eine WAV-Datei (höchstens 4 GB). Es wurde keine Datei geschrieben.";
    return false;
  }
  static_assert(std::endian::native == std::endian::little, "the samples go into the file as they are");
  const auto* const bytes = reinterpret_cast<const char*>(samples.data());
  buffer_.insert(buffer_.end(), bytes, bytes + samples.size_bytes());
  return buffer_.size() < kBufferSize || Flush();
}

bool WaveFileWriter::Finish() {
  if (!problem_.empty() || !Flush()) return false;
  const std::string header = Header();
  int error = file_.Seek(0);
  if (error == 0) error = file_.Write(header.data(), header.size());
  if (error == 0) error = file_.PutInPlace();
  return error == 0 || Fail(error);
}

std::string WaveFileWriter::Header() const {
  return WaveHeader(sampleRate_, static_cast<std::uint32_t>(dataBytes_));
}

}  // namespace lorelin::engine
