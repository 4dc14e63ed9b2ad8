#pragma once

#include <string>
#include <string_view>

namespace lorelin {

// What the desktop has to know to open files with the program. Drawings are SVG texts.
struct FileAssociationData {
  std::string programFile;
  std::string_view programDrawing;
  std::string_view scriptDrawing;
};

// Port: tells the desktop, in its own way, that the program opens documents and task scripts (".vts"). The
// class registry, which the program writes itself, is all that Windows needs.
class FileAssociation {
 public:
  virtual ~FileAssociation() = default;
  // Writes what has changed since the last time and returns; failures go to the log.
  virtual void Publish(const FileAssociationData& data) = 0;
};

}  // namespace lorelin
