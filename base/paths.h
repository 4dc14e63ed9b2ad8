#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <system_error>

namespace lorelin {

// The UTF-8 path as the system takes it. Either separator is accepted: a path that does not exist as it
// stands is taken with its backslashes as separators. Never throws.
[[nodiscard]] std::filesystem::path NativePath(std::string_view path);

// Makes the folder with its parents and lets nobody but the owner into it, into one that is there as well. A
// link is left as it is. Answers what failed.
std::error_code MakePrivateFolder(const std::filesystem::path& folder);

// The UTF-8 text of a path.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

// The path from the root of the file system on, wherever the program is started from.
[[nodiscard]] std::string AbsolutePath(const std::string& path);

// Folder and names joined by the system's separator.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::initializer_list<std::string_view> names);

}  // namespace lorelin
