#pragma once

#include <functional>
#include <string>

#include "base/RuntimeError.h"
#include "documents/Document.h"
#include "documents/DocumentImport.h"
#include "extensions/modAddin.h"
#include "ports/DocumentEditor.h"
#include "ports/EventPump.h"
#include "ports/FileDialogs.h"
#include "ports/FileWriter.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"

namespace lorelin {

// Creating, opening and saving the document. User-interface thread only.
class Documents {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    DocumentEditor& editor;
    FileDialogs& fileDialogs;
    FileWriter& files;
    MessageBoxes& messageBoxes;
    StatusBar& statusBar;
    EventPump& pump;
    DocumentImport& import;
    ModAddin& extensions;
    Log& log;
    // The document is another one, or was stored: its name and state may have changed.
    std::function<void()> stateChanged = [] {};
    // Nothing of the document would be lost now: it was stored or loaded, or the user does not want it.
    std::function<void()> stored = [] {};
    // The user wants the document no more, which will be replaced at once.
    std::function<void()> unwanted = [] {};
    // This file was opened or saved.
    std::function<void(const std::string& path)> used = [](const std::string&) {};
  };

  explicit Documents(Parts parts) : parts_(std::move(parts)) {}

  void NewDoc();
  // Whether a file is shown now.
  bool OpenDoc();
  // Opens this file as OpenDoc does the chosen one.
  bool OpenPath(const std::string& path);
  // The same for a file that was chosen among those that can be read.
  bool OpenReadable(const std::string& path);
  // Shows the article of a page of the web, which was fetched into this file; a new document. `charset`: as
  // its server says, or "".
  bool OpenPage(const std::string& file, const std::string& address, const std::string& charset);
  // Always asks for a name; false when the user cancelled or it could not be saved.
  bool SaveDoc();
  // Writes the plain text to the current path; asks for a name when there is none, and before it overwrites
  // another text than the one that was read from there.
  void SaveAs();
  // Asks whether to save before the end; false when the program goes on.
  [[nodiscard]] bool MayExit();

  // Loads a file without a hook. Throws RuntimeError and keeps the document. Asks only whether the text of
  // pages that are pictures is to be recognised.
  void Load(const std::string& path);
  // The same for start-up, which goes on whatever happens. What is too large is told once there is a window.
  void LoadAtStart(const std::string& path);
  // The path that the file dialogs share, whatever becomes of loading it.
  void SetPath(const std::string& path);

  // Loads a text that has no file of its own any more; it counts as changed. Throws as Load does.
  void Restore(const std::string& snapshot);

  // The editor's text changed.
  void Changed();
  // Something else than a file of Load was put in the text's place.
  void Replaced();
  // The user comes back to the window: offers to load the file anew when another program wrote it.
  void LookAtFile();
  [[nodiscard]] bool Modified() const { return modified_; }
  [[nodiscard]] const Document& Current() const { return document_; }
  void SetDefaultExtension(const std::string& ending) { document_.defaultExtension = ending; }
  // What the window is called: the file's name, marked when there are changes, and the program's.
  [[nodiscard]] std::string Title() const;

 private:
  [[nodiscard]] bool IsTextFile(const std::string& path);
  // What there is to say of a file once it is in the editor.
  struct Shown {
    TextFormat format{};
    DocumentInfo info{};
    bool copy = false;
    std::string notice{};
  };

  [[nodiscard]] Shown ShowFile(const std::string& path);
  [[nodiscard]] Shown ShowImported(const ImportedDocument& document);
  [[nodiscard]] ImportedDocument Import(const std::string& path);
  [[nodiscard]] bool WantsRecognition(const std::string& path);
  void Become(const std::string& path, const FileStamp& stamp, Shown shown);
  [[nodiscard]] bool IsOriginal(const std::string& path) const;
  void Stored();
  void TellError(int number);
  void TellUnreadable(const std::string& path, const RuntimeError& error);
  void TellTooLarge(const std::string& reason);
  [[nodiscard]] int WriteText(const std::string& path);
  [[nodiscard]] bool SaveRichText(const std::string& path);
  [[nodiscard]] bool WriteAsEnded(const std::string& path);
  void Written(const std::string& path);
  void TellUnsaved(const std::string& path, const std::string& reason);
  [[nodiscard]] bool OthersWroteIt() const;
  void SaveOverOthers();
  void Reload();
  void OverwriteOtherText();

  Parts parts_;
  Document document_;
  bool modified_ = false;
  bool loading_ = false;
  bool asking_ = false;
  FileStamp known_;  // what others wrote and the user did not want
};

}  // namespace lorelin
