#pragma once

#include <archive.h>
#include <archive_entry.h>

namespace lorelin {

// The functions of libarchive, which is loaded when an archive is opened for the first time: it brings half a
// dozen libraries along, and most runs open none.
struct ArchiveLibrary {
  decltype(&archive_read_new) readNew = nullptr;
  decltype(&archive_read_free) readFree = nullptr;
  decltype(&archive_read_support_format_zip) supportZip = nullptr;
  decltype(&archive_read_support_format_tar) supportTar = nullptr;
  decltype(&archive_read_support_filter_gzip) supportGzip = nullptr;
  decltype(&archive_read_support_filter_xz) supportXz = nullptr;
  decltype(&archive_read_open_filename) openFile = nullptr;
  decltype(&archive_read_next_header) nextHeader = nullptr;
  decltype(&archive_read_data) readData = nullptr;
  decltype(&archive_error_string) errorText = nullptr;
  decltype(&archive_entry_pathname) pathname = nullptr;
  decltype(&archive_entry_hardlink) hardlink = nullptr;
  decltype(&archive_entry_filetype) filetype = nullptr;
  decltype(&archive_entry_size) size = nullptr;
};

// None where it is not installed. User-interface thread only.
[[nodiscard]] const ArchiveLibrary* Archives();

}  // namespace lorelin
