#pragma once

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <string>

#include "german/ownWords.h"

namespace lorelin {

// The dialog that asks how a word is to be spoken.
class FrmPronunciation final : public wxDialog {
 public:
  // `sample` speaks a text.
  FrmPronunciation(wxWindow* parent, const OwnWord& word, std::function<void(const std::string&)> sample);

  [[nodiscard]] OwnWord Word() const;

 private:
  void BuildFields(const OwnWord& word);
  void BuildButtons();
  wxTextCtrl* AddField(wxSizer& grid, const char* caption, const char* name, const std::string& text);
  void Accept();

  std::function<void(const std::string&)> sample_;
  wxTextCtrl* txtWritten_ = nullptr;
  wxTextCtrl* txtSpoken_ = nullptr;
  wxRadioButton* optWhole_ = nullptr;
  wxRadioButton* optBeginning_ = nullptr;
  wxCheckBox* chkCase_ = nullptr;
  wxStaticText* lblProblem_ = nullptr;
};

}  // namespace lorelin
