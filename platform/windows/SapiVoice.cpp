#include "platform/windows/SapiVoice.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace lorelin {
namespace {

constexpr IID kEvents = {0xA372ACD1, 0x3BEF, 0x4BBD, {0x8F, 0xFB, 0xCB, 0x3E, 0x2B, 0x41, 0x6A, 0xF8}};
constexpr DISPID kEndStream = 2;             // StreamNumber, StreamPosition
constexpr DISPID kWord = 5;                  // StreamNumber, StreamPosition, CharacterPosition, Length
constexpr std::int32_t kInterests = 0x24;    // SVEEndInputStream, SVEWordBoundary
constexpr std::int32_t kAsynchronously = 1;  // SVSFlagsAsync
constexpr std::int32_t kPurge = 2;           // SVSFPurgeBeforeSpeak
constexpr std::int32_t kMarkup = 8;          // SVSFIsXML
constexpr std::int32_t kCreateFile = 3;      // SSFMCreateForWrite
constexpr std::int32_t kFormat = 22;         // SAFT22kHz16BitMono

constexpr engine::Range kPitch{.lowest = -10, .highest = 10};
// Its rates go from -10 to 10 around the usual one, which is to lie at a quarter of the range.
constexpr engine::Range kSpeed{.lowest = -10, .highest = 30};
constexpr engine::Range kVolume{.lowest = 0, .highest = 100};
constexpr std::int32_t kFasterSteps = 3;

constexpr std::int32_t kPrimaryLanguage = 0x3FF;
constexpr std::int32_t kGerman = 0x07;

std::int32_t RateOf(std::int32_t speed) {
  return speed <= 0 ? speed : speed / kFasterSteps;
}

// "407;9": hexadecimal, the first one counts.
std::int32_t LanguageOf(const std::string& attribute) {
  std::int32_t language = 0;
  std::from_chars(attribute.data(), attribute.data() + attribute.size(), language, 16);
  return language;
}

std::int32_t GenderOf(const std::string& attribute) {
  const std::string gender = LowerAscii(attribute);
  if (gender == "male") return 1;
  return gender == "female" ? 2 : 0;
}

std::string MarkupFront(std::int32_t pitch) {
  return "<pitch absmiddle=\"" + std::to_string(pitch) + "\">";
}

// "" for a sign that stands for itself.
std::string_view EscapedSign(char sign) {
  switch (sign) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    default:
      return {};
  }
}

// What it counts are the units of the markup.
std::size_t UnitsInMarkup(std::string_view character) {
  const std::string_view escaped = EscapedSign(character.front());
  return escaped.empty() ? Utf16Units(character) : escaped.size();
}

// A voice that lacks an attribute is still a voice.
std::string Attribute(const Dispatch& token, std::string_view name) {
  try {
    return token.Call("GetAttribute", Arguments(name)).Text();
  } catch (const ComError&) {
    return {};
  }
}

}  // namespace

std::string SapiMarkup(std::string_view text, std::int32_t pitch) {
  std::string markup = MarkupFront(pitch);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view escaped = EscapedSign(text[i]);
    markup += escaped.empty() ? text.substr(i, 1) : escaped;
  }
  return markup + "</pitch>";
}

