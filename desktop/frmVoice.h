#pragma once

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include <functional>

#include "speech/voiceSettings.h"

namespace lorelin {

// The dialog that chooses the voice.
class FrmVoice final : public wxDialog {
 public:
  // `sample` speaks with the voice at this position. Throws RuntimeError when the stored position is no
  // number.
  FrmVoice(wxWindow* parent, VoiceChoice voices, std::function<void(std::int32_t)> sample);

 private:
  void BuildControls();
  void SelectionChanged();
  void Accept();

  VoiceChoice voices_;
  std::function<void(std::int32_t)> sample_;
  wxChoice* cmbVoice_ = nullptr;
  wxStaticText* lblLNG_ = nullptr;
  wxStaticText* lblGender_ = nullptr;
  wxButton* sampleButton_ = nullptr;
};

}  // namespace lorelin
