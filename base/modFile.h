#pragma once

#include <cstdint>
#include <string>

#include "ports/EventPump.h"
#include "ports/FileWriter.h"

namespace lorelin {

// Whether the path names a file that can be opened for reading. A folder, an empty path or any error is "no".
[[nodiscard]] bool FileExists(const std::string& path);

inline constexpr std::uintmax_t kMostReadBytes = 256'000'000;

// The bytes of a file. Throws RuntimeError: 53 when there is no such file, 70 when it may not be read, 75
// when it is no file or reading fails, 7 when it is longer than kMostReadBytes. Only regular files are read.
[[nodiscard]] std::string ReadFileBytes(const std::string& path);

// The text of a file, decoded (see DecodeText), with "\n" line ends. Throws like ReadFileBytes.
[[nodiscard]] std::string ReadTextFile(const std::string& path);

// Replaces the file by these bytes and answers with the number of the last error: 0 when there was an old
// file and everything worked, 53 when there was none and the new one is there, else why nothing was written
// (the old file is as it was). Lets events in before it writes. Never throws a RuntimeError.
[[nodiscard]] int WriteTextFile(const std::string& path, const std::string& bytes, FileWriter& files,
                                EventPump& pump);

}  // namespace lorelin
