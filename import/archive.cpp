#include "import/archive.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "base/paths.h"
#include "import/archiveFile.h"
#include "import/importErrors.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostFiles = 50'000;
constexpr std::size_t kLargestFile = std::size_t{48} << 20U;
constexpr std::size_t kMostBytes = std::size_t{128} << 20U;  // of all together

using Archive = std::unique_ptr<archive, decltype(&archive_read_free)>;

[[noreturn]] void RefuseEncrypted(const std::string& kind) {
  throw ImportError(
      kind + " ist mit einem Kennwort geschützt. Bitte entfernen Sie den Schutz und speichern Sie neu.");
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t at, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8U | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

// The table of files at the end of the archive is read whole before the first of them: whether it is of a
// size that documents have. It may lie about itself, but not about both its length and its beginning.
bool IsCrowded(const std::string& path) {
  constexpr std::streamoff kLongestEnd = 65'557;
  constexpr std::size_t kEnd = 22;
  constexpr std::uint64_t kLongestTable = std::uint64_t{12} << 20U;
  std::ifstream file(NativePath(path), std::ios::binary | std::ios::ate);
  const std::streamoff size = file.tellg();
  const std::streamoff begin = std::max<std::streamoff>(size - kLongestEnd, 0);
  file.seekg(begin);
  const std::string end{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const auto at = end.rfind("PK\x05\x06");
  if (at == std::string::npos || at + kEnd > end.size()) return false;
  const std::uint64_t place = static_cast<std::uint64_t>(begin) + at;
  const std::uint64_t table = NumberAt(end, at + 16, 4);
  const std::uint64_t length = std::max(NumberAt(end, at + 12, 4), table < place ? place - table : 0);
  return NumberAt(end, at + 10, 2) > kMostFiles || length > kLongestTable;
}

Archive OpenArchive(const std::string& path, const std::string& kind) {
  if (IsCrowded(path)) throw DocumentTooLarge();
  Archive reader(archive_read_new(), &archive_read_free);
  if (!reader) throw std::bad_alloc();
  archive_read_support_format_zip_seekable(reader.get());
  if (!OpenArchiveFile(reader.get(), NativePath(path))) throw DamagedDocument(kind);
  return reader;
}

std::string ReadEntry(archive* reader, std::size_t most, const std::string& kind) {
  std::string bytes;
  const void* block = nullptr;
  std::size_t size = 0;
  la_int64_t offset = 0;
  for (;;) {
    const int result = archive_read_data_block(reader, &block, &size, &offset);
    if (result == ARCHIVE_EOF) return bytes;
    if (result < ARCHIVE_WARN) throw DamagedDocument(kind);
    if (size > most - bytes.size()) throw DocumentTooLarge();
    bytes.append(static_cast<const char*>(block), size);
  }
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

void FollowParts(std::string_view path, std::vector<std::string>& parts) {
  while (!path.empty()) {
    const auto end = std::min(path.find('/'), path.size());
    const std::string_view part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.emplace_back(part);
    }
  }
}

}  // namespace

std::string WithoutEscapes(std::string_view address) {
  std::string text;
  for (std::size_t i = 0; i < address.size(); ++i) {
    const int high = address[i] == '%' && i + 2 < address.size() ? HexValue(address[i + 1]) : -1;
    const int low = high >= 0 ? HexValue(address[i + 2]) : -1;
    if (low >= 0) {
      text += static_cast<char>(high * 16 + low);
      i += 2;
    } else {
      text += address[i];
    }
  }
  return text;
}

ArchiveFiles ReadArchive(const std::string& path, const std::string& kind,
                         const std::function<bool(std::string_view name)>& wanted) {
  const ArchiveNames names;
  const Archive reader = OpenArchive(path, kind);
  ArchiveFiles files;
  std::size_t bytes = 0;
  archive_entry* entry = nullptr;
  for (std::size_t count = 0;; ++count) {
    const int result = archive_read_next_header(reader.get(), &entry);
    if (result == ARCHIVE_EOF) return files;
    if (result < ARCHIVE_WARN) throw DamagedDocument(kind);
    if (count >= kMostFiles) throw DocumentTooLarge();
    const auto name = names.Of(entry);
    if (!name || !wanted(*name)) continue;
    if (archive_entry_is_encrypted(entry) != 0) RefuseEncrypted(kind);
    std::string content = ReadEntry(reader.get(), std::min(kLargestFile, kMostBytes - bytes), kind);
    bytes += content.size();
    files.insert_or_assign(*name, std::move(content));
  }
}

std::string_view FileOf(const ArchiveFiles& files, std::string_view name) {
  const auto found = files.find(name);
  return found != files.end() ? std::string_view(found->second) : std::string_view();
}

std::string NameInArchive(std::string_view from, std::string_view reference) {
  const std::string path = WithoutEscapes(reference.substr(0, reference.find('#')));
  std::vector<std::string> parts;
  const auto folder = from.rfind('/');
  if (folder != std::string_view::npos && !path.starts_with('/')) FollowParts(from.substr(0, folder), parts);
  FollowParts(path, parts);
  std::string name;
  for (const std::string& part : parts) name.append(name.empty() ? "" : "/").append(part);
  return name;
}

}  // namespace lorelin
