#include <archive.h>
#include <archive_entry.h>

#include "import/archiveFile.h"

namespace lorelin {

struct ArchiveNames::Locale {};
ArchiveNames::ArchiveNames() = default;
ArchiveNames::~ArchiveNames() = default;

std::optional<std::string> ArchiveNames::Of(archive_entry* entry) const {
  if (const wchar_t* const wide = archive_entry_pathname_w(entry); wide != nullptr) {
    const std::u8string name = std::filesystem::path(wide).u8string();
    return std::string(name.begin(), name.end());
  }
  const char* const name = archive_entry_pathname(entry);
  if (name == nullptr) return {};
  return name;
}

bool OpenArchiveFile(archive* reader, const std::filesystem::path& path) {
  constexpr std::size_t kBlock = std::size_t{64} * 1024;
  return archive_read_open_filename_w(reader, path.c_str(), kBlock) == ARCHIVE_OK;
}

}  // namespace lorelin
