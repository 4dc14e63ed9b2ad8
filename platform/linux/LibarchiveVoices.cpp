#include "platform/linux/LibarchiveVoices.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
#include <vector>

#include "base/paths.h"
#include "platform/linux/archiveLibrary.h"

namespace lorelin {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20U;
constexpr int kMostEntries = 1000;
// What an archive may unpack to until the file is found: a small file must not keep the program busy for
// long.
constexpr std::uintmax_t kMostUnpacked = 2'000'000'000;

struct FreeArchive {
  void operator()(archive* opened) const { Archives()->readFree(opened); }
};

// An archive that is read; one of nothing where the library is not installed.
class OpenArchive {
 public:
  explicit OpenArchive(const std::string& path) : library_(Archives()) {
    if (library_ == nullptr) return;
    archive_.reset(library_->readNew());
    library_->supportZip(archive_.get());
    library_->supportTar(archive_.get());
    library_->supportGzip(archive_.get());
    library_->supportXz(archive_.get());
    open_ = library_->openFile(archive_.get(), NativePath(path).c_str(), kBlock) == ARCHIVE_OK;
  }

  // The name of the next regular file; none at the end of the archive or of what is read of it.
  std::optional<std::string> Next() {
    while (open_ && entries_++ < kMostEntries) {
      archive_entry* entry = nullptr;
      if (const int result = library_->nextHeader(archive_.get(), &entry);
          result != ARCHIVE_OK && result != ARCHIVE_WARN) {
        break;
      }
      unpacked_ += static_cast<std::uintmax_t>(std::max<la_int64_t>(library_->size(entry), 0));
      if (unpacked_ > kMostUnpacked) break;
      const char* const name = library_->pathname(entry);
      const bool regular = library_->filetype(entry) == AE_IFREG && library_->hardlink(entry) == nullptr;
      if (name != nullptr && regular) return name;
    }
    return std::nullopt;
  }
  [[nodiscard]] la_ssize_t Read(std::vector<char>& block) {
    return library_->readData(archive_.get(), block.data(), block.size());
  }
  [[nodiscard]] std::string Problem() const {
    const char* const text = library_->errorText(archive_.get());
    return text != nullptr ? text : "unbekannter Fehler";
  }

 private:
  const ArchiveLibrary* library_;
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
