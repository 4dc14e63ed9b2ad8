#pragma once

#include <wx/window.h>

#include <functional>
#include <memory>
#include <utility>

#include "desktop/frmMoreVoices.h"
#include "ports/VoiceDialogs.h"
#include "settings/SettingsStore.h"
#include "speech/VoiceSample.h"
#include "speech/modSpeak.h"

namespace lorelin {

// Opens the voice dialogs as windows of the toolkit.
class FrmVoiceDialogs final : public VoiceDialogs {
 public:
  // Natural voices, where there are any to get.
  struct More {
    FrmMoreVoices::Parts list;
    std::function<void()> renew;   // voices came or went
    std::function<void()> chosen;  // another voice may be stored now
  };

  // Owns neither; both must outlive it. `makeSample` makes the instance that the samples are spoken by.
  FrmVoiceDialogs(ModSpeak& speech, SettingsStore& settings, VoiceSample::MakeInstance makeSample)
      : speech_(speech), settings_(settings), makeSample_(std::move(makeSample)) {}
  // The dialogs belong to this window.
  void SetParent(wxWindow* parent) { parent_ = parent; }
  void OfferMore(More more) { more_ = std::make_unique<More>(std::move(more)); }

  void ChooseVoice() override;
  void ChangeParameter(VoiceParameter parameter) override;

 private:
  [[nodiscard]] bool GetMore(wxWindow* parent, VoiceSample& sample);

  ModSpeak& speech_;
  SettingsStore& settings_;
  VoiceSample::MakeInstance makeSample_;
  std::unique_ptr<More> more_;
  wxWindow* parent_ = nullptr;
};

}  // namespace lorelin
