#include <cstdint>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "import/importAnswer.h"
#include "tests/fuzz/input.h"

// What is believed is a document whose places lie in its text, and it is written as it was read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    const lorelin::ImportedDocument document = lorelin::ReadImportAnswer(bytes);
    lorelin::fuzz::Hold(lorelin::IsValidUtf8(document.text.text));
    for (const auto& chapter : document.info.chapters) {
      lorelin::fuzz::Hold(chapter.position <= lorelin::CharacterCount(document.text.text));
    }
    lorelin::fuzz::Hold(lorelin::WriteImportAnswer(document) == bytes);
  } catch (const lorelin::RuntimeError&) {
  }
  return 0;
}
