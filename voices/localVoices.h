#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ports/FileWriter.h"
#include "ports/Log.h"
#include "ports/NaturalVoices.h"
#include "ports/VoiceArchives.h"
#include "voices/VoiceInstaller.h"

namespace lorelin {

// A voice that the user has: two files, or an archive that holds them.
struct LocalVoice {
  std::string name;
  std::string archive;      // "" for files
  std::string model;        // path, or name in the archive
  std::string description;  // likewise
};

// The voice among files that were named or dropped; the model alone is enough, and so is its description,
// when the other lies beside it. None when they are something else.
[[nodiscard]] std::optional<LocalVoice> FindLocalVoice(const std::vector<std::string>& paths,
                                                       VoiceArchives& archives);

// Takes voices that the user has into the user's folder. User-interface thread only.
class LocalVoices {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    FileWriter& files;
    VoiceArchives& archives;
    const NaturalVoices& natural;
    Log& log;
  };

  explicit LocalVoices(Parts parts) : parts_(parts), folder_(parts.natural.OwnFolder()) {}

  // The voice is there whole or not at all, and one that is there already stays. `keepGoing` is called every
  // few megabytes and ends the work when it answers false.
  [[nodiscard]] VoiceOutcome Install(const LocalVoice& voice, const std::function<bool()>& keepGoing);

 private:
  [[nodiscard]] VoiceOutcome Copy(const LocalVoice& voice, const std::string& from,
                                  const std::filesystem::path& to, std::uintmax_t most,
                                  const std::function<bool()>& keepGoing);
  [[nodiscard]] VoiceOutcome CopyBoth(const LocalVoice& voice, const std::function<bool()>& keepGoing);

  Parts parts_;
  VoiceFolder folder_;
};

}  // namespace lorelin
