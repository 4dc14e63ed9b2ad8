#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ports/Checksums.h"
#include "ports/Log.h"
#include "ports/ResumingDownloader.h"
#include "voices/VoiceFolder.h"
#include "voices/catalogue.h"

namespace lorelin {

// How something that takes its time ended.
struct VoiceOutcome {
  enum class Kind { Done, Cancelled, Failed, NoRoom };
  Kind kind = Kind::Done;
  std::string text;  // German, for the user; "" when it is done or was cancelled

  [[nodiscard]] bool Done() const { return kind == Kind::Done; }
};

// Fetches voices of the catalogue into the user's folder, and removes them. A voice is there whole and as the
// catalogue says, or not at all; what has arrived of one serves the next attempt. User-interface thread only.
class VoiceInstaller {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ResumingDownloader& downloader;
    Checksums& checksums;
    Log& log;
    std::string folder;                    // the user's voices
    std::string address;                   // what the catalogue's paths are put behind
    std::function<std::uintmax_t()> room;  // bytes free in the folder; asks the system when it is empty
  };
  // Bytes that are there of those that the voice has; called at least every 50 ms while something is fetched
  // and every 16 megabytes while it is checked. Ends the work when it answers false.
  using KeepGoing = std::function<bool(std::uintmax_t there, std::uintmax_t all)>;

  explicit VoiceInstaller(Parts parts);

  // Fetches the card of a voice, which names its licence, and leaves it in `card`.
  [[nodiscard]] VoiceOutcome FetchCard(const CatalogueVoice& voice, std::string& card,
                                       const KeepGoing& keepGoing);
  // Fetches the voice, checks it and puts it in place; the card stays beside it.
  [[nodiscard]] VoiceOutcome Install(const CatalogueVoice& voice, const std::string& card,
                                     const KeepGoing& keepGoing);
  // Removes a voice of the user's folder, or what has arrived of one.
  [[nodiscard]] VoiceOutcome Remove(const std::string& name);

  [[nodiscard]] const VoiceFolder& Folder() const { return folder_; }

 private:
  [[nodiscard]] VoiceOutcome CheckRoom(const CatalogueVoice& voice) const;
  [[nodiscard]] VoiceOutcome Fetch(const CatalogueFile& file, const std::filesystem::path& target,
                                   const std::function<bool(std::uintmax_t)>& keepGoing);
  [[nodiscard]] VoiceOutcome FetchAndCheck(const CatalogueFile& file, const std::filesystem::path& part,
                                           const std::function<bool(std::uintmax_t)>& keepGoing);
  [[nodiscard]] VoiceOutcome FetchBoth(const CatalogueVoice& voice, const KeepGoing& keepGoing);
  [[nodiscard]] std::string Address(const std::string& path) const;
  void KeepCard(const CatalogueVoice& voice, const std::string& card) const;

  Parts parts_;
  VoiceFolder folder_;
};

// The path as it stands in an address: all but letters, digits and "/-._~" as "%XX".
[[nodiscard]] std::string AddressPath(std::string_view path);

}  // namespace lorelin
