#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace lorelin {

// The UTF-8 path as the system takes it. Either separator is accepted: a path that does not exist as it
// stands is taken with its backslashes as separators. Never throws.
[[nodiscard]] std::filesystem::path NativePath(std::string_view path);

// The UTF-8 text of a path.
[[nodiscard]] std::string PathText(const std::filesystem::path& path);

// Folder and names joined by the system's separator.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::initializer_list<std::string_view> names);

}  // namespace lorelin
