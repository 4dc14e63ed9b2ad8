#pragma once

#include <string>

#include "documents/FileStamp.h"
#include "ports/DocumentInfo.h"
#include "richtext/textFormat.h"

namespace lorelin {

// The state of the document that the file dialogs share.
struct Document {
  std::string path;              // "" for a new document
  std::string shown;             // the file whose text is shown, which may be another one; "" for none
  FileStamp stamp;               // of that file, when it was read or written
  std::string defaultExtension;  // ".txt" once the main window has loaded
  TextFormat format;             // of the file that was read; of a new document at first
  DocumentInfo info;             // of the file that is shown
  bool copy = false;             // the text was made of the file, which is never written
};

}  // namespace lorelin
