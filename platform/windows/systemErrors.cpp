#include "platform/windows/systemErrors.h"

#include <windows.h>

#include <array>
#include <cerrno>
#include <cstdio>

#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr unsigned long kDiskQuotaExceeded =
    1295;  // ERROR_DISK_QUOTA_EXCEEDED, which not every winerror.h has

}  // namespace

int ErrnoOf(unsigned long error) {
  switch (error) {
    case ERROR_SUCCESS:
      return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
      return EACCES;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return ENAMETOOLONG;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    default:
      return EIO;
  }
}

std::string SystemErrorText(unsigned long error) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::string message = Utf8({text.data(), length});
  while (!message.empty() && static_cast<unsigned char>(message.back()) <= ' ') message.pop_back();
  std::array<char, 32> number{};
  std::snprintf(number.data(), number.size(), "(0x%08lX)", error);
  return message.empty() ? number.data() : message + ' ' + number.data();
}

}  // namespace lorelin
