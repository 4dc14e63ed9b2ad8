#pragma once

#include <functional>
#include <string>

#include "ports/FileDialogs.h"
#include "ports/FileWriter.h"
#include "ports/MessageBoxes.h"
#include "ports/TaskEditorView.h"

namespace lorelin {

// What the script editor does. User-interface thread only.
class TaskEditor {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    TaskEditorView& view;
    FileDialogs& fileDialogs;
    FileWriter& files;
    MessageBoxes& messageBoxes;
    std::string programFolder;
    std::function<void()> scriptsChanged;  // a script was written
  };

  explicit TaskEditor(Parts parts) : parts_(std::move(parts)) {}

  void New();
  void Open();
  // Writes the script under its name; false when it could not be written and the user was told why.
  bool Save();
  // Puts a line behind the text, a line break before it.
  void Append(std::string_view line);
  // Asks what is to become of changes that were not saved; false when the window has to stay open.
  [[nodiscard]] bool MayDiscard();
  // The changes are of no interest any more.
  void Discard() { saved_ = parts_.view.ScriptText(); }

 private:
  [[nodiscard]] std::string Path(const std::string& name) const;
  bool Refuse(const std::string& reason);
  void Load(const std::string& path);

  Parts parts_;
  std::string saved_;  // the text as it was last written, opened or begun
  bool folderSet_ = false;
};

}  // namespace lorelin
