#pragma once

#include "platform/FileWriter.h"

namespace lorelin {

// Writes a file under another name and renames it.
class AtomicFileWriter final : public FileWriter {
 public:
  void Replace(const std::string& path, std::string_view bytes) override;
};

}  // namespace lorelin
