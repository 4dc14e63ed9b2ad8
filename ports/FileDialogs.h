#pragma once

#include <optional>
#include <string>

namespace lorelin {

struct FileDialogRequest {
  std::string title;
  std::string folder;            // where it begins; "" for the folder of the last dialog
  std::string fileName;          // proposed; a name without folder
  std::string filter;            // caption|pattern[;pattern]|caption|pattern ..., the first one chosen
  std::string defaultExtension;  // with its dot; appended to a typed name that has none; "" for nothing
};

// Port: the system's file dialogs, modal; window events run meanwhile. Paths are absolute, UTF-8. Nothing is
// returned when the user cancels.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // A file that exists.
  virtual std::optional<std::string> AskForFile(const FileDialogRequest& request) = 0;
  // A name to write to, in a folder that exists; asks before an existing file is chosen.
  virtual std::optional<std::string> AskForTarget(const FileDialogRequest& request) = 0;
  // What the user typed as an address of the web, this one being proposed.
  virtual std::optional<std::string> AskForAddress(const std::string& proposed) = 0;
};

}  // namespace lorelin
