#pragma once

#include "base/textEncoding.h"
#include "import/importAnswer.h"
#include "tests/fuzz/input.h"

namespace lorelin::fuzz {

// What any reader makes passes to the program as it is, and holds nothing that nobody sees.
inline void HoldDocument(const ImportedDocument& document) {
  Hold(ReadImportAnswer(WriteImportAnswer(document)) == document);
  const std::string& text = document.text.text;
  for (const char c : text) Hold(static_cast<unsigned char>(c) >= 0x20 || c == '\n');
  Hold(text.empty() || (text.front() != '\n' && text.back() != '\n'));
  std::size_t covered = 0;
  for (const auto& run : document.text.runs) covered += run.bytes;
  Hold(covered == text.size());
}

}  // namespace lorelin::fuzz
