#pragma once

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/notebook.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ports/MessageBoxes.h"
#include "speech/Pronunciations.h"

namespace lorelin {

// The dialog with all words and rules of the user's own. Every change is stored at once.
class FrmPronunciations final : public wxDialog {
 public:
  // Owns none of it; `sample` speaks a text.
  FrmPronunciations(wxWindow* parent, Pronunciations& pronunciations, MessageBoxes& messageBoxes,
                    std::function<void(const std::string&)> sample);

 private:
  struct Buttons {
    wxButton* change = nullptr;
    wxButton* remove = nullptr;
    wxButton* sample = nullptr;
  };

  wxWindow* AddPage(const char* caption);
  wxDataViewListCtrl* AddList(wxWindow& page, const char* name, const char* spokenName);
  wxButton* AddButton(wxWindow& page, wxSizer& line, const char* caption,
                      const std::function<void()>& action);
  void BuildWords();
  void BuildRules();
  void FillWords();
  void FillRules();
  void ShowButtons();
  void EditWord(const std::optional<OwnWord>& word);
  void RemoveWord();
  void EditRule(std::optional<std::size_t> index);
  void RemoveRule();
  void RuleToggled(const wxDataViewEvent& event);
  [[nodiscard]] std::optional<std::size_t> Selected(const wxDataViewListCtrl& list) const;
  // Stores by `save`; tells the user when that cannot be.
  void Store(const std::function<void()>& save);

  Pronunciations& pronunciations_;
  MessageBoxes& messageBoxes_;
  std::function<void(const std::string&)> sample_;
  wxNotebook* pages_ = nullptr;
  wxDataViewListCtrl* lstWords_ = nullptr;
  wxDataViewListCtrl* lstRules_ = nullptr;
  wxCheckBox* chkEmoji_ = nullptr;
  Buttons words_;
  Buttons rules_;
};

}  // namespace lorelin
