#pragma once

#include <array>

namespace lorelin {

// A single-byte code page: what the bytes from 0x80 on stand for; 0 for nothing.
using CodePage = std::array<char16_t, 128>;

// The code page with this Windows number: 437, 850, 874, 1250 to 1258, and 10000 for that of the Macintosh.
// 1252 for every other.
[[nodiscard]] const CodePage& CodePageFor(int number);

}  // namespace lorelin
