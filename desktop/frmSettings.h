#pragma once

#include <wx/bitmap.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "ports/MessageBoxes.h"
#include "settings/modSettings.h"

namespace lorelin {

// The dialog "Einstellungen": four pages, of which the labels on the left show one.
class FrmSettings final : public wxDialog {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ModSettings& settings;
    MessageBoxes& messageBoxes;
    std::string pictureFile;                      // behind the labels
    std::function<std::string()> titlesObstacle;  // why window titles cannot be read; "" when they can
    std::function<void()> applied;
    std::function<void()> manageExtensions;
  };

  FrmSettings(wxWindow* parent, Parts parts);

 private:
  void BuildLabels(wxSizer& sizer);
  void BuildPages(wxSizer& sizer);
  void FillGeneralPage(wxPanel& page);
  void FillScriptPage(wxPanel& page);
  void FillExtensionPage(wxPanel& page);
  void FillDesktopPage(wxPanel& page);
  wxSizer* Group(wxPanel& page, const char* title);
  wxTextCtrl* Field(wxPanel& page, wxSizer& group, const char* label, const char* name);
  wxCheckBox* Check(wxPanel& page, wxSizer& group, const char* caption, const char* name);
  void Text(wxPanel& page, wxSizer& group, const std::string& text, const char* name = "");
  void ShowPage(std::size_t index);
  void ColourLabels(const wxWindow* hovered);
  void Fill(const SettingsValues& values);
  [[nodiscard]] SettingsValues Shown() const;
  void Apply();

  Parts parts_;
  wxBitmap picture_;
  wxPanel* column_ = nullptr;
  std::vector<wxButton*> labels_;
  std::vector<wxPanel*> pages_;
  wxTextCtrl* txtPrefix_ = nullptr;
  wxTextCtrl* txtSuffix_ = nullptr;
  wxCheckBox* chkAllowRead_ = nullptr;
  wxCheckBox* chkAllowVTS_ = nullptr;
  wxCheckBox* chkVTSAllowDownload_ = nullptr;
  wxCheckBox* chkRememberMailSend_ = nullptr;
  wxCheckBox* chkReadTitleOnAppChange_ = nullptr;
  wxCheckBox* chkClipspeech_ = nullptr;
  wxRadioButton* optNone_ = nullptr;
  std::array<wxRadioButton*, 3> optBeimStart_{};
};

}  // namespace lorelin
