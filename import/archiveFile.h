#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

struct archive;
struct archive_entry;

namespace lorelin {

// libarchive as each system needs it: it takes names of files as the system does, and gives those of entries
// in an encoding of the system.
class ArchiveNames {
 public:
  // As long as it lives, on its thread.
  ArchiveNames();
  ~ArchiveNames();
  ArchiveNames(const ArchiveNames&) = delete;
  ArchiveNames& operator=(const ArchiveNames&) = delete;

  // In UTF-8, or what the archive holds where it does not say what that is; nothing for none.
  [[nodiscard]] std::optional<std::string> Of(archive_entry* entry) const;

 private:
  struct Locale;
  std::unique_ptr<Locale> locale_;
};

// Whether the reader has opened the file.
[[nodiscard]] bool OpenArchiveFile(archive* reader, const std::filesystem::path& path);

}  // namespace lorelin
