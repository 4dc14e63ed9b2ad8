#pragma once

#include <wx/window.h>

#include "ports/VoiceDialogs.h"
#include "settings/SettingsStore.h"
#include "speech/VoiceSample.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Opens the voice dialogs as windows of the toolkit.
class FrmVoiceDialogs final : public VoiceDialogs {
 public:
  // Owns neither; both must outlive it. `makeSample` makes the instance that the samples are spoken by.
  FrmVoiceDialogs(ModSpeak& speech, SettingsStore& settings, VoiceSample::MakeInstance makeSample)
      : speech_(speech), settings_(settings), makeSample_(std::move(makeSample)) {}
  // The dialogs belong to this window.
  void SetParent(wxWindow* parent) { parent_ = parent; }

  void ChooseVoice() override;
  void ChangeParameter(VoiceParameter parameter) override;

 private:
  ModSpeak& speech_;
  SettingsStore& settings_;
  VoiceSample::MakeInstance makeSample_;
  wxWindow* parent_ = nullptr;
};

}  // namespace lorelin
