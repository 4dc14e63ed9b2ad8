#pragma once

#include <filesystem>

namespace lorelin {

// Lets nobody but the owner into a folder of the program's own: one of its name, or one that holds its
// settings or nothing yet. A folder that only happens to be named for its use, as one that everybody writes
// to, is left as it is.
void CloseOwnFolder(const std::filesystem::path& folder);

}  // namespace lorelin
