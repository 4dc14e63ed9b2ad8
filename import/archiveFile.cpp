#include "import/archiveFile.h"

#include <archive.h>
#include <archive_entry.h>

#include <clocale>

namespace lorelin {

// What begins as a process has no locale that knows letters beyond ASCII.
struct ArchiveNames::Locale {
  Locale() : own(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), before(uselocale(own)) {}
  ~Locale() {
    uselocale(before);
    if (own != nullptr) freelocale(own);
  }
  Locale(const Locale&) = delete;
  Locale& operator=(const Locale&) = delete;

  locale_t own;
  locale_t before;
};

ArchiveNames::ArchiveNames() : locale_(std::make_unique<Locale>()) {}
ArchiveNames::~ArchiveNames() = default;

std::optional<std::string> ArchiveNames::Of(archive_entry* entry) const {
  const char* const name = archive_entry_pathname(entry);
  if (name == nullptr) return {};
  return name;
}

bool OpenArchiveFile(archive* reader, const std::filesystem::path& path) {
  constexpr std::size_t kBlock = std::size_t{64} * 1024;
  return archive_read_open_filename(reader, path.c_str(), kBlock) == ARCHIVE_OK;
}

}  // namespace lorelin
