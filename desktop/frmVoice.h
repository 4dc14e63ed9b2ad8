#pragma once

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "ports/NaturalVoices.h"
#include "speech/voiceSettings.h"

namespace lorelin {

// The dialog that chooses the voice.
class FrmVoice final : public wxDialog {
 public:
  struct Actions {
    std::function<void(std::int32_t)> sample;  // speaks with the voice at this position
    // Lets the user get or remove voices; whether the list is another one now. Without it there is no button.
    std::function<bool(wxWindow* parent)> more;
    std::function<std::vector<InstalledVoice>()> natural;  // those that are installed
  };

  // Throws RuntimeError when the stored position is no number.
  FrmVoice(wxWindow* parent, VoiceChoice voices, Actions actions);

 private:
  void BuildControls();
  void BuildGroups(wxSizer& sizer);
  void BuildProposal(wxSizer& sizer);
  void BuildButtons(wxSizer& sizer);
  void Fill();
  void FillGroups();
  void ShowProposal();
  void Select(std::int32_t position);
  void SelectInGroups();
  void SelectionChanged();
  void GroupSelectionChanged();
  void GetMore();
  void Accept();

  VoiceChoice voices_;
  Actions actions_;
  std::vector<wxDataViewItem> items_;  // by position
  std::int32_t proposed_ = -1;
  wxChoice* cmbVoice_ = nullptr;
  wxDataViewTreeCtrl* groups_ = nullptr;
  wxStaticText* lblLNG_ = nullptr;
  wxStaticText* lblGender_ = nullptr;
  wxStaticText* lblProposal_ = nullptr;
  wxButton* proposal_ = nullptr;
  wxButton* sampleButton_ = nullptr;
};

}  // namespace lorelin
