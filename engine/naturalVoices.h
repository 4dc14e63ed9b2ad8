#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/protocol.h"

namespace lorelin::engine {

// A natural voice as the JSON beside its model tells it ("NAME.onnx" and "NAME.onnx.json"). Every number in
// it was checked.
struct NaturalVoice {
  struct Speaker {
    std::string name;
    std::int64_t id = 0;
  };

  std::filesystem::path model;
  std::string dataset;      // the speaker's or the recordings' name
  std::string language;     // "de-de"
  std::string quality;      // "medium"
  std::string espeakVoice;  // that makes the sounds of a text
  int sampleRate = 0;
  float noiseScale = 0;
  float lengthScale = 1;
  float noiseOfDurations = 0;
  std::map<char32_t, std::vector<std::int64_t>> symbols;
  std::vector<Speaker> speakers;  // one at least
};

// The voice that the JSON describes, without its model's place; else `problem` is a German clause that says
// what is wrong with the description.
[[nodiscard]] std::optional<NaturalVoice> ReadNaturalVoice(std::string_view json, std::string& problem);

// As the program offers them: one voice for each speaker.
[[nodiscard]] std::vector<Voice> OfferedVoices(const NaturalVoice& voice);

struct FoundVoices {
  std::vector<NaturalVoice> voices;   // by language, German first, and name
  std::vector<std::string> problems;  // German sentences about files that are no voices
};

// The folders in which voices lie, the user's own first: XDG Base Directory Specification 0.8.
[[nodiscard]] std::vector<std::filesystem::path> VoiceFolders();

// The folders in which a runtime for their models may lie, besides the system's own.
[[nodiscard]] std::vector<std::filesystem::path> RuntimeFolders();

// The voices in the folders and, three levels deep, below. Of those with one name the first counts.
[[nodiscard]] FoundVoices FindNaturalVoices(const std::vector<std::filesystem::path>& folders);

// The bytes of a file of at most this size; nothing when it is larger or cannot be read.
[[nodiscard]] std::optional<std::string> ReadBounded(const std::filesystem::path& file, std::uintmax_t most);

}  // namespace lorelin::engine
