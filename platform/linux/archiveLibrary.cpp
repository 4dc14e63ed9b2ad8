#include "platform/linux/archiveLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace lorelin {
namespace {

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

std::optional<ArchiveLibrary> Load() {
  void* const library = dlopen("libarchive.so.13", RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return std::nullopt;
  ArchiveLibrary found;
  const bool complete = Find(library, "archive_read_new", found.readNew) &&
                        Find(library, "archive_read_free", found.readFree) &&
                        Find(library, "archive_read_support_format_zip", found.supportZip) &&
                        Find(library, "archive_read_support_format_tar", found.supportTar) &&
                        Find(library, "archive_read_support_filter_gzip", found.supportGzip) &&
                        Find(library, "archive_read_support_filter_xz", found.supportXz) &&
                        Find(library, "archive_read_open_filename", found.openFile) &&
                        Find(library, "archive_read_next_header", found.nextHeader) &&
                        Find(library, "archive_read_data", found.readData) &&
                        Find(library, "archive_error_string", found.errorText) &&
                        Find(library, "archive_entry_pathname", found.pathname) &&
                        Find(library, "archive_entry_hardlink", found.hardlink) &&
                        Find(library, "archive_entry_filetype", found.filetype) &&
                        Find(library, "archive_entry_size", found.size);
  return complete ? std::optional(found) : std::nullopt;
}

}  // namespace

const ArchiveLibrary* Archives() {
  static const std::optional<ArchiveLibrary> archives = Load();
  return archives ? &*archives : nullptr;
}

}  // namespace lorelin
