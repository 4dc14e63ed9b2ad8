#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "ports/FileSearch.h"

namespace lorelin {

class DirectorySearch final : public FileSearch {
 public:
  // Gives a name as this system compares it.
  using Fold = std::function<std::string(std::string_view name)>;

  explicit DirectorySearch(Fold fold = [](std::string_view name) { return std::string(name); })
      : fold_(std::move(fold)) {}
  std::vector<std::string> FilesMatching(const std::string& pattern) override;

 private:
  Fold fold_;
};

}  // namespace lorelin
