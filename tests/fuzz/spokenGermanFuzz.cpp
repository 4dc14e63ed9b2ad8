#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "extensions/german/spokenGerman.h"

// Any bytes come through, and a text stays a text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string spoken = lorelin::SpokenGerman(text);
  if (lorelin::IsValidUtf8(text) && !lorelin::IsValidUtf8(spoken)) std::abort();
  return 0;
}
