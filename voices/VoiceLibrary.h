#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ports/Clock.h"
#include "ports/FileWriter.h"
#include "ports/NaturalVoices.h"
#include "ports/VoiceArchives.h"
#include "settings/SettingsStore.h"
#include "voices/VoiceInstaller.h"
#include "voices/catalogue.h"
#include "voices/localVoices.h"

namespace lorelin {

// All natural voices that there are and that there could be, and what changes that: what both front ends work
// with. User-interface thread only.
class VoiceLibrary {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ResumingDownloader& downloader;
    Checksums& checksums;
    VoiceArchives& archives;
    const NaturalVoices& natural;
    FileWriter& files;
    SettingsStore& settings;
    Clock& clock;
    Log& log;
  };
  enum class State { Available, Partly, Installed, InstalledForAll };

  // A line of the list.
  struct Entry {
    const CatalogueVoice* offered = nullptr;  // null for one that the catalogue does not have
    std::string name;
    std::string language;  // German
    std::string speaker;
    std::string quality;
    std::string size;
    std::string licence;  // "" as long as nobody has read the card
    std::string speed;    // on this machine
    State state = State::Available;
    std::uintmax_t there = 0;  // of one that is there in part
    [[nodiscard]] std::string StateText() const;
    [[nodiscard]] bool CanInstall() const { return state == State::Available || state == State::Partly; }
    [[nodiscard]] bool CanRemove() const { return state == State::Installed || state == State::Partly; }
  };

  explicit VoiceLibrary(Parts parts);

  // Installed ones first, then as the catalogue has them. Looks at the disk each time.
  [[nodiscard]] std::vector<Entry> Entries();
  // Those whose name, language or speaker has this in it.
  [[nodiscard]] std::vector<Entry> Entries(const std::string& filter);
  // German sentences about lines of the catalogue that are none.
  [[nodiscard]] const std::vector<std::string>& Problems() const { return catalogue_.problems; }
  [[nodiscard]] const CatalogueVoice* Find(const std::string& name) const { return catalogue_.Find(name); }
  [[nodiscard]] const NaturalVoices& Natural() const { return parts_.natural; }
  [[nodiscard]] std::optional<LocalVoice> FindLocal(const std::vector<std::string>& paths) const {
    return FindLocalVoice(paths, parts_.archives);
  }
  // Under which name the engine offers an installed voice, the first of several; "" for none.
  [[nodiscard]] std::string OfferedName(const std::string& name) const;

  [[nodiscard]] VoiceInstaller Installer() const;
  [[nodiscard]] LocalVoices Local() const;
  [[nodiscard]] Clock& UsedClock() const { return parts_.clock; }

 private:
  [[nodiscard]] Entry Offer(const CatalogueVoice& voice);
  void AddInstalled(std::vector<Entry>& entries, const VoiceFolder& folder);

  Parts parts_;
  Catalogue catalogue_;
  std::optional<double> machine_;  // as MeasureMachine found it
  bool measured_ = false;
};

}  // namespace lorelin
