#include "engine/Synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <filesystem>
#include <stdexcept>

#include "engine/speakableText.h"

namespace lorelin::engine {
namespace {

constexpr Range kPitch{0, 100};
constexpr Range kSpeed{espeakRATE_MINIMUM, espeakRATE_MAXIMUM};
// Above its normal volume of 100 the library cuts off loud samples.
constexpr Range kVolume{0, 100};

constexpr int kBufferMilliseconds = 60;

int OnSamples(short* samples, int count, espeak_EVENT* events) {
  if (samples == nullptr || count <= 0 || events == nullptr) return 0;
  const auto* const take = static_cast<const Synthesizer::Samples*>(events->user_data);
  if (take == nullptr) return 0;
  return (*take)({samples, static_cast<std::size_t>(count)}) ? 0 : 1;
}

std::string Text(const char* text) {
  return text != nullptr ? text : "";
}

// MBROLA voices are listed whether their recordings are installed or not.
bool HasData(const std::string& identifier) {
  if (!identifier.starts_with("mb/")) return true;
  const std::string name = identifier.substr(identifier.rfind('-') + 1);
  std::error_code error;
  return std::filesystem::exists("/usr/share/mbrola/" + name + "/" + name, error);
}

void AddListed(std::vector<LibraryVoice>& voices, espeak_VOICE* filter) {
  const espeak_VOICE** list = espeak_ListVoices(filter);
  for (; list != nullptr && *list != nullptr; ++list) {
    const espeak_VOICE& voice = **list;
    LibraryVoice listed{.name = Text(voice.name),
                        .identifier = Text(voice.identifier),
                        .language = voice.languages != nullptr ? Text(voice.languages + 1) : "",
                        .gender = voice.gender};
    if (HasData(listed.identifier)) voices.push_back(std::move(listed));
  }
}

std::vector<LibraryVoice> ListVoices() {
  std::vector<LibraryVoice> voices;
  AddListed(voices, nullptr);
  espeak_VOICE mbrola{};
  mbrola.languages = "mbrola";
  AddListed(voices, &mbrola);
  return voices;
}

}  // namespace

Synthesizer::Synthesizer() {
  sampleRate_ =
      espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kBufferMilliseconds, nullptr, espeakINITIALIZE_DONT_EXIT);
  if (sampleRate_ <= 0) throw std::runtime_error("eSpeak NG: no voice data");
  espeak_SetSynthCallback(&OnSamples);
  catalog_ = MakeCatalog(ListVoices());
}

Synthesizer::~Synthesizer() {
  espeak_Terminate();
}

Capabilities Synthesizer::Describe() const {
  Capabilities capabilities{.pitch = kPitch, .speed = kSpeed, .volume = kVolume, .voices = {}};
  for (const CatalogVoice& entry : catalog_) capabilities.voices.push_back(entry.voice);
  return capabilities;
}

void Synthesizer::Apply(const Utterance& utterance) {
  const auto index = static_cast<std::size_t>(utterance.voice - 1);
  if (utterance.voice >= 1 && index < catalog_.size() && selected_ != catalog_[index].selector) {
    selected_ = catalog_[index].selector;
    espeak_SetVoiceByName(selected_.c_str());
  }
  espeak_SetParameter(espeakPITCH, utterance.pitch, 0);
  espeak_SetParameter(espeakRATE, utterance.speed, 0);
  espeak_SetParameter(espeakVOLUME, utterance.volumeLeft, 0);
}

bool Synthesizer::Speak(std::string_view text, const Samples& samples) {
  bool wanted = true;
  const Samples take = [&](std::span<const std::int16_t> block) { return wanted = wanted && samples(block); };
  while (!text.empty() && wanted) {
    const std::size_t size = NextPiece(text);
    const std::string piece(text.substr(0, size));
    text.remove_prefix(size);
    const auto result = espeak_Synth(piece.c_str(), piece.size() + 1, 0, POS_CHARACTER, 0,
                                     espeakCHARS_UTF8 | espeakENDPAUSE, nullptr, const_cast<Samples*>(&take));
    if (result != EE_OK) return false;
  }
  return wanted;
}

}  // namespace lorelin::engine
