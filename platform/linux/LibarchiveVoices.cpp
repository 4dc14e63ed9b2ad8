#include "platform/linux/LibarchiveVoices.h"

#include <archive.h>
#include <archive_entry.h>

#include <fstream>
#include <memory>
#include <optional>
#include <vector>

#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20U;
constexpr int kMostEntries = 1000;
// What an archive may unpack to until the file is found: a small file must not keep the program busy for
// long.
constexpr std::uintmax_t kMostUnpacked = 2'000'000'000;

struct FreeArchive {
  void operator()(archive* opened) const { archive_read_free(opened); }
};

class OpenArchive {
 public:
  explicit OpenArchive(const std::string& path) : archive_(archive_read_new()) {
    archive_read_support_format_zip(archive_.get());
    archive_read_support_format_tar(archive_.get());
    archive_read_support_filter_gzip(archive_.get());
    archive_read_support_filter_xz(archive_.get());
    open_ = archive_read_open_filename(archive_.get(), NativePath(path).c_str(), kBlock) == ARCHIVE_OK;
  }

  // The name of the next regular file; none at the end of the archive or of what is read of it.
  std::optional<std::string> Next() {
    while (open_ && entries_++ < kMostEntries) {
      archive_entry* entry = nullptr;
      if (const int result = archive_read_next_header(archive_.get(), &entry);
          result != ARCHIVE_OK && result != ARCHIVE_WARN) {
        break;
      }
      const char* const name = archive_entry_pathname(entry);
      const bool regular =
          archive_entry_filetype(entry) == AE_IFREG && archive_entry_hardlink(entry) == nullptr;
      if (archive_entry_size_is_set(entry) != 0)
        unpacked_ += static_cast<std::uintmax_t>(archive_entry_size(entry));
      if (unpacked_ > kMostUnpacked) break;
      if (name != nullptr && regular) return name;
    }
    return std::nullopt;
  }
  [[nodiscard]] la_ssize_t Read(std::vector<char>& block) {
    return archive_read_data(archive_.get(), block.data(), block.size());
  }
  [[nodiscard]] std::string Problem() const {
    const char* const text = archive_error_string(archive_.get());
    return text != nullptr ? text : "unbekannter Fehler";
  }

 private:
  std::unique_ptr<archive, FreeArchive> archive_;
  bool open_ = false;
  int entries_ = 0;
  std::uintmax_t unpacked_ = 0;
};

std::string CopyEntry(OpenArchive& archive, const std::string& target, std::uintmax_t mostBytes,
                      const std::function<bool(std::uintmax_t)>& keepGoing) {
  std::ofstream file(NativePath(target), std::ios::binary | std::ios::trunc);
  std::vector<char> block(kBlock);
  std::uintmax_t there = 0;
  while (const la_ssize_t size = archive.Read(block)) {
    if (size < 0) return archive.Problem();
    there += static_cast<std::uintmax_t>(size);
    if (there > mostBytes) return "zu groß";
    if (!file.write(block.data(), size)) return "das Ziel lässt sich nicht schreiben";
    if (!keepGoing(there)) return "abgebrochen";
  }
  return file.flush() ? "" : "das Ziel lässt sich nicht schreiben";
}

}  // namespace

std::vector<std::string> LibarchiveVoices::Names(const std::string& path) {
  std::vector<std::string> names;
  OpenArchive archive(path);
  while (auto name = archive.Next()) names.push_back(std::move(*name));
  return names;
}

std::string LibarchiveVoices::Extract(const std::string& path, const std::string& name,
                                      const std::string& target, std::uintmax_t mostBytes,
                                      const std::function<bool(std::uintmax_t there)>& keepGoing) {
  OpenArchive archive(path);
  while (const auto found = archive.Next()) {
    if (*found == name) return CopyEntry(archive, target, mostBytes, keepGoing);
  }
  return "die Datei ist nicht im Archiv";
}

}  // namespace lorelin
