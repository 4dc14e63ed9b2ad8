#pragma once

#include <string>

namespace lorelin {

// Whether the path names a file that can be opened for reading. A folder, an empty path or any error is "no".
[[nodiscard]] bool FileExists(const std::string& path);

// The bytes of a file. Throws RuntimeError: 53 when there is no such file, 70 when it may not be read, 75
// when it is no file or reading fails. Only regular files are read.
[[nodiscard]] std::string ReadFileBytes(const std::string& path);

// The text of a file, decoded (see DecodeText), with "\n" line ends. Throws like ReadFileBytes.
[[nodiscard]] std::string ReadTextFile(const std::string& path);

}  // namespace lorelin
