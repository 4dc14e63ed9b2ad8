#include "platform/common/unfinishedFile.h"

#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <system_error>

#include "platform/windows/replaceFile.h"
#include "platform/windows/systemErrors.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestWrite = 1 << 30;
constexpr int kAttempts = 20;

int LastError() {
  return ErrnoOf(GetLastError());
}

// A link that points nowhere is replaced itself.
fs::path Resolved(const fs::path& target) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(target, error))) return target;
  const fs::path pointedTo = fs::canonical(target, error);
  return error ? target : pointedTo;
}

fs::path NameBeside(const fs::path& target, int attempt) {
  LARGE_INTEGER now{};
  QueryPerformanceCounter(&now);
  return target.parent_path() / (L".lorelin-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                 std::to_wstring(now.QuadPart) + L"-" + std::to_wstring(attempt));
}

}  // namespace

struct UnfinishedFile::Handle {
  HANDLE file = INVALID_HANDLE_VALUE;

  void Close() {
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    file = INVALID_HANDLE_VALUE;
  }
  ~Handle() { Close(); }
};

UnfinishedFile::UnfinishedFile(const fs::path& target)
    : target_(Resolved(target)), handle_(std::make_unique<Handle>()) {}

UnfinishedFile::~UnfinishedFile() {
  handle_->Close();
  if (!path_.empty()) DeleteFileW(path_.c_str());
}

int UnfinishedFile::Open() {
  if (!target_.has_filename()) return target_.empty() ? ENOENT : EINVAL;
  const DWORD attributes = GetFileAttributesW(target_.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return EINVAL;
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return EACCES;
    // Asks for the right to write without writing anything.
    const HANDLE file =
        CreateFileW(target_.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return LastError();
    CloseHandle(file);
  }
  for (int attempt = 0;; ++attempt) {
    const fs::path path = NameBeside(target_, attempt);
    handle_->file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_->file != INVALID_HANDLE_VALUE) {
      path_ = path;
      return 0;
    }
    if (GetLastError() != ERROR_FILE_EXISTS || attempt == kAttempts) return LastError();
  }
}

int UnfinishedFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
    if (WriteFile(handle_->file, bytes.data(), size, &written, nullptr) == FALSE) return LastError();
    if (written == 0) return EIO;
    bytes.remove_prefix(written);
  }
  return 0;
}

int UnfinishedFile::PutInPlace() {
  if (FlushFileBuffers(handle_->file) == FALSE) return LastError();
  handle_->Close();
  const int error = ReplaceFileBy(target_, path_);
  if (error == 0) path_.clear();
  return error;
}

}  // namespace lorelin
