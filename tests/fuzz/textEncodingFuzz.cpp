#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"

// Whatever the bytes are, the decoded text is well-formed and its characters can be counted and cut.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string text = lorelin::DecodeText(bytes);
  if (!lorelin::IsValidUtf8(text)) std::abort();
  const std::string plain = lorelin::WithPlainLineEnds(text);
  if (plain.find('\r') != std::string::npos || !lorelin::IsValidUtf8(plain)) std::abort();
  const std::size_t count = lorelin::CharacterCount(plain);
  if (!lorelin::FromCharacter(plain, count).empty()) std::abort();
  if (count > 0 && lorelin::CharacterCount(lorelin::FromCharacter(plain, count / 2)) != count - count / 2)
    std::abort();
  return 0;
}
