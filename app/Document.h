#pragma once

#include <string>

namespace lorelin {

// The state of the document that the file dialogs share.
struct Document {
  std::string path;              // "" for a new document
  std::string defaultExtension;  // ".txt" once the main window has loaded
};

}  // namespace lorelin
