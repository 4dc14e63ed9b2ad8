#include "voices/localVoices.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/sizeText.h"
#include "base/text.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

using Kind = VoiceOutcome::Kind;

constexpr std::string_view kModel = ".onnx";
constexpr std::string_view kDescription = ".onnx.json";
constexpr std::uintmax_t kMostModelBytes = 1'000'000'000;
constexpr std::uintmax_t kMostDescriptionBytes = 1U << 20;
constexpr std::uintmax_t kReserve = 20'000'000;

bool Ends(std::string_view path, std::string_view ending) {
  return path.size() > ending.size() && LowerAscii(path.substr(path.size() - ending.size())) == ending;
}

bool IsArchive(std::string_view path) {
  static constexpr std::array<std::string_view, 5> kEndings{".zip", ".tar", ".tar.gz", ".tgz", ".tar.xz"};
  return std::any_of(kEndings.begin(), kEndings.end(), [&](auto ending) { return Ends(path, ending); });
}

// The name that a model's path gives a voice.
std::string NameOf(std::string_view model) {
  const auto slash = model.find_last_of("/\\");
  if (slash != std::string_view::npos) model.remove_prefix(slash + 1);
  return std::string(model.substr(0, model.size() - kModel.size()));
}

std::optional<LocalVoice> VoiceOfFile(const std::string& path) {
  std::string model = path;
  if (Ends(path, kDescription)) model.resize(path.size() - (kDescription.size() - kModel.size()));
  if (!Ends(model, kModel) || NameOf(model).empty()) return std::nullopt;
  return LocalVoice{.name = NameOf(model), .archive = {}, .model = model, .description = model + ".json"};
}

std::optional<LocalVoice> VoiceOfArchive(const std::string& path, VoiceArchives& archives) {
  const std::vector<std::string> names = archives.Names(path);
  for (const std::string& name : names) {
    if (!Ends(name, kModel)) continue;
    const std::string description = name + ".json";
    if (std::find(names.begin(), names.end(), description) == names.end()) continue;
    return LocalVoice{.name = NameOf(name), .archive = path, .model = name, .description = description};
  }
  return std::nullopt;
}

VoiceOutcome Failed(std::string text) {
  return {Kind::Failed, std::move(text)};
}

}  // namespace

std::optional<LocalVoice> FindLocalVoice(const std::vector<std::string>& paths, VoiceArchives& archives) {
  for (const std::string& path : paths) {
    auto voice = IsArchive(path) ? VoiceOfArchive(path, archives) : VoiceOfFile(path);
    if (voice) return voice;
  }
  return std::nullopt;
}

VoiceOutcome LocalVoices::Copy(const LocalVoice& voice, const std::string& from,
                               const std::filesystem::path& to, std::uintmax_t most,
                               const std::function<bool()>& keepGoing) {
  bool cancelled = false;
  const auto going = [&](auto) {
    cancelled = cancelled || !keepGoing();
    return !cancelled;
  };
  if (!voice.archive.empty()) {
    const std::string problem = parts_.archives.Extract(voice.archive, from, PathText(to), most, going);
    if (cancelled) return {Kind::Cancelled, ""};
    return problem.empty() ? VoiceOutcome{} : Failed("Das Archiv ist nicht brauchbar: " + problem + ".");
  }
  if (FileBytes(NativePath(from)) > most) return Failed("Die Datei „" + from + "“ ist zu groß.");
  try {
    if (!parts_.files.Copy(from, PathText(to), going)) return {Kind::Cancelled, ""};
  } catch (const RuntimeError& error) {
    return Failed("Die Datei „" + from + "“ lässt sich nicht übernehmen: " + error.what());
  }
  return {};
}

VoiceOutcome LocalVoices::CopyBoth(const LocalVoice& voice, const std::function<bool()>& keepGoing) {
  const auto description = VoiceFolder::Part(folder_.Description(voice.name));
  VoiceOutcome outcome = Copy(voice, voice.description, description, kMostDescriptionBytes, keepGoing);
  if (!outcome.Done()) return outcome;
  try {
    if (const std::string problem = parts_.natural.Problem(ReadFileBytes(PathText(description)));
        !problem.empty()) {
      return Failed("Die Beschreibung der Stimme ist unbrauchbar, " + problem + ".");
    }
  } catch (const RuntimeError& error) {
    return Failed(error.what());
  }
  const auto model = VoiceFolder::Part(folder_.Model(voice.name));
  outcome = Copy(voice, voice.model, model, kMostModelBytes, keepGoing);
  if (outcome.Done() && FileBytes(model) == 0) return Failed("Die Datei mit dem Modell ist leer.");
  return outcome;
}

VoiceOutcome LocalVoices::Install(const LocalVoice& voice, const std::function<bool()>& keepGoing) {
  if (!parts_.natural.Supported()) return Failed(parts_.natural.Obstacle());
  if (!IsVoiceName(voice.name)) return Failed("„" + voice.name + "“ kann nicht der Name einer Stimme sein.");
  if (folder_.Has(voice.name)) return Failed("Die Stimme „" + voice.name + "“ ist schon installiert.");
  if (!folder_.Make()) return {Kind::NoRoom, "Der Ordner für die Stimmen lässt sich nicht anlegen."};
  const std::uintmax_t needed =
      FileBytes(NativePath(voice.archive.empty() ? voice.model : voice.archive)) + kReserve;
  if (folder_.Space() < needed) {
    return {Kind::NoRoom, "Auf dem Datenträger ist zu wenig Platz: Gebraucht werden " + SizeText(needed) +
                              ", frei sind " + SizeText(folder_.Space()) + "."};
  }
  VoiceOutcome outcome = CopyBoth(voice, keepGoing);
  if (!outcome.Done()) {
    folder_.RemoveParts(voice.name);
    return outcome;
  }
  if (const std::error_code error = folder_.PutInPlace(voice.name)) return Failed(error.message());
  parts_.log.Write("Stimme: " + voice.name + " ist installiert");
  return {};
}

}  // namespace lorelin
