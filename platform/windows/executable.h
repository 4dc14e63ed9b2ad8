#pragma once

#include <filesystem>

namespace lorelin {

// The file of the running program.
[[nodiscard]] std::filesystem::path ExecutableFile();

}  // namespace lorelin
