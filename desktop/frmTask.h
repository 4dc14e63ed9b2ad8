#pragma once

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "ports/MessageBoxes.h"
#include "scripts/CommandPicker.h"

namespace lorelin {

// The command picker: a window that stays beside the script editor.
class FrmTask final : public wxDialog {
 public:
  // `insert` gets the finished line. Owns neither parent nor boxes.
  FrmTask(wxWindow* parent, MessageBoxes& messageBoxes, std::function<void(const std::string&)> insert);

  void FillCMB();
  void EnableParameter1();
  void DisableParameter1();
  void EnableParameter2();
  void DisableParameter2();
  void ShowError();

 private:
  void BuildControls();
  wxSizer* BuildInfo();
  void ChooseCommand();
  void InsertLine();
  void OnCharHook(wxKeyEvent& event);
  [[nodiscard]] std::size_t Index() const;

  CommandPicker picker_;
  MessageBoxes& messageBoxes_;
  std::function<void(const std::string&)> insert_;
  wxChoice* cmbCommand_ = nullptr;
  wxStaticText* lblCommandBold_ = nullptr;
  wxStaticText* lblParameter_ = nullptr;
  wxStaticText* lblDesc_ = nullptr;
  wxTextCtrl* txtParameter_ = nullptr;
  wxTextCtrl* txtParameter2_ = nullptr;
};

}  // namespace lorelin
