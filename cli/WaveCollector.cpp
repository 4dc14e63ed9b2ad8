#include "cli/WaveCollector.h"

#include <array>
#include <fstream>

#include "base/paths.h"
#include "engine/waveHeader.h"

namespace lorelin::cli {
void WaveCollector::SetWaveFile(const std::string& path) {
  rendered_ = path;
  engine_.SetWaveFile(path);
}

void WaveCollector::OnEndOfText(std::function<void(const EndOfText&)> handler) {
  engine_.OnEndOfText([this, handler = std::move(handler)](const EndOfText& end) {
    if (end.complete) {
      Append(underWay_);
    } else {
      problem_ = end.reason;
    }
    if (handler) handler(end);
  });
}

void WaveCollector::Append(const std::string& path) {
  std::ifstream source(NativePath(path), std::ios::binary);
  std::array<char, engine::kWaveHeaderSize> header{};
  if (!source.read(header.data(), header.size())) return;
  const auto sampleRate = engine::SampleRateOf({header.data(), header.size()});
  if (!sampleRate) {
    problem_ = "Die Sprachausgabe hat keine WAV-Datei geschrieben.";
    return;
  }
  if (!file_) file_ = std::make_unique<engine::WaveFileWriter>(PathText(NativePath(path_)), *sampleRate);
  std::array<std::int16_t, 32768> samples{};
  while (true) {
    source.read(reinterpret_cast<char*>(samples.data()), sizeof samples);
    const auto count = static_cast<std::size_t>(source.gcount()) / sizeof samples[0];
    if (count == 0 || !file_->Write(std::span(samples).first(count))) return;
  }
}

bool WaveCollector::Finish() {
  if (file_ && !file_->Finish()) problem_ = file_->Problem();
  return problem_.empty();
}

}  // namespace lorelin::cli
