#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// UTF-8 as Windows takes it, and back. What is no valid text becomes U+FFFD.
[[nodiscard]] std::wstring Wide(std::string_view utf8);
[[nodiscard]] std::string Utf8(std::wstring_view wide);

// In the system's 8-bit code page; characters that it does not have become "?".
[[nodiscard]] std::string SystemCodePage(std::string_view utf8);
[[nodiscard]] std::string FromSystemCodePage(std::string_view bytes);

}  // namespace lorelin
