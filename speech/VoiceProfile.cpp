#include "speech/VoiceProfile.h"

#include <limits>

#include "speech/modSpeak.h"
#include "speech/voiceSettings.h"

namespace lorelin {

VoiceProfile StoredVoiceProfile(const SettingsStore& settings) {
  const std::int32_t place = StoredNumber(settings, setting::Voice);
  return {.voice = place == std::numeric_limits<std::int32_t>::max() ? place : place + 1,
          .pitch = StoredNumber(settings, setting::Pitch),
          .speed = StoredNumber(settings, setting::Speed),
          .volume = StoredNumber(settings, setting::Volume)};
}

void ApplyVoiceProfile(const VoiceProfile& profile, DirectSS& instance) {
  instance.SetCurrentVoice(profile.voice);
  instance.SetPitch(MapPercent(profile.pitch, instance.MinPitch(), instance.MaxPitch()));
  instance.SetSpeed(MapPercent(profile.speed, instance.MinSpeed(), instance.MaxSpeed()));
  const std::int32_t volume = MapPercent(profile.volume, instance.MinVolume(), instance.MaxVolume());
  instance.SetVolumeLeft(volume);
  instance.SetVolumeRight(volume);
}

}  // namespace lorelin
