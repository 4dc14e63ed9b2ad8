#include "engine/naturalVoices.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <set>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "engine/speakers.h"
#include "engine/voiceCatalog.h"
#include "engine/voiceFiles.h"

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kModelEnding = ".onnx";
constexpr std::uintmax_t kLargestDescription = 1U << 20;

std::string QualityName(std::string_view quality) {
  if (quality == "x_low") return "sehr einfach";
  if (quality == "low") return "einfach";
  if (quality == "medium") return "mittel";
  if (quality == "high") return "hoch";
  return std::string(quality);
}

std::string DisplayName(const NaturalVoice& voice) {
  std::string name = LanguageName(voice.language);
  name += " – " + voice.dataset;
  return voice.quality.empty() ? name : name + " (" + QualityName(voice.quality) + ")";
}

void AddVoice(FoundVoices& found, const fs::path& model) {
  std::string problem = "sie fehlt oder ist zu groß";
  const auto json = ReadBounded(PathText(model) + ".json", kLargestDescription);
  auto voice = json ? ReadNaturalVoice(*json, problem) : std::nullopt;
  if (!voice) {
    found.problems.push_back("Die Stimme „" + PathText(model.stem()) +
                             "“ fehlt in der Auswahl: Ihre Beschreibung „" + PathText(model.filename()) +
                             ".json“ ist unbrauchbar, " + problem + ".");
    return;
  }
  voice->model = model;
  if (voice->dataset.empty()) voice->dataset = PathText(model.stem());
  found.voices.push_back(std::move(*voice));
}

// Where the program keeps what is the user's.
fs::path OwnFolder() {
  const char* const moved = std::getenv("LORELIN_HOME");
  if (moved != nullptr && *moved != '\0') return moved;
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && fs::path(data).is_absolute()) return fs::path(data) / "lorelin";
  const char* const home = std::getenv("HOME");
  return fs::path(home != nullptr ? home : "/") / ".local/share/lorelin";
}

}  // namespace

std::optional<std::string> ReadBounded(const fs::path& file, std::uintmax_t most) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return std::nullopt;
  const std::uintmax_t size = fs::file_size(file, error);
  if (error || size > most) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  std::ifstream stream(file, std::ios::binary);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream) return std::nullopt;
  return bytes;
}

std::vector<Voice> OfferedVoices(const NaturalVoice& voice) {
  const std::string name = DisplayName(voice);
  const std::int32_t language = LanguageId(voice.language);
  if (voice.speakers.size() == 1) return {{name, language, GenderOfSpeaker(voice.dataset)}};
  std::vector<Voice> voices;
  for (const auto& speaker : voice.speakers) voices.push_back({name + " – " + speaker.name, language, 0});
  return voices;
}

std::vector<fs::path> RuntimeFolders() {
  return {OwnFolder() / "runtime", "/usr/lib/lorelin"};
}

std::vector<fs::path> VoiceFolders() {
  return {OwnFolder() / "voices", "/usr/share/lorelin/voices", "/usr/share/piper-voices"};
}

FoundVoices FindNaturalVoices(const std::vector<fs::path>& folders) {
  FoundVoices found;
  std::set<std::string> names;
  for (const fs::path& folder : folders) {
    for (const fs::path& model : VoiceFilesBelow(folder, kModelEnding)) {
      if (names.insert(PathText(model.filename())).second) AddVoice(found, model);
    }
  }
  std::stable_sort(found.voices.begin(), found.voices.end(), [](const auto& a, const auto& b) {
    const int left = LanguageRank(a.language);
    const int right = LanguageRank(b.language);
    return left != right ? left < right : ListedBefore(DisplayName(a), DisplayName(b));
  });
  return found;
}

}  // namespace lorelin::engine
