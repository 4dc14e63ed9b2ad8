#include "import/namedEncoding.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdint>

namespace lorelin {
namespace {

constexpr std::string_view kReplacement = "\uFFFD";

class Converter {
 public:
  explicit Converter(const std::string& encoding) : handle_(iconv_open("UTF-8", encoding.c_str())) {}
  ~Converter() {
    if (IsKnown()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Opening fails with the value -1, as the system documents it.
  [[nodiscard]] bool IsKnown() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  std::string Convert(std::string_view bytes) {
    std::string text;
    std::string source(bytes);
    char* from = source.data();
    std::size_t left = source.size();
    std::array<char, 8192> buffer{};
    while (left > 0) {
      char* to = buffer.data();
      std::size_t room = buffer.size();
      const bool failed = iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1);
      const int error = errno;
      text.append(buffer.data(), buffer.size() - room);
      if (!failed || error == E2BIG) continue;
      text += kReplacement;
      ++from;
      --left;
    }
    return text;
  }

 private:
  iconv_t handle_;
};

}  // namespace

std::optional<std::string> DecodedBySystem(std::string_view bytes, const std::string& encoding) {
  Converter converter(encoding);
  if (!converter.IsKnown()) return {};
  return converter.Convert(bytes);
}

}  // namespace lorelin
