#pragma once

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <string>

#include "export/SoundExport.h"

namespace lorelin {

// The dialog that asks what the document is to become.
class FrmSoundExport final : public wxDialog {
 public:
  // `order`: what is shown at first.
  FrmSoundExport(wxWindow* parent, const ExportOffer& offer, const ExportOrder& order);

  [[nodiscard]] ExportOrder Order() const;

 private:
  void Build();
  void BuildFolder(wxSizer& grid);
  void BuildButtons(wxSizer& sizer);
  wxTextCtrl* AddText(wxSizer& grid, const char* caption, const char* name);
  wxChoice* AddChoice(wxSizer& grid, const char* caption, const char* name, const wxArrayString& entries);
  void Fill(const ExportOrder& order);
  void ShowSizes();
  void ShowWhatApplies();
  [[nodiscard]] bool WantsBook() const;
  [[nodiscard]] SoundFormat Format() const;
  void ChooseFolder();

  const ExportOffer offer_;
  const ExportOrder first_;  // what was shown at first
  wxTextCtrl* txtTitle_ = nullptr;
  wxTextCtrl* txtAuthor_ = nullptr;
  wxChoice* cboFormat_ = nullptr;
  wxChoice* cboQuality_ = nullptr;
  wxChoice* cboSubtitles_ = nullptr;
  wxCheckBox* chkChapters_ = nullptr;
  wxTextCtrl* txtFolder_ = nullptr;
};

}  // namespace lorelin
