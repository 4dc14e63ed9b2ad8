#include "engine/EspeakLibrary.h"

#include <espeak-ng/speak_lib.h>

#include <filesystem>
#include <stdexcept>
#include <utility>

namespace lorelin::engine {
namespace {

constexpr int kBufferMilliseconds = 60;

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

}  // namespace

EspeakLibrary::EspeakLibrary()
    : sampleRate_(espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kBufferMilliseconds, nullptr,
                                    espeakINITIALIZE_DONT_EXIT)) {
  if (sampleRate_ <= 0) throw std::runtime_error("eSpeak NG: no voice data");
}

EspeakLibrary::~EspeakLibrary() {
  espeak_Terminate();
}

std::vector<LibraryVoice> EspeakLibrary::Voices() {
  std::vector<LibraryVoice> voices;
  AddListed(voices, nullptr);
  espeak_VOICE mbrola{};
  mbrola.languages = "mbrola";
  AddListed(voices, &mbrola);
  return voices;
}

bool EspeakLibrary::Select(const std::string& voice) {
  if (selected_ == voice) return true;
  selected_.clear();
  if (espeak_SetVoiceByName(voice.c_str()) != EE_OK) return false;
  selected_ = voice;
  return true;
}

}  // namespace lorelin::engine
