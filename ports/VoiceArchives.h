#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace lorelin {

// Port: archives that hold a voice. Names inside are given and taken as they stand in the archive; nothing is
// ever written to a place that an archive names. User-interface thread only.
class VoiceArchives {
 public:
  virtual ~VoiceArchives() = default;
  // The names of the files in the archive, links and folders left out, of at most 1000 entries; none for what
  // is no archive or cannot be read.
  [[nodiscard]] virtual std::vector<std::string> Names(const std::string& archive) = 0;
  // Writes the file with this name to `target`, which is replaced. Answers "" or what went wrong, for the
  // log; a file of more than `mostBytes` is refused. `keepGoing` is called at least every megabyte and ends
  // it when it answers false. A target that was begun may stay.
  virtual std::string Extract(const std::string& archive, const std::string& name, const std::string& target,
                              std::uintmax_t mostBytes,
                              const std::function<bool(std::uintmax_t there)>& keepGoing) = 0;
};

}  // namespace lorelin
