#pragma once

#include "ports/Checksums.h"

namespace lorelin {

// Checksums by GLib.
class GlibChecksums final : public Checksums {
 public:
  std::optional<std::string> OfFile(const std::string& path, ChecksumKind kind,
                                    const std::function<bool()>& keepGoing) override;
};

}  // namespace lorelin
