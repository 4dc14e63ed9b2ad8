#pragma once

#include <string>

#include "richtext/textFormat.h"

namespace lorelin {

// The state of the document that the file dialogs share.
struct Document {
  std::string path;              // "" for a new document
  std::string name;              // of the file that is shown, also while there is no path to save to
  std::string defaultExtension;  // ".txt" once the main window has loaded
  TextFormat format;             // of the file that was read; of a new document at first
};

}  // namespace lorelin
