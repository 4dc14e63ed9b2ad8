#pragma once

#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/splitter.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/frmTask.h"
#include "desktop/toolkit/richTextBuffer.h"
#include "ports/FileDialogs.h"
#include "ports/FileWriter.h"
#include "ports/MessageBoxes.h"
#include "ports/TaskEditorView.h"
#include "scripts/TaskEditor.h"

namespace lorelin {

// The script editor: a window of its own that stays open beside the main window. Closing hides it.
class FrmTaskEditor final : public wxFrame, public TaskEditorView {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    FileDialogs& fileDialogs;
    FileWriter& files;
    MessageBoxes& messageBoxes;
    std::string programFolder;
    std::function<void()> scriptsChanged;
    std::function<void()> showHelp;
  };

  FrmTaskEditor(wxWindow* parent, const Parts& parts);

  // Shows the window, in front of the others.
  void Open();
  // Asks what is to become of unsaved changes; false when the window has to stay.
  [[nodiscard]] bool MayClose();
  // The command picker, made when it is first asked for.
  FrmTask& Picker();

  std::string ScriptName() override;
  void SetScriptName(std::string_view name) override;
  std::string ScriptText() override;
  void SetScriptText(std::string_view text) override;
  void AppendText(std::string_view text) override;
  void ShowNameHint(std::string_view text) override;

 private:
  void BuildControls();
  wxSizer* BuildButtons();
  wxWindow* BuildText(wxWindow* parent);
  wxWindow* BuildFindings(wxWindow* parent);
  void BindKeys();
  void ShowPicker();
  void TextChanged();
  void Colour();
  void CheckText();
  void GoToFinding();
  void OnClose(wxCloseEvent& event);

  MessageBoxes& messageBoxes_;
  std::function<void()> showHelp_;
  TaskEditor editor_;
  FrmTask* frmTask_ = nullptr;
  wxSplitterWindow* splitter_ = nullptr;
  wxTextCtrl* txtSkriptname_ = nullptr;
  wxStaticText* nameHint_ = nullptr;
  wxTextCtrl* rtfSkript_ = nullptr;
  std::unique_ptr<RichTextBuffer> buffer_;  // what can be taken back
  wxListBox* findings_ = nullptr;
  std::vector<std::size_t> findingLines_;
  wxTimer pause_;
};

}  // namespace lorelin
