#pragma once

#include <string>

namespace lorelin {

// An empty folder of its own, which goes with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }
  // With the system's own separators; `name` may have slashes.
  [[nodiscard]] std::string File(const std::string& name) const;

 private:
  std::string path_;
};

void WriteFile(const std::string& path, std::string_view bytes);
[[nodiscard]] std::string ReadFile(const std::string& path);

}  // namespace lorelin
