#include "desktop/frmVoiceDialogs.h"

#include <string>

#include "desktop/frmSlider.h"
#include "desktop/frmVoice.h"

namespace lorelin {
namespace {

constexpr const char* kSample = "Guten Tag! So klingt die Stimme mit dieser Einstellung.";

}  // namespace

void FrmVoiceDialogs::ChooseVoice() {
  FrmVoice dialog(parent_, VoiceChoice(speech_.Voice(), settings_), [this](std::int32_t position) {
    speech_.SpeakSample(kSample, setting::Voice, std::to_string(position));
  });
  dialog.ShowModal();
}

void FrmVoiceDialogs::ChangeParameter(VoiceParameter parameter) {
  const SliderDialog& slider = SliderDialogFor(parameter);
  FrmSlider dialog(parent_, slider, settings_, [this, &slider](std::int32_t percent) {
    speech_.SpeakSample(kSample, slider.stored, std::to_string(percent));
  });
  dialog.ShowModal();
}

}  // namespace lorelin
