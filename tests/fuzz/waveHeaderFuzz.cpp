#include <string>

#include "engine/waveHeader.h"
#include "tests/fuzz/input.h"

using lorelin::fuzz::Hold;

namespace {

// Changes a header at some places; what is then taken for one differs in its sizes only.
void CheckChangedHeader(lorelin::fuzz::Input input) {
  const std::uint32_t sampleRate = input.Number(4);
  const std::uint32_t dataBytes = input.Number(4);
  const std::string header = lorelin::engine::WaveHeader(sampleRate, dataBytes);
  Hold(header.size() == lorelin::engine::kWaveHeaderSize);
  Hold(lorelin::engine::SampleRateOf(header).value_or(0) == sampleRate);
  std::string changed = header;
  while (!input.IsEmpty()) {
    const std::size_t at = input.Byte() % changed.size();
    changed[at] = static_cast<char>(input.Byte());
  }
  const auto found = lorelin::engine::SampleRateOf(changed);
  if (!found) return;
  const std::string again = lorelin::engine::WaveHeader(*found, 0);
  Hold(changed.substr(8, 32) == again.substr(8, 32));
}

}  // namespace

// Bytes are a header or none; a header gives back what it was made of, whatever stands behind it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto found = lorelin::engine::SampleRateOf(bytes);
  Hold(!found || (*found > 0 && bytes.size() >= lorelin::engine::kWaveHeaderSize &&
                  bytes.starts_with("RIFF") && bytes.substr(8, 8) == "WAVEfmt "));
  Hold(lorelin::engine::SampleRateOf(bytes.substr(0, lorelin::engine::kWaveHeaderSize)) == found);
  CheckChangedHeader({data, size});
  return 0;
}
