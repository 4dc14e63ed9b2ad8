#pragma once

#include <string>

#include "app/textFormat.h"

namespace lorelin {

// The state of the document that the file dialogs share.
struct Document {
  std::string path;              // "" for a new document
  std::string defaultExtension;  // ".txt" once the main window has loaded
  TextFormat format;             // of the file that was read; of a new document at first
};

}  // namespace lorelin
