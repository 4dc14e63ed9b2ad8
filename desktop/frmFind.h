#pragma once

#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <string>

#include "desktop/toolkit/WxBrowserPane.h"
#include "desktop/toolkit/WxDocumentEditor.h"

namespace lorelin {

// Searches and replaces in the editor while the user goes on working in it. Made once, shown and hidden.
class FrmFind final : public wxDialog {
 public:
  FrmFind(wxWindow* parent, WxDocumentEditor& editor, WxBrowserPane& page);

  // With what is selected in the editor, when that is one line, as the text to search.
  void Open(bool replace);
  // False when there is nothing to search yet.
  bool SearchAgain();

 private:
  void BuildFields();
  void BuildButtons();
  void Search(bool backwards);
  void UncoverHit();
  void Replace();
  void ReplaceAll();
  void Tell(const std::string& text);
  [[nodiscard]] std::string Wanted() const;
  [[nodiscard]] std::string Replacement() const;

  WxDocumentEditor& editor_;
  WxBrowserPane& page_;
  wxTextCtrl* wanted_ = nullptr;
  wxTextCtrl* replacement_ = nullptr;
  wxCheckBox* matchCase_ = nullptr;
  wxStaticText* result_ = nullptr;
  std::vector<wxWindow*> forReplacing_;
};

}  // namespace lorelin
