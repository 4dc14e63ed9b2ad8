#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace lorelin::fuzz {

inline void Hold(bool condition) {
  if (!condition) std::abort();
}

// The bytes of a run, cut into what a target needs. A text ends at the byte FF, which no UTF-8 has.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }
  [[nodiscard]] std::string_view Rest() const { return rest_; }

  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }

  std::uint32_t Number(unsigned bytes) {
    std::uint32_t number = 0;
    for (unsigned i = 0; i < bytes; ++i) number |= std::uint32_t{Byte()} << (8 * i);
    return number;
  }

  std::string_view Text() {
    const auto end = std::min(rest_.find('\xFF'), rest_.size());
    const std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return text;
  }

 private:
  std::string_view rest_;
};

}  // namespace lorelin::fuzz
