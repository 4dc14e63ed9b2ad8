#include "platform/linux/AtomicFileWriter.h"

#include <cerrno>

#include "app/RuntimeError.h"
#include "app/paths.h"
#include "platform/linux/unfinishedFile.h"

namespace lorelin {
namespace {

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
    case EDQUOT:
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

}  // namespace lorelin
