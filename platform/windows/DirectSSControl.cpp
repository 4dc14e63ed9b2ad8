#include "platform/windows/DirectSSControl.h"

#include <algorithm>

namespace lorelin {
namespace {

constexpr CLSID kClass = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
constexpr IID kEvents = {0xEEE78597, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};

// Members of the control.
constexpr DISPID kSpeak = 6;
constexpr DISPID kPitch = 7;
constexpr DISPID kMaxPitch = 8;
constexpr DISPID kMinPitch = 9;
constexpr DISPID kSpeed = 10;
constexpr DISPID kMaxSpeed = 11;
constexpr DISPID kMinSpeed = 12;
constexpr DISPID kVolumeRight = 13;
constexpr DISPID kCountEngines = 18;
constexpr DISPID kModeName = 23;
constexpr DISPID kGender = 25;
constexpr DISPID kLanguageId = 30;
constexpr DISPID kAudioPause = 35;
constexpr DISPID kAudioReset = 36;
constexpr DISPID kAudioResume = 37;
constexpr DISPID kSpeaking = 61;
constexpr DISPID kFileName = 68;
constexpr DISPID kCurrentMode = 69;
constexpr DISPID kVolumeLeft = 72;
constexpr DISPID kMinVolume = 73;
constexpr DISPID kMaxVolume = 74;

// Its events.
constexpr DISPID kAudioStop = 4;
constexpr DISPID kWordPosition = 7;  // hi, lo, byteoffset
constexpr DISPID kTextDataDone = 10;

// Its genders (speech.h of the Speech API 4.0: GENDER_NEUTRAL, GENDER_FEMALE, GENDER_MALE).
constexpr std::int32_t kFemale = 1;
constexpr std::int32_t kMale = 2;

std::int32_t GenderOf(std::int32_t gender) {
  if (gender == kMale) return 1;
  return gender == kFemale ? 2 : 0;
}

// It counts the bytes of an automation text.
std::size_t BytesOfCharacter(std::string_view character) {
  return 2 * Utf16Units(character);
}

}  // namespace

DirectSSControl::DirectSSControl(EventPump& pump, Log& log) : ComSpeech(pump, log, &BytesOfCharacter) {}

std::unique_ptr<DirectSSControl> DirectSSControl::Create(EventPump& pump, Log& log) {
  try {
    (void)Dispatch::Create(kClass);
  } catch (const ComError&) {
    return nullptr;
  }
  return std::unique_ptr<DirectSSControl>(new DirectSSControl(pump, log));
}

DirectSSControl::~DirectSSControl() {
  events_.Disconnect();
}

std::int32_t DirectSSControl::Number(DISPID member, std::vector<Variant> arguments) const {
  return control_.Property(member, std::move(arguments)).Number();
}

void DirectSSControl::CreateEngine() {
  control_ = Dispatch::Create(kClass);
  // A control that is no part of a form has to be told that it begins anew.
  ComPtr<IPersistStreamInit> initial;
  if (SUCCEEDED(control_.Get()->QueryInterface(IID_IPersistStreamInit,
                                               reinterpret_cast<void**>(initial.GetAddressOf())))) {
    initial->InitNew();
  }
  events_ = EventConnection(control_.Get(), kEvents,
                            [this](DISPID event, const DISPPARAMS& arguments) { OnEvent(event, arguments); });
  engine::Capabilities abilities;
  abilities.pitch = {.lowest = Number(kMinPitch), .highest = Number(kMaxPitch)};
  abilities.speed = {.lowest = Number(kMinSpeed), .highest = Number(kMaxSpeed)};
  abilities.volume = {.lowest = Number(kMinVolume), .highest = Number(kMaxVolume)};
  const std::int32_t count = Number(kCountEngines);
  for (std::int32_t number = 1; number <= count; ++number) {
    abilities.voices.push_back({.name = control_.Property(kModeName, Arguments(number)).Text(),
                                .languageId = Number(kLanguageId, Arguments(number)),
                                .gender = GenderOf(Number(kGender, Arguments(number)))});
  }
  SetAbilities(std::move(abilities));
  applied_ = {};
  applied_.voice = 0;
  applied_.pitch = applied_.speed = applied_.volumeLeft = applied_.volumeRight = INT32_MIN;
}

void DirectSSControl::DestroyEngine() {
  events_.Disconnect();
  control_ = Dispatch();
}

// Reading back shows what the engine made of it.
void DirectSSControl::Put(DISPID member, std::int32_t& value) const {
  control_.SetProperty(member, Variant(value));
  value = Number(member);
}

void DirectSSControl::ApplyProperties(engine::Utterance& properties) {
  if (properties.voice > 0 && properties.voice != applied_.voice) {
    control_.SetProperty(kCurrentMode, Variant(properties.voice));
  }
  if (properties.pitch != applied_.pitch) Put(kPitch, properties.pitch);
  if (properties.speed != applied_.speed) Put(kSpeed, properties.speed);
  if (properties.volumeLeft != applied_.volumeLeft) Put(kVolumeLeft, properties.volumeLeft);
  if (properties.volumeRight != applied_.volumeRight) Put(kVolumeRight, properties.volumeRight);
  applied_ = properties;
}

void DirectSSControl::StartText(const engine::Utterance& utterance) {
  processed_ = false;
  if (!utterance.waveFile.empty())
    control_.SetProperty(kFileName, Variant(std::string_view(utterance.waveFile)));
  control_.Call(kSpeak, Arguments(std::string_view(utterance.text)));
}

void DirectSSControl::PauseEngine() {
  control_.Call(kAudioPause);
}
void DirectSSControl::ResumeEngine() {
  control_.Call(kAudioResume);
}
void DirectSSControl::StopEngine() {
  processed_ = false;
  control_.Call(kAudioReset);
}

// The text is processed before the last of it is heard.
bool DirectSSControl::HasFinished() {
  return processed_ && !control_.Property(kSpeaking).Truth();
}

void DirectSSControl::OnEvent(DISPID event, const DISPPARAMS& arguments) {
  if (event == kWordPosition) WordAt(0, static_cast<std::size_t>(std::max(NumberAt(arguments, 2), 0)));
  if (event == kTextDataDone) processed_ = true;
  if (event == kTextDataDone || event == kAudioStop) (void)Speaking();
}

}  // namespace lorelin
