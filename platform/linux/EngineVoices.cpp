#include "platform/linux/EngineVoices.h"

#include "base/paths.h"
#include "engine/OnnxRuntime.h"
#include "engine/naturalVoices.h"

namespace lorelin {

std::string EngineVoices::Obstacle() const {
  if (!engine::OnnxRuntime::Find(engine::RuntimeFolders()).empty()) return {};
  return "Damit natürliche Stimmen sprechen, fehlt noch die ONNX Runtime. Die Hilfe sagt unter „Natürliche "
         "Stimmen“, wie man sie bekommt.";
}

std::string EngineVoices::OwnFolder() const {
  return PathText(engine::VoiceFolders().front());
}

std::vector<InstalledVoice> EngineVoices::Installed() const {
  const auto own = engine::VoiceFolders().front();
  std::vector<InstalledVoice> installed;
  for (const engine::NaturalVoice& voice : engine::FindNaturalVoices(engine::VoiceFolders()).voices) {
    const auto folder = voice.model.parent_path();
    installed.push_back({.name = PathText(voice.model.stem()),
                         .folder = PathText(folder),
                         .offered = {},
                         .language = voice.language,
                         .quality = voice.quality,
                         .own = folder == own});
    for (const auto& offered : engine::OfferedVoices(voice)) installed.back().offered.push_back(offered.name);
  }
  return installed;
}

std::string EngineVoices::Problem(std::string_view description) const {
  std::string problem;
  return engine::ReadNaturalVoice(description, problem) ? std::string() : problem;
}

}  // namespace lorelin
