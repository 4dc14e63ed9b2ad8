#include "speech/SilentVoice.h"

#include <algorithm>
#include <utility>

namespace lorelin {

void SilentVoice::SetPitch(std::int32_t value) {
  pitch_ = std::clamp(value, MinPitch(), MaxPitch());
}
void SilentVoice::SetSpeed(std::int32_t value) {
  speed_ = std::clamp(value, MinSpeed(), MaxSpeed());
}
void SilentVoice::SetVolumeLeft(std::int32_t value) {
  volumeLeft_ = std::clamp(value, MinVolume(), MaxVolume());
}
void SilentVoice::SetVolumeRight(std::int32_t value) {
  volumeRight_ = std::clamp(value, MinVolume(), MaxVolume());
}

void SilentVoice::OnEndOfText(std::function<void(const EndOfText&)> handler) {
  leader_.OnEndOfText(std::move(handler));
}

}  // namespace lorelin
