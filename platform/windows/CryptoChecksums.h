#pragma once

#include "ports/Checksums.h"

namespace lorelin {

// Checksums by the system's cryptographic functions.
class CryptoChecksums final : public Checksums {
 public:
  std::optional<std::string> OfFile(const std::string& path, ChecksumKind kind,
                                    const std::function<bool()>& keepGoing) override;
};

}  // namespace lorelin
