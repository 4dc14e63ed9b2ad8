#include "platform/windows/replaceFile.h"

#include <windows.h>

#include <cerrno>

#include "platform/windows/systemErrors.h"

namespace lorelin {
namespace {

constexpr int kAttempts = 20;
constexpr DWORD kPause = 25;  // milliseconds

bool Replace(const wchar_t* target, const wchar_t* by) {
  if (GetFileAttributesW(target) != INVALID_FILE_ATTRIBUTES &&
      ReplaceFileW(target, by, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != FALSE) {
    return true;
  }
  return MoveFileExW(by, target, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

}  // namespace

// A scanner or an indexer may hold the old file for a moment.
int ReplaceFileBy(const std::filesystem::path& target, const std::filesystem::path& by) {
  const DWORD attributes = GetFileAttributesW(target.c_str());
  const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
  if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EISDIR;
  if (isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return EACCES;
  for (int attempt = 0; !Replace(target.c_str(), by.c_str()); ++attempt) {
    const DWORD error = GetLastError();
    const bool busy = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!busy || attempt == kAttempts) return ErrnoOf(error);
    Sleep(kPause);
  }
  return 0;
}

}  // namespace lorelin
