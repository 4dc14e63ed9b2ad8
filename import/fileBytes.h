#pragma once

#include <cstddef>
#include <string>

namespace lorelin {

// The bytes of a file, at most `most`. Throws RuntimeError with a sentence for people: when it is not there,
// may not be read, is no file, is empty, or has more.
[[nodiscard]] std::string FileBytes(const std::string& path, std::size_t most);

// Its first bytes, at most `count`. Throws as above, but for more.
[[nodiscard]] std::string FirstBytes(const std::string& path, std::size_t count);

}  // namespace lorelin
