#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "engine/speakableText.h"

// The pieces are never empty, end between characters, hold few full stops and make up the whole text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = lorelin::engine::SpeakableText({reinterpret_cast<const char*>(data), size});
  if (!lorelin::IsValidUtf8(text) || text.find('\0') != std::string::npos) std::abort();
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::size_t length = lorelin::engine::NextPiece(rest);
    if (length == 0 || length > rest.size()) std::abort();
    const std::string_view piece = rest.substr(0, length);
    if (!lorelin::IsValidUtf8(piece)) std::abort();
    if (std::count(piece.begin(), piece.end(), '.') >= 80) std::abort();
    rest.remove_prefix(length);
  }
  return 0;
}
