#pragma once

#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <string>

#include "speech/readingRules.h"

namespace lorelin {

// The dialog that asks for a rule and shows at once what it does with an example.
class FrmTextRule final : public wxDialog {
 public:
  FrmTextRule(wxWindow* parent, const ReadingRule& rule);

  [[nodiscard]] ReadingRule Rule() const;

 private:
  wxTextCtrl* AddField(wxSizer& grid, const char* caption, const char* name, const std::string& text);
  void ShowResult();
  void Accept();

  bool on_;
  wxTextCtrl* txtPattern_ = nullptr;
  wxTextCtrl* txtReplacement_ = nullptr;
  wxTextCtrl* txtExample_ = nullptr;
  wxTextCtrl* txtResult_ = nullptr;
};

}  // namespace lorelin
