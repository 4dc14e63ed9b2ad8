#pragma once

#include <functional>
#include <optional>
#include <string>

namespace lorelin {

enum class ChecksumKind { Md5, Sha256 };

// Port: what tells whether a file arrived as it was sent. User-interface thread only.
class Checksums {
 public:
  virtual ~Checksums() = default;
  // In hexadecimal, small letters. None when the file (UTF-8) cannot be read, or when `keepGoing`, called at
  // least every 16 megabytes, answers false.
  [[nodiscard]] virtual std::optional<std::string> OfFile(const std::string& path, ChecksumKind kind,
                                                          const std::function<bool()>& keepGoing) = 0;
};

}  // namespace lorelin
