#include <cstdint>

#include "base/RuntimeError.h"
#include "import/html.h"
#include "tests/fuzz/importedDocument.h"

// Whole pages, and the articles in them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  const bool article = (input.Byte() & 1U) != 0;
  try {
    lorelin::fuzz::HoldDocument(lorelin::ReadHtml(input.Rest(), {"", article, false, ""}));
  } catch (const lorelin::RuntimeError&) {
  }
  return 0;
}
