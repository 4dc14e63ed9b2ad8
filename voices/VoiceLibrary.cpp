#include "voices/VoiceLibrary.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/sizeText.h"
#include "base/text.h"
#include "voices/speedRating.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

using Entry = VoiceLibrary::Entry;

// "de_DE" of the engine's "de-de".
std::string CodeOf(std::string language) {
  constexpr std::size_t kSeparator = 2;
  if (language.size() <= kSeparator) return language;
  language[kSeparator] = '_';
  for (std::size_t i = kSeparator + 1; i < language.size(); ++i) {
    if (language[i] >= 'a' && language[i] <= 'z') language[i] = static_cast<char>(language[i] - 'a' + 'A');
  }
  return language;
}

Catalogue CatalogueOf(const SettingsStore& settings, Log& log) {
  const std::string file = settings.Get(setting::VoiceCatalogue);
  if (file.empty()) return ReadCatalogue(ShippedCatalogueText());
  try {
    return ReadCatalogue(ReadFileBytes(file));
  } catch (const RuntimeError& error) {
    log.Write("Stimmenliste „" + file + "“: " + error.what());
    Catalogue none;
    none.problems.push_back("Die Stimmenliste „" + file + "“ lässt sich nicht lesen: " + error.what());
    return none;
  }
}

bool Matches(const Entry& entry, const std::string& filter) {
  const auto has = [&](const std::string& text) {
    return LowerAscii(text).find(filter) != std::string::npos;
  };
  return has(entry.name) || has(entry.language) || has(entry.speaker);
}

}  // namespace

std::string VoiceLibrary::Entry::StateText() const {
  switch (state) {
    case State::Available:
      return "herunterladbar";
    case State::Partly:
      return "angefangen (" + SizeText(there) + ")";
    case State::Installed:
      return "installiert";
    case State::InstalledForAll:
      return "installiert (für alle)";
  }
  return {};
}

VoiceLibrary::VoiceLibrary(Parts parts) : parts_(parts), catalogue_(CatalogueOf(parts.settings, parts.log)) {}

VoiceInstaller VoiceLibrary::Installer() const {
  return VoiceInstaller({.downloader = parts_.downloader,
                         .checksums = parts_.checksums,
                         .log = parts_.log,
                         .folder = parts_.natural.OwnFolder(),
                         .address = parts_.settings.Get(setting::VoiceAddress),
                         .room = {}});
}

LocalVoices VoiceLibrary::Local() const {
  return LocalVoices({parts_.files, parts_.archives, parts_.natural, parts_.log});
}

VoiceLibrary::Entry VoiceLibrary::Offer(const CatalogueVoice& voice) {
  if (!std::exchange(measured_, true)) machine_ = MeasureMachine(parts_.clock);
  return {.offered = &voice,
          .name = voice.name,
          .language = LanguageText(voice.language),
          .speaker = SpeakerText(voice),
          .quality = std::string(QualityText(voice.quality)),
          .size = SizeText(voice.Bytes()),
          .licence = {},
          .speed = std::string(SpeedText(voice.quality, machine_))};
}

void VoiceLibrary::AddInstalled(std::vector<Entry>& entries, const VoiceFolder& folder) {
  for (const InstalledVoice& installed : parts_.natural.Installed()) {
    const CatalogueVoice* const offered = catalogue_.Find(installed.name);
    Entry entry;
    if (offered != nullptr) {
      entry = Offer(*offered);
    } else {
      entry.name = entry.speaker = installed.name;
      entry.language = LanguageText(CodeOf(installed.language));
      const auto quality = QualityNamed(installed.quality);
      entry.quality = quality ? std::string(QualityText(*quality)) : installed.quality;
      const auto model = NativePath(installed.folder) / NativePath(installed.name + ".onnx");
      entry.size = SizeText(FileBytes(model));
    }
    entry.state = installed.own ? State::Installed : State::InstalledForAll;
    if (installed.own) entry.licence = LicenceOf(folder.CardText(installed.name));
    entries.push_back(std::move(entry));
  }
}

std::vector<Entry> VoiceLibrary::Entries() {
  const VoiceFolder folder(parts_.natural.OwnFolder());
  std::vector<Entry> entries;
  AddInstalled(entries, folder);
  const std::size_t installed = entries.size();
  for (const CatalogueVoice& voice : catalogue_.voices) {
    const auto end = entries.begin() + static_cast<std::ptrdiff_t>(installed);
    if (std::any_of(entries.begin(), end, [&](const Entry& e) { return e.name == voice.name; })) continue;
    Entry entry = Offer(voice);
    entry.there = folder.PartBytes(voice.name);
    if (entry.there > 0) entry.state = State::Partly;
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::vector<Entry> VoiceLibrary::Entries(const std::string& filter) {
  std::vector<Entry> entries = Entries();
  const std::string wanted = LowerAscii(filter);
  entries.erase(std::remove_if(entries.begin(), entries.end(),
                               [&](const Entry& entry) { return !Matches(entry, wanted); }),
                entries.end());
  return entries;
}

std::string VoiceLibrary::OfferedName(const std::string& name) const {
  for (const InstalledVoice& installed : parts_.natural.Installed()) {
    if (installed.name == name && !installed.offered.empty()) return installed.offered.front();
  }
  return {};
}

}  // namespace lorelin
