#include "engine/Synthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "base/textEncoding.h"
#include "engine/speakableText.h"

namespace lorelin::engine {
namespace {

constexpr Range kPitch{0, 100};
constexpr Range kSpeed{espeakRATE_MINIMUM, espeakRATE_MAXIMUM};
// Above its normal volume of 100 the library cuts off loud samples.
constexpr Range kVolume{0, 100};

constexpr int kBufferMilliseconds = 60;

// A piece of a text on its way through the library.
struct Piece {
  const Synthesizer::Samples& samples;
  WordMarker::Take words;
  WordMarker marker;
  int sampleRate = 0;
  std::uint64_t taken = 0;
  bool wanted = true;
};

void TakeWords(Piece& piece, const espeak_EVENT* event) {
  for (; event->type != espeakEVENT_LIST_TERMINATED; ++event) {
    // Places are counted from 1; 0 is none.
    if (event->type != espeakEVENT_WORD || event->text_position < 1) continue;
    const std::int64_t sample = std::int64_t{event->audio_position} * piece.sampleRate / 1000;
    piece.marker.Event(static_cast<std::size_t>(event->text_position) - 1,
                       std::max<std::uint64_t>(piece.taken, static_cast<std::uint64_t>(sample)), piece.words);
  }
}

int OnSamples(short* samples, int count, espeak_EVENT* events) {
  if (samples == nullptr || count <= 0 || events == nullptr) return 0;
  auto* const piece = static_cast<Piece*>(events->user_data);
  if (piece == nullptr) return 0;
  TakeWords(*piece, events);
  piece->taken += static_cast<std::uint64_t>(count);
  piece->wanted = piece->wanted && piece->samples({samples, static_cast<std::size_t>(count)});
  return piece->wanted ? 0 : 1;
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

bool Synthesizer::Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) {
  std::uint64_t samplesBefore = 0;
  std::size_t charactersBefore = 0;
  while (!text.empty()) {
    const std::string part(text.substr(0, NextPiece(text)));
    const WordMarker::Take take = [&](const WordMark& mark) {
      words({samplesBefore + mark.sample, charactersBefore + mark.begin, charactersBefore + mark.end});
    };
    Piece piece{samples, take, WordMarker(part), sampleRate_};
    const auto result = espeak_Synth(part.c_str(), part.size() + 1, 0, POS_CHARACTER, 0,
                                     espeakCHARS_UTF8 | espeakENDPAUSE, nullptr, &piece);
    if (result != EE_OK || !piece.wanted) return false;
    piece.marker.End(piece.taken, take);
    samplesBefore += piece.taken;
    charactersBefore += CharacterCount(part);
    text.remove_prefix(part.size());
  }
  return true;
}

}  // namespace lorelin::engine
