#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lorelin::engine {

// A field of a protobuf message (Protocol Buffers Documentation, Encoding): its number, its value and all
// its bytes. The views point into the message.
struct ProtobufField {
  std::uint64_t number = 0;
  std::uint64_t value = 0;   // of a whole number
  std::string_view content;  // of a text, bytes or message
  std::string_view whole;
};

// Walks over the fields of a message without copying anything.
class ProtobufReader {
 public:
  explicit ProtobufReader(std::string_view message) : rest_(message) {}

  // None at the end, and where the bytes are no message.
  [[nodiscard]] std::optional<ProtobufField> Next();
  [[nodiscard]] bool Broken() const { return broken_; }

 private:
  std::optional<std::uint64_t> Number();
  std::optional<std::string_view> Take(std::uint64_t size);
  bool TakeValue(std::uint64_t kind, ProtobufField& field);

  std::string_view rest_;
  bool broken_ = false;
};

[[nodiscard]] std::string ProtobufNumber(std::uint64_t field, std::uint64_t value);
// What stands before the content of a field of this size.
[[nodiscard]] std::string ProtobufHead(std::uint64_t field, std::uint64_t size);
[[nodiscard]] std::string ProtobufBytes(std::uint64_t field, std::string_view content);

}  // namespace lorelin::engine
