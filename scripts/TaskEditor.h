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
  // Writes the script under its name, after a question when that is the name of another script; false when it
  // was not written and the user knows why.
  bool Save();
  // Another name stands in the view: tells when saving writes a second file beside the opened one.
  void NameChanged();
  // Puts a line behind the text, a line break before it.
  void Append(std::string_view line);
  // Asks what is to become of changes that were not saved; false when the window has to stay open.
  [[nodiscard]] bool MayDiscard();
  // The changes are of no interest any more.
  void Discard() { saved_ = parts_.view.ScriptText(); }

 private:
  [[nodiscard]] std::string Path(const std::string& name) const;
  bool Refuse(const std::string& reason);
  [[nodiscard]] bool MayReplace(const std::string& path, const std::string& name);
  void Load(const std::string& path);

  Parts parts_;
  std::string saved_;  // the text as it was last written, opened or begun
  std::string file_;   // where that was; "" for a text that is in no file yet
  bool folderSet_ = false;
};

}  // namespace lorelin
