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
  const std::filesystem::path source = NativePath(from);
  std::ifstream bytes(source, std::ios::binary);
  std::error_code error;
  const auto size = static_cast<double>(std::filesystem::file_size(source, error));
  if (!bytes || error) throw RuntimeError(ErrorNumber::FileNotFound);
  UnfinishedFile file(NativePath(to));
  Require(file.Open());
  std::vector<char> block(kBlock);
  double done = 0;
  while (bytes) {
    bytes.read(block.data(), kBlock);
    Require(file.Write({block.data(), static_cast<std::size_t>(bytes.gcount())}));
    done += static_cast<double>(bytes.gcount());
    if (!keepGoing(size > 0 ? std::min(done / size, 1.0) : 1.0)) return false;
  }
  if (bytes.bad()) throw RuntimeError(ErrorNumber::PathFileAccess);
  Require(file.PutInPlace());
  return true;
}

}  // namespace lorelin
