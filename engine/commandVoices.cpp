#include "engine/commandVoices.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "engine/naturalVoices.h"
#include "engine/voiceCatalog.h"
#include "engine/voiceFiles.h"

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLargestFile = 16384;
constexpr std::size_t kMostVoices = 200;
constexpr double kUsualSpeed = 175;  // words a minute

std::string WithThreeDigits(double number) {
  std::array<char, 32> digits{};
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, 3);
  return {digits.data(), written.ptr};
}

std::string Value(const ArgumentPart& part, const Utterance& utterance) {
  switch (part.placeholder) {
    case Placeholder::Speed:
      return std::to_string(utterance.speed);
    case Placeholder::Stretch:
      return WithThreeDigits(kUsualSpeed / std::max(utterance.speed, 1));
    case Placeholder::Pitch:
      return std::to_string(utterance.pitch);
    case Placeholder::Volume:
      return std::to_string(utterance.volumeLeft);
    case Placeholder::None:
      break;
  }
  return part.text;
}

std::string ProblemText(const fs::path& file, const CommandVoiceProblem& problem) {
  std::string text =
      "Die Stimme „" + PathText(file.stem()) + "“ fehlt in der Auswahl: „" + PathText(file.filename()) + "“";
  if (problem.line != 0) text += ", Zeile " + std::to_string(problem.line);
  return text + ": " + problem.text + ".";
}

void AddVoice(FoundCommandVoices& found, const fs::path& file) {
  CommandVoiceProblem problem{.text = "die Datei lässt sich nicht lesen oder ist zu groß"};
  const auto text = ReadBounded(file, kLargestFile);
  auto voice = text ? ReadCommandVoice(*text, problem) : std::nullopt;
  if (!voice) return found.problems.push_back(ProblemText(file, problem));
  voice->folder = file.parent_path();
  if (voice->name.empty()) voice->name = PathText(file.stem());
  found.voices.push_back(std::move(*voice));
}

}  // namespace

bool CommandVoice::Takes(Placeholder placeholder) const {
  return std::any_of(command.begin(), command.end(), [&](const Argument& argument) {
    return std::any_of(argument.begin(), argument.end(),
                       [&](const ArgumentPart& part) { return part.placeholder == placeholder; });
  });
}

std::vector<std::string> FilledCommand(const CommandVoice& voice, const Utterance& utterance) {
  std::vector<std::string> command;
  for (const Argument& argument : voice.command) {
    std::string& text = command.emplace_back();
    for (const ArgumentPart& part : argument) text += Value(part, utterance);
  }
  return command;
}

Voice OfferedVoice(const CommandVoice& voice) {
  return {LanguageName(voice.language) + " – " + voice.name, LanguageId(voice.language), voice.gender};
}

FoundCommandVoices FindCommandVoices(const std::vector<fs::path>& folders) {
  FoundCommandVoices found;
  std::set<std::string> names;
  for (const fs::path& folder : folders) {
    for (const fs::path& file : VoiceFilesBelow(folder, ".voice")) {
      if (names.size() < kMostVoices && names.insert(PathText(file.filename())).second) AddVoice(found, file);
    }
  }
  std::stable_sort(found.voices.begin(), found.voices.end(), [](const auto& a, const auto& b) {
    const int left = LanguageRank(a.language);
    const int right = LanguageRank(b.language);
    return left != right ? left < right : ListedBefore(OfferedVoice(a).name, OfferedVoice(b).name);
  });
  return found;
}

}  // namespace lorelin::engine
