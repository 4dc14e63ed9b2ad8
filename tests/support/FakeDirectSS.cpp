#include "tests/support/FakeDirectSS.h"

#include <algorithm>

namespace lorelin {
namespace {

std::int32_t Clamped(std::int32_t value, const FakeDirectSS::Range& range) {
  return std::clamp(value, range.lowest, range.highest);
}

}  // namespace

bool FakeDirectSS::Has(std::int32_t number) const {
  return number >= 1 && static_cast<std::size_t>(number) <= voices.size();
}

FakeDirectSS::Voice FakeDirectSS::At(std::int32_t number) const {
  return Has(number) ? voices[static_cast<std::size_t>(number) - 1] : Voice{"", 0, 0};
}

void FakeDirectSS::Speak(std::string_view text) {
  Log("Speak");
  text_ = text;
  renderedTo = waveFile_;
  speaking_ = true;
  goesOn_ = false;
}

void FakeDirectSS::SpeakBeginning(std::string_view text) {
  Log("SpeakBeginning");
  text_ = text;
  speaking_ = goesOn_ = true;
}

void FakeDirectSS::ContinueText(std::string_view text, bool last) {
  if (!speaking_ || !goesOn_) return;
  Log(last ? "EndText" : "ContinueText");
  text_ += text;
  goesOn_ = !last;
}

void FakeDirectSS::ResetAudio() {
  Log("ResetAudio");
  speaking_ = goesOn_ = false;
}

void FakeDirectSS::SetCurrentVoice(std::int32_t number) {
  Log("Voice=" + std::to_string(number));
  if (Has(number)) voice_ = number;
}

void FakeDirectSS::SetPitch(std::int32_t value) {
  Log("Pitch=" + std::to_string(value));
  pitch_ = Clamped(value, pitchRange);
}

void FakeDirectSS::SetSpeed(std::int32_t value) {
  Log("Speed=" + std::to_string(value));
  speed_ = Clamped(value, speedRange);
}

void FakeDirectSS::SetVolumeLeft(std::int32_t value) {
  Log("VolumeLeft=" + std::to_string(value));
  volumeLeft_ = Clamped(value, volumeRange);
}

void FakeDirectSS::SetVolumeRight(std::int32_t value) {
  Log("VolumeRight=" + std::to_string(value));
  volumeRight_ = Clamped(value, volumeRange);
}

void FakeDirectSS::SetWaveFile(const std::string& path) {
  Log("WaveFile");
  waveFile_ = path;
}

void FakeDirectSS::Finish(const EndOfText& end) {
  if (!speaking_) return;
  speaking_ = goesOn_ = false;
  if (handler_) handler_(end);
}

}  // namespace lorelin
