#pragma once

#include "platform/FileSearch.h"

namespace lorelin {

class DirectorySearch final : public FileSearch {
 public:
  std::vector<std::string> FilesMatching(const std::string& pattern) override;
};

}  // namespace lorelin
