#include "base/StoredZip.h"

#include <array>
#include <fstream>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::uint64_t kMostBytes = 0xFFFFFFFFU;
constexpr std::uint64_t kMostFiles = 0xFFFFU;
constexpr std::uint32_t kLocalMark = 0x04034B50;
constexpr std::uint32_t kCentralMark = 0x02014B50;
constexpr std::uint32_t kEndMark = 0x06054B50;
constexpr unsigned kVersion = 20;
constexpr unsigned kUtf8Names = 1U << 11U;
constexpr unsigned kFirstDay = (1U << 5U) | 1U;  // 1 January 1980: when a file was made says nothing here

constexpr std::array<std::uint32_t, 256> MakeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1U) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
    table[i] = value;
  }
  return table;
}
constexpr std::array<std::uint32_t, 256> kTable = MakeTable();

void Append(std::string& bytes, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i)
    bytes += static_cast<char>((value >> (8U * static_cast<unsigned>(i))) & 0xFFU);
}

bool IsAscii(std::string_view name) {
  return name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./") ==
         std::string_view::npos;
}

// What both heads of a file have in common.
std::string HeadOf(const std::string& name, std::uint64_t size, std::uint32_t checksum) {
  std::string head;
  Append(head, kVersion, 2);
  Append(head, IsAscii(name) ? 0 : kUtf8Names, 2);
  Append(head, 0, 2);  // stored
  Append(head, 0, 2);  // time
  Append(head, kFirstDay, 2);
  Append(head, checksum, 4);
  Append(head, size, 4);
  Append(head, size, 4);
  Append(head, name.size(), 2);
  Append(head, 0, 2);  // no further fields
  return head;
}

}  // namespace

std::uint32_t Crc32(std::uint32_t before, std::string_view bytes) {
  std::uint32_t value = ~before;
  for (const char c : bytes) value = kTable[(value ^ static_cast<unsigned char>(c)) & 0xFFU] ^ (value >> 8U);
  return ~value;
}

void StoredZip::Add(const std::string& name, std::string bytes) {
  const std::uint64_t size = bytes.size();
  const std::uint32_t checksum = Crc32(0, bytes);
  Add(name, size, checksum, {.bytes = std::move(bytes)});
}

void StoredZip::AddFile(const std::string& name, const std::string& path) {
  std::ifstream file(NativePath(path), std::ios::binary);
  if (!file) throw RuntimeError(ErrorNumber::FileNotFound);
  std::string block(std::size_t{1} << 16U, '\0');
  std::uint64_t size = 0;
  std::uint32_t checksum = 0;
  while (file) {
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    const auto read = static_cast<std::size_t>(file.gcount());
    checksum = Crc32(checksum, std::string_view(block).substr(0, read));
    size += read;
  }
  if (file.bad()) throw RuntimeError(ErrorNumber::PathFileAccess);
  Add(name, size, checksum, {.file = path});
}

void StoredZip::Add(const std::string& name, std::uint64_t size, std::uint32_t checksum, FilePiece content) {
  const std::string head = HeadOf(name, size, checksum);
  std::string local;
  Append(local, kLocalMark, 4);
  local += head + name;
  Append(directory_, kCentralMark, 4);
  Append(directory_, kVersion, 2);
  directory_ += head;
  Append(directory_, 0, 2);  // no remark
  Append(directory_, 0, 2);  // the first and only disk
  Append(directory_, 0, 2);  // what the bytes are
  Append(directory_, 0, 4);  // what the system knows of them
  Append(directory_, offset_, 4);
  directory_ += name;
  offset_ += local.size() + size;
  ++count_;
  pieces_.push_back({.bytes = std::move(local)});
  pieces_.push_back(std::move(content));
}

std::vector<FilePiece> StoredZip::Finish() {
  if (offset_ + directory_.size() > kMostBytes || count_ > kMostFiles)
    throw RuntimeError(ErrorNumber::PathFileAccess, "Das Buch wird zu groß für eine EPUB-Datei.");
  std::string end;
  Append(end, kEndMark, 4);
  Append(end, 0, 4);  // disks
  Append(end, count_, 2);
  Append(end, count_, 2);
  Append(end, directory_.size(), 4);
  Append(end, offset_, 4);
  Append(end, 0, 2);  // no remark
  pieces_.push_back({.bytes = directory_ + end});
  return std::exchange(pieces_, {});
}

}  // namespace lorelin
