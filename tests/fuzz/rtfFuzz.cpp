#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "richtext/rtf.h"

// Whatever is read is a text, its runs fit, and writing it gives it back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const lorelin::RichText text = lorelin::ReadRtf({reinterpret_cast<const char*>(data), size});
  if (!lorelin::IsValidUtf8(text.text)) std::abort();
  std::size_t covered = 0;
  for (const auto& run : text.runs) {
    if (run.format.font >= text.fonts.size()) std::abort();
    covered += run.bytes;
  }
  if (covered > text.text.size()) std::abort();
  const lorelin::RichText again = lorelin::ReadRtf(lorelin::WriteRtf(text));
  if (again.text != text.text) std::abort();
  return 0;
}
