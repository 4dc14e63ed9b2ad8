#pragma once

#include <wx/choice.h>
#include <wx/clrpicker.h>
#include <wx/dialog.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>

#include <functional>
#include <string>
#include <vector>

#include "desktop/toolkit/textLook.h"
#include "settings/readingLook.h"

namespace lorelin {

// The dialog in which the looks of the document are chosen; every choice is shown in the document at once.
class FrmReadingLook final : public wxDialog {
 public:
  struct Parts {
    std::vector<std::string> fonts;  // as they are offered
    int usualPoints = 12;
    TextLook::Parts canShow;
    std::function<void(const LookSettings&)> show;
  };

  FrmReadingLook(wxWindow* parent, const LookSettings& look, Parts parts);

  [[nodiscard]] LookSettings Look() const;

 private:
  struct Step {
    const char* caption;
    int value;
  };

  void Build();
  void BuildButtons(wxSizer& sizer);
  wxChoice* AddChoice(wxSizer& grid, const char* caption, const char* name, const wxArrayString& entries);
  wxChoice* AddSteps(wxSizer& grid, const char* caption, const char* name, const std::vector<Step>& steps);
  wxColourPickerCtrl* AddColour(wxSizer& grid, const char* caption, const char* name);
  void Fill(const LookSettings& look);
  void Changed();
  void ShowWhatCounts();

  Parts parts_;
  wxChoice* cboFont_ = nullptr;
  wxSpinCtrl* txtPoints_ = nullptr;
  wxChoice* cboLines_ = nullptr;
  wxChoice* cboLetters_ = nullptr;
  wxChoice* cboColumn_ = nullptr;
  wxChoice* cboColours_ = nullptr;
  wxColourPickerCtrl* clrText_ = nullptr;
  wxColourPickerCtrl* clrGround_ = nullptr;
  wxStaticText* lblContrast_ = nullptr;
};

// Lets the user choose the looks; what is cancelled is as it was before.
void ChooseReadingLook(wxWindow* parent, SettingsStore& settings, ReadingLookView& view, int usualPoints);

}  // namespace lorelin
