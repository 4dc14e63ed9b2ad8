#pragma once

#include <string>
#include <vector>

namespace lorelin {

// Port: the directory search.
class FileSearch {
 public:
  virtual ~FileSearch() = default;
  // Names, without folder, of the files that match the pattern: a folder followed by a last component in
  // which "*" stands for any characters and "?" for one ("*.*" matches every name). Folders, and links to
  // folders, are left out; the order is the one in which a person lists names (ListedBefore).
  // Either separator. Empty when the folder cannot be read.
  [[nodiscard]] virtual std::vector<std::string> FilesMatching(const std::string& pattern) = 0;
};

}  // namespace lorelin
