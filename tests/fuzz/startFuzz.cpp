#include <cstdint>
#include <string_view>

#include "app/modAppMain.h"
#include "base/RuntimeError.h"
#include "base/conversion.h"

// Command lines and numbers in settings come from outside: any text is cut or refused, none crashes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  (void)lorelin::PathInCommandLine(text);
  try {
    (void)lorelin::ToLong(text);
  } catch (const lorelin::RuntimeError&) {
    return 0;
  }
  return 0;
}
