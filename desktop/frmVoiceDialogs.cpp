#include "desktop/frmVoiceDialogs.h"

#include <string>

#include "desktop/frmSlider.h"
#include "desktop/frmVoice.h"

namespace lorelin {
namespace {

constexpr const char* kSample = "Guten Tag! So klingt die Stimme mit dieser Einstellung.";

}  // namespace

void FrmVoiceDialogs::ChooseVoice() {
  VoiceSample sample(speech_, makeSample_);
  FrmVoice dialog(parent_, VoiceChoice(speech_.Voice(), settings_), [&sample](std::int32_t position) {
    sample.Play(kSample, setting::Voice, std::to_string(position));
  });
  dialog.ShowModal();
}

void FrmVoiceDialogs::ChangeParameter(VoiceParameter parameter) {
  const SliderDialog& slider = SliderDialogFor(parameter);
  VoiceSample sample(speech_, makeSample_);
  FrmSlider dialog(parent_, slider, settings_, [&sample, &slider](std::int32_t percent) {
    sample.Play(kSample, slider.stored, std::to_string(percent));
  });
  dialog.ShowModal();
}

}  // namespace lorelin
