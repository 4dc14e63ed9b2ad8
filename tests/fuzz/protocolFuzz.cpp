#include <cstdint>
#include <string_view>

#include "engine/protocol.h"

// No stream of bytes crashes the reader of the engine's messages, however it is cut.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t step = data[0] + std::size_t{1};
  std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  lorelin::engine::FrameReader reader;
  while (!bytes.empty()) {
    reader.Feed(bytes.substr(0, step));
    bytes.remove_prefix(bytes.size() < step ? bytes.size() : step);
    while (const auto message = reader.Next()) {
      (void)lorelin::engine::ReadHello(message->fields);
      (void)lorelin::engine::ReadSpeak(message->fields);
      (void)lorelin::engine::ReadEnded(message->fields);
      (void)lorelin::engine::ReadNumber(message->fields);
      (void)lorelin::engine::ReadRemark(message->fields);
    }
  }
  return 0;
}
