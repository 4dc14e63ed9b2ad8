#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "scripts/scriptChecker.h"
#include "scripts/scriptColours.h"
#include "scripts/scriptLanguage.h"

// The lines of a script, put together again, are the script; no line crashes the cutting, the checker or the
// colouring.
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
  for (const auto& finding : lorelin::CheckScript(script)) {
    if (finding.line == 0 || finding.message.empty() || !lorelin::IsValidUtf8(finding.message)) std::abort();
  }
  std::size_t end = 0;
  for (const auto& span : lorelin::ColourScript(lorelin::WithPlainLineEnds(script))) {
    if (span.begin < end || span.length == 0) std::abort();
    end = span.begin + span.length;
  }
  return 0;
}
