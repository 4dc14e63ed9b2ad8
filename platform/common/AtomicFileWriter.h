#pragma once

#include "ports/FileWriter.h"

namespace lorelin {

// Writes a file under another name and renames it.
class AtomicFileWriter final : public FileWriter {
 public:
  void Replace(const std::string& path, std::string_view bytes) override;
  bool Copy(const std::string& from, const std::string& to,
            const std::function<bool(double done)>& keepGoing) override;
  void Join(const std::string& path, std::span<const FilePiece> pieces) override;
};

}  // namespace lorelin
