#pragma once

#include <filesystem>

namespace lorelin {

// Puts the file `by` in the place of `target`, whose rights and attributes go over to it; a new one keeps
// those of its folder. Waits a moment for who holds the old file. Answers 0 or an errno; nothing has changed
// then.
[[nodiscard]] int ReplaceFileBy(const std::filesystem::path& target, const std::filesystem::path& by);

}  // namespace lorelin
