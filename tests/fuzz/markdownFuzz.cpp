#include <cstdint>

#include "base/RuntimeError.h"
#include "import/html.h"
#include "tests/fuzz/importedDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    lorelin::fuzz::HoldDocument(lorelin::ReadMarkdown(lorelin::fuzz::Input(data, size).Rest()));
  } catch (const lorelin::RuntimeError&) {
  }
  return 0;
}
