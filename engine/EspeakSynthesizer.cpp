#include "engine/EspeakSynthesizer.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <string>

#include "base/textEncoding.h"
#include "engine/speakableText.h"

namespace lorelin::engine {
namespace {

constexpr Range kPitch{0, 100};
constexpr Range kSpeed{espeakRATE_MINIMUM, espeakRATE_MAXIMUM};
// Above its normal volume of 100 the library cuts off loud samples.
constexpr Range kVolume{0, 100};

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

}  // namespace

EspeakSynthesizer::EspeakSynthesizer(EspeakLibrary& library)
    : library_(library), catalog_(MakeCatalog(EspeakLibrary::Voices())) {
  espeak_SetSynthCallback(&OnSamples);
}

Capabilities EspeakSynthesizer::Ranges() {
  return {.pitch = kPitch, .speed = kSpeed, .volume = kVolume, .voices = {}};
}

std::vector<Voice> EspeakSynthesizer::Voices() const {
  std::vector<Voice> voices;
  for (const CatalogVoice& entry : catalog_) voices.push_back(entry.voice);
  return voices;
}

void EspeakSynthesizer::Apply(std::size_t voice, const Utterance& utterance) {
  if (voice < catalog_.size()) (void)library_.Select(catalog_[voice].selector);
  espeak_SetParameter(espeakPITCH, utterance.pitch, 0);
  espeak_SetParameter(espeakRATE, utterance.speed, 0);
  espeak_SetParameter(espeakVOLUME, utterance.volumeLeft, 0);
}

std::chrono::milliseconds EspeakSynthesizer::Patience() const {
  return std::chrono::milliseconds(3500);
}

bool EspeakSynthesizer::Speak(std::string_view text, const Samples& samples, const WordMarker::Take& words) {
  std::uint64_t samplesBefore = 0;
  std::size_t charactersBefore = 0;
  while (!text.empty()) {
    const std::string part(text.substr(0, NextPiece(text)));
    const WordMarker::Take take = [&](const WordMark& mark) {
      words({samplesBefore + mark.sample, charactersBefore + mark.begin, charactersBefore + mark.end});
    };
    Piece piece{samples, take, WordMarker(part), library_.SampleRate()};
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
