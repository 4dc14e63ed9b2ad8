#pragma once

#include "ports/VoiceArchives.h"

namespace lorelin {

// Reads ZIP and TAR (plain, gzip, xz) with libarchive.
class LibarchiveVoices final : public VoiceArchives {
 public:
  std::vector<std::string> Names(const std::string& archive) override;
  std::string Extract(const std::string& archive, const std::string& name, const std::string& target,
                      std::uintmax_t mostBytes,
                      const std::function<bool(std::uintmax_t there)>& keepGoing) override;
};

}  // namespace lorelin
