#pragma once

#include <filesystem>
#include <string_view>

namespace lorelin {

// What `path` names in the end: links are followed, also to a file that does not exist yet.
[[nodiscard]] std::filesystem::path FollowedLinks(std::filesystem::path path);

// What the names of unfinished files begin with.
inline constexpr std::string_view kUnfinishedPrefix = ".part-";

// The name under which the file at `target` is written until it is whole: in the folder of what the target
// names in the end, so that it can take the target's place. Whoever renders, watches or clears away finds it
// there.
[[nodiscard]] std::filesystem::path UnfinishedName(const std::filesystem::path& target);

}  // namespace lorelin