std::vector<std::size_t> VoiceOrder(const std::vector<std::int32_t>& languages) {
  std::vector<std::size_t> order(languages.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  const auto firstOther = std::stable_partition(order.begin(), order.end(), [&](std::size_t i) {
    return (languages[i] & kPrimaryLanguage) == kGerman;
  });
  if (firstOther - order.begin() == 1 && order.size() > 1) std::swap(order[0], order[1]);
  return order;
}

std::unique_ptr<SapiVoice> SapiVoice::Create(EventPump& pump, Log& log) {
  auto voice = std::unique_ptr<SapiVoice>(new SapiVoice(pump, log));
  try {
    voice->CreateEngine();
  } catch (const ComError& error) {
    log.Write(std::string("SAPI: ") + error.what());
    return nullptr;
  }
  const bool usable = !voice->tokens_.empty();
  if (!usable) log.Write("SAPI: keine Stimmen");
  voice->DestroyEngine();
  return usable ? std::move(voice) : nullptr;
}

SapiVoice::SapiVoice(EventPump& pump, Log& log) : ComSpeech(pump, log, &UnitsInMarkup) {}

SapiVoice::~SapiVoice() {
  events_.Disconnect();
}

void SapiVoice::CreateEngine() {
  voice_ = Dispatch::Create("SAPI.SpVoice");
  voice_.SetProperty("EventInterests", Variant(kInterests));
  events_ = EventConnection(voice_.Get(), kEvents,
                            [this](DISPID event, const DISPPARAMS& arguments) { OnEvent(event, arguments); });
  ListVoices();
  rendering_ = false;
  applied_ = {};
  applied_.voice = 0;
  applied_.speed = applied_.volumeLeft = INT32_MIN;
}

void SapiVoice::ListVoices() {
  const Dispatch list(voice_.Call("GetVoices", Arguments(std::string_view(), std::string_view())).Object());
  std::vector<Dispatch> tokens;
  std::vector<engine::Voice> voices;
  std::vector<std::int32_t> languages;
  const std::int32_t count = list.Property("Count").Number();
  for (std::int32_t index = 0; index < count; ++index) {
    Dispatch token(list.Call("Item", Arguments(index)).Object());
    if (!token) continue;
    const std::int32_t language = LanguageOf(Attribute(token, "Language"));
    voices.push_back({.name = token.Call("GetDescription", Arguments(std::int32_t{0})).Text(),
                      .languageId = language,
                      .gender = GenderOf(Attribute(token, "Gender"))});
    languages.push_back(language);
    tokens.push_back(std::move(token));
  }
  engine::Capabilities abilities{.pitch = kPitch, .speed = kSpeed, .volume = kVolume, .voices = {}};
  tokens_.clear();
  for (const std::size_t i : VoiceOrder(languages)) {
    abilities.voices.push_back(voices[i]);
    tokens_.push_back(tokens[i]);
  }
  SetAbilities(std::move(abilities));
}

void SapiVoice::DestroyEngine() {
  events_.Disconnect();
  tokens_.clear();
  file_ = Dispatch();
  voice_ = Dispatch();
}

void SapiVoice::ApplyProperties(engine::Utterance& properties) {
  if (properties.voice > 0 && properties.voice != applied_.voice) {
    voice_.SetObject("Voice", tokens_.at(static_cast<std::size_t>(properties.voice) - 1));
  }
  if (properties.speed != applied_.speed) voice_.SetProperty("Rate", Variant(RateOf(properties.speed)));
  if (properties.volumeLeft != applied_.volumeLeft)
    voice_.SetProperty("Volume", Variant(properties.volumeLeft));
  applied_ = properties;
}

void SapiVoice::StartText(const engine::Utterance& utterance) {
  stream_ = 0;
  streams_.clear();
  rendering_ = !utterance.waveFile.empty();
  if (rendering_) {
    file_ = Dispatch::Create("SAPI.SpFileStream");
    Dispatch(file_.Property("Format").Object()).SetProperty("Type", Variant(kFormat));
    file_.Call("Open", Arguments(std::string_view(utterance.waveFile), kCreateFile, false));
    voice_.SetProperty("AllowAudioOutputFormatChangesOnNextSet", Variant(false));
    voice_.SetObject("AudioOutputStream", file_);
  }
  AddText(utterance);
}

void SapiVoice::AddText(const engine::Utterance& utterance) {
  stream_ = voice_
                .Call("Speak", Arguments(std::string_view(SapiMarkup(utterance.text, utterance.pitch)),
                                         kAsynchronously | kMarkup))
                .Number();
  streams_.push_back(stream_);
  markupFront_ = static_cast<std::int32_t>(MarkupFront(utterance.pitch).size());
}

void SapiVoice::PauseEngine() {
  voice_.Call("Pause");
}
void SapiVoice::ResumeEngine() {
  voice_.Call("Resume");
}

void SapiVoice::StopEngine() {
  stream_ = 0;
  voice_.Call("Speak", Arguments(std::string_view(), kAsynchronously | kPurge));
}

// Its status says nothing of a text that goes into a file.
bool SapiVoice::HasFinished() {
  return stream_ != 0 && voice_.Call("WaitUntilDone", Arguments(std::int32_t{0})).Truth();
}

void SapiVoice::CloseWaveFile() {
  if (!file_) return;
  const Dispatch file = std::move(file_);
  file_ = Dispatch();
  file.Call("Close");
}

void SapiVoice::OnEvent(DISPID event, const DISPPARAMS& arguments) {
  if (stream_ == 0) return;
  if (event == kWord) OnWord(NumberAt(arguments, 0), NumberAt(arguments, 2));
  if (event == kEndStream && NumberAt(arguments, 0) == stream_) Finished();
}

void SapiVoice::OnWord(std::int32_t stream, std::int32_t place) {
  const auto found = std::find(streams_.begin(), streams_.end(), stream);
  if (found == streams_.end() || place < markupFront_) return;
  WordAt(static_cast<std::size_t>(found - streams_.begin()), static_cast<std::size_t>(place - markupFront_));
}

}  // namespace lorelin
