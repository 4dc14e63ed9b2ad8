#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <system_error>

#include "base/paths.h"

namespace lorelin {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  for (int attempt = 0; attempt < 100; ++attempt) {
    const auto path = std::filesystem::temp_directory_path() / ("lorelin-test-" + std::to_string(random()));
    if (!std::filesystem::create_directory(path)) continue;
    path_ = PathText(path);
    return;
  }
  throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  std::filesystem::remove_all(NativePath(path_), error);
}

std::string TemporaryFolder::File(const std::string& name) const {
  return PathText((NativePath(path_) / NativePath(name)).make_preferred());
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::filesystem::create_directories(NativePath(path).parent_path());
  std::ofstream(NativePath(path), std::ios::binary) << bytes;
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(NativePath(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace lorelin
