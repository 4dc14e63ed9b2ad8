#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ports/DirectSS.h"
#include "settings/SettingsStore.h"
#include "speech/modSpeak.h"

namespace lorelin {

// The samples that a voice dialog plays, with an engine instance of its own that lives as long as this. What
// is being read is held while a sample plays and goes on when it has ended. User-interface thread only.
class VoiceSample {
 public:
  using MakeInstance = std::function<std::unique_ptr<DirectSS>()>;

  // `make` makes an audible instance when the first sample is played. `speech` must outlive the object.
  VoiceSample(ModSpeak& speech, MakeInstance make) : speech_(speech), make_(std::move(make)) {}
  ~VoiceSample() { End(); }
  VoiceSample(const VoiceSample&) = delete;
  VoiceSample& operator=(const VoiceSample&) = delete;

  // Speaks the text with these voice settings instead of the stored ones. Throws RuntimeError like Speak.
  void Play(const std::string& text, const SettingKey& key, const std::string& value);
  void End();

 private:
  ModSpeak& speech_;
  MakeInstance make_;
  std::unique_ptr<DirectSS> instance_;
};

}  // namespace lorelin
