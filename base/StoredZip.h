#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ports/FileWriter.h"

namespace lorelin {

// The pieces of a ZIP archive whose files stand in it as they are, in the order in which they are added and
// without further fields: the form that the first file of an EPUB must have. Names are UTF-8.
class StoredZip {
 public:
  void Add(const std::string& name, std::string bytes);
  // A file that stays where it is until the pieces are joined. Throws RuntimeError when it cannot be read.
  void AddFile(const std::string& name, const std::string& path);
  // The whole archive. Throws RuntimeError when it is too large for one (4 GB, 65535 files).
  [[nodiscard]] std::vector<FilePiece> Finish();

 private:
  void Add(const std::string& name, std::uint64_t size, std::uint32_t checksum, FilePiece content);

  std::vector<FilePiece> pieces_;
  std::string directory_;
  std::uint64_t offset_ = 0;
  std::uint64_t count_ = 0;
};

// CRC-32 as in ZIP and PNG files, of bytes that come in several parts: begin with 0.
[[nodiscard]] std::uint32_t Crc32(std::uint32_t before, std::string_view bytes);

}  // namespace lorelin
