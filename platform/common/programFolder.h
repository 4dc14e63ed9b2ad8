#pragma once

#include <filesystem>

namespace lorelin {

// The subfolder of a program folder that makes it one.
inline constexpr const char* kPagesFolder = "hypertext";

// Copies the pages, the example scripts and the icon that came with the program from `shared` into a user's
// program folder. What the user changed or added is kept; an example that the user deleted stays away, a page
// comes back. Never throws; a start that is killed leaves no half file.
void SeedProgramFolder(const std::filesystem::path& folder, const std::filesystem::path& shared);

}  // namespace lorelin
