#include "platform/common/AtomicFileWriter.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "platform/common/unfinishedFile.h"

namespace lorelin {
namespace {

constexpr std::streamsize kBlock = 4 << 20;

ErrorNumber NumberOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return ErrorNumber::PermissionDenied;
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG:
      return ErrorNumber::DiskFull;
    case ENAMETOOLONG:
      return ErrorNumber::BadFileName;
    default:
      return ErrorNumber::PathFileAccess;
  }
}

void Require(int error) {
  if (error != 0) throw RuntimeError(NumberOf(error));
}

// Writes what is in the other file; whether `keepGoing`, which is told every few bytes, let it come to the
// end.
template <typename KeepGoing>
bool Append(UnfinishedFile& file, const std::string& from, const KeepGoing& keepGoing) {
  std::ifstream bytes(NativePath(from), std::ios::binary);
  if (!bytes) throw RuntimeError(ErrorNumber::FileNotFound);
  std::vector<char> block(kBlock);
  while (bytes) {
    bytes.read(block.data(), kBlock);
    const auto size = static_cast<std::size_t>(bytes.gcount());
    Require(file.Write({block.data(), size}));
    if (!keepGoing(size)) return false;
  }
  if (bytes.bad()) throw RuntimeError(ErrorNumber::PathFileAccess);
  return true;
}

}  // namespace

void AtomicFileWriter::Replace(const std::string& path, std::string_view bytes) {
  if (path.empty()) throw RuntimeError(ErrorNumber::BadFileName);
  UnfinishedFile file(NativePath(path));
  Require(file.Open());
  Require(file.Write(bytes));
  Require(file.PutInPlace());
}

bool AtomicFileWriter::Copy(const std::string& from, const std::string& to,
                            const std::function<bool(double done)>& keepGoing) {
  if (to.empty()) throw RuntimeError(ErrorNumber::BadFileName);
  std::error_code error;
  const auto size = static_cast<double>(std::filesystem::file_size(NativePath(from), error));
  if (error) throw RuntimeError(ErrorNumber::FileNotFound);
  UnfinishedFile file(NativePath(to));
  Require(file.Open());
  double done = 0;
  const bool whole = Append(file, from, [&](std::size_t bytes) {
    done += static_cast<double>(bytes);
    return keepGoing(size > 0 ? std::min(done / size, 1.0) : 1.0);
  });
  if (whole) Require(file.PutInPlace());
  return whole;
}

void AtomicFileWriter::Join(const std::string& path, std::span<const FilePiece> pieces) {
  if (path.empty()) throw RuntimeError(ErrorNumber::BadFileName);
  UnfinishedFile file(NativePath(path));
  Require(file.Open());
  for (const FilePiece& piece : pieces) {
    Require(file.Write(piece.bytes));
    if (!piece.file.empty()) Append(file, piece.file, [](std::size_t) { return true; });
  }
  Require(file.PutInPlace());
}

}  // namespace lorelin
