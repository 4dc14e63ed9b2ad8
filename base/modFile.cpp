#include "base/modFile.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// "1,5 GB"
std::string SizeText(std::uintmax_t bytes) {
  constexpr std::uintmax_t kMega = 1'000'000;
  constexpr std::uintmax_t kGiga = 1000 * kMega;
  if (bytes < kGiga) return std::to_string(bytes / kMega) + " MB";
  return std::to_string(bytes / kGiga) + "," + std::to_string(bytes % kGiga * 10 / kGiga) + " GB";
}

// Opening a pipe or a device could wait for ever, so only regular files are opened.
void RequireRegularFile(const fs::path& path) {
  std::error_code error;
  const auto type = fs::status(path, error).type();
  if (type == fs::file_type::regular) return;
  if (type == fs::file_type::not_found) throw RuntimeError(ErrorNumber::FileNotFound);
  if (error == std::errc::permission_denied) throw RuntimeError(ErrorNumber::PermissionDenied);
  throw RuntimeError(ErrorNumber::PathFileAccess);
}

// Told before memory is asked for: the system might end the program instead of refusing it.
std::uintmax_t RequireReadableSize(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) return 0;
  if (size <= kMostReadBytes) return size;
  throw RuntimeError(ErrorNumber::OutOfMemory, "Die Datei ist mit " + SizeText(size) +
                                                   " zu groß. Lorelin liest Dateien bis " +
                                                   SizeText(kMostReadBytes) + ".");
}

std::ifstream OpenForReading(const std::string& path) {
  const fs::path native = NativePath(path);
  RequireRegularFile(native);
  std::ifstream file(native, std::ios::binary);
  if (!file) throw RuntimeError(ErrorNumber::PermissionDenied);
  return file;
}

std::string ReadWhole(std::ifstream& file, std::uintmax_t expected) {
  std::string bytes;
  constexpr std::size_t kBlock = 1 << 16;
  bytes.reserve(static_cast<std::size_t>(expected) + kBlock);
  for (std::size_t size = 0; file; size = bytes.size()) {
    bytes.resize(size + kBlock);
    file.read(bytes.data() + size, kBlock);
    bytes.resize(size + static_cast<std::size_t>(file.gcount()));
  }
  if (file.bad()) throw RuntimeError(ErrorNumber::PathFileAccess);
  return bytes;
}

}  // namespace

bool FileExists(const std::string& path) {
  if (path.empty()) return false;
  try {
    OpenForReading(path);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

std::string ReadFileBytes(const std::string& path) {
  std::ifstream file = OpenForReading(path);
  const std::uintmax_t size = RequireReadableSize(NativePath(path));
  return ReadWhole(file, size);
}

std::string ReadTextFile(const std::string& path) {
  return WithPlainLineEnds(DecodeText(ReadFileBytes(path)));
}

int WriteTextFile(const std::string& path, const std::string& bytes, FileWriter& files, EventPump& pump) {
  std::error_code error;
  const bool there = fs::exists(fs::symlink_status(NativePath(path), error));
  pump.RunPendingEvents();
  try {
    files.Replace(path, bytes);
  } catch (const RuntimeError& failure) {
    return failure.Number();
  }
  return there ? 0 : static_cast<int>(ErrorNumber::FileNotFound);
}

}  // namespace lorelin
