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
  FrmVoice::Actions actions;
  actions.sample = [&sample](std::int32_t position) {
    sample.Play(kSample, setting::Voice, std::to_string(position));
  };
  if (more_) {
    actions.natural = [this] { return more_->list.voiceLibrary.Natural().Installed(); };
    actions.more = [this, &sample](wxWindow* parent) { return GetMore(parent, sample); };
  }
  FrmVoice dialog(parent_, VoiceChoice(speech_.Voice(), settings_), std::move(actions));
  if (dialog.ShowModal() == wxID_OK && more_) more_->chosen();
}

// The instance that plays samples knows only the voices that there were.
bool FrmVoiceDialogs::GetMore(wxWindow* parent, VoiceSample& sample) {
  FrmMoreVoices dialog(parent, more_->list);
  dialog.ShowModal();
  if (!dialog.Changed()) return false;
  sample.End();
  more_->renew();
  return true;
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
