#include "speech/VoiceSample.h"

namespace lorelin {

void VoiceSample::Play(const std::string& text, const SettingKey& key, const std::string& value) {
  if (!instance_) {
    instance_ = make_();
    instance_->OnEndOfText([this](const EndOfText&) { speech_.Release(); });
  }
  instance_->ResetAudio();
  speech_.Prepare(*instance_, key, value);
  speech_.Hold();
  instance_->Speak(text);
}

void VoiceSample::End() {
  instance_.reset();
  speech_.Release();
}

}  // namespace lorelin
