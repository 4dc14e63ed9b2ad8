#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "app/textEncoding.h"
#include "scripts/scriptLanguage.h"

// The lines of a script, put together again, are the script; no line crashes the cutting.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string script = lorelin::DecodeText({reinterpret_cast<const char*>(data), size});
  std::string joined;
  for (const std::string_view line : lorelin::SplitScript(script)) {
    if (!joined.empty() || line.data() != script.data()) joined += "\r\n";
    joined += line;
    if (auto cut = lorelin::CutLine(line)) {
      lorelin::RestoreCommas(cut->parameter1);
      lorelin::RestoreCommas(cut->parameter2);
      if (cut->parameter1.find('(') != std::string::npos) std::abort();
    }
  }
  if (joined != script) std::abort();
  return 0;
}
