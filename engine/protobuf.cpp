#include "engine/protobuf.h"

namespace lorelin::engine {
namespace {

constexpr std::uint64_t kVarint = 0;
constexpr std::uint64_t kEightBytes = 1;
constexpr std::uint64_t kSized = 2;
constexpr std::uint64_t kFourBytes = 5;

std::string Varint(std::uint64_t number) {
  std::string bytes;
  for (; number >= 0x80; number >>= 7U) bytes.push_back(static_cast<char>((number & 0x7FU) | 0x80U));
  bytes.push_back(static_cast<char>(number));
  return bytes;
}

}  // namespace

std::optional<std::uint64_t> ProtobufReader::Number() {
  std::uint64_t number = 0;
  for (unsigned shift = 0; shift < 64 && !rest_.empty(); shift += 7) {
    const auto byte = static_cast<unsigned char>(rest_[0]);
    rest_.remove_prefix(1);
    number |= std::uint64_t{byte & 0x7FU} << shift;
    if (byte < 0x80) return number;
  }
  return std::nullopt;
}

std::optional<std::string_view> ProtobufReader::Take(std::uint64_t size) {
  if (size > rest_.size()) return std::nullopt;
  const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(size));
  rest_.remove_prefix(taken.size());
  return taken;
}

bool ProtobufReader::TakeValue(std::uint64_t kind, ProtobufField& field) {
  if (kind == kVarint) {
    const auto number = Number();
    field.value = number.value_or(0);
    return number.has_value();
  }
  if (kind == kEightBytes) return Take(8).has_value();
  if (kind == kFourBytes) return Take(4).has_value();
  if (kind != kSized) return false;
  const auto size = Number();
  const auto content = size ? Take(*size) : std::nullopt;
  field.content = content.value_or(std::string_view());
  return content.has_value();
}

std::optional<ProtobufField> ProtobufReader::Next() {
  if (rest_.empty() || broken_) return std::nullopt;
  const std::string_view before = rest_;
  const auto key = Number();
  ProtobufField field;
  if (!key || *key >> 3U == 0 || !TakeValue(*key & 7U, field)) {
    broken_ = true;
    return std::nullopt;
  }
  field.number = *key >> 3U;
  field.whole = before.substr(0, before.size() - rest_.size());
  return field;
}

std::string ProtobufNumber(std::uint64_t field, std::uint64_t value) {
  return Varint(field << 3U | kVarint) + Varint(value);
}

std::string ProtobufBytes(std::uint64_t field, std::string_view content) {
  return ProtobufHead(field, content.size()).append(content);
}

std::string ProtobufHead(std::uint64_t field, std::uint64_t size) {
  return Varint(field << 3U | kSized) + Varint(size);
}

}  // namespace lorelin::engine
