#include "platform/windows/ImportJobRunner.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "base/paths.h"
#include "platform/windows/CreateProcessLauncher.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

constexpr SIZE_T kMemory = SIZE_T{512} << 20U;
constexpr LONGLONG kComputingTime =
    12LL * 10'000'000;      // in units of 100 ns; the process itself answers before
constexpr DWORD kStep = 5;  // milliseconds between two looks at the pipe

class OwnHandle {
 public:
  explicit OwnHandle(HANDLE handle = nullptr) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  ~OwnHandle() { Close(); }
  OwnHandle(const OwnHandle&) = delete;
  OwnHandle& operator=(const OwnHandle&) = delete;
  void Close() {
    if (handle_ != nullptr) CloseHandle(handle_);
    handle_ = nullptr;
  }
  [[nodiscard]] HANDLE Get() const { return handle_; }
  [[nodiscard]] HANDLE* Place() { return &handle_; }

 private:
  HANDLE handle_;
};

// The last handle's end is the end of every process in it.
bool Restrict(HANDLE job) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags =
      JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_ACTIVE_PROCESS | JOB_OBJECT_LIMIT_PROCESS_MEMORY |
      JOB_OBJECT_LIMIT_PROCESS_TIME | JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
  limits.BasicLimitInformation.ActiveProcessLimit = 1;
  limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = kComputingTime;
  limits.ProcessMemoryLimit = kMemory;
  JOBOBJECT_BASIC_UI_RESTRICTIONS desktop{};
  desktop.UIRestrictionsClass = JOB_OBJECT_UILIMIT_HANDLES | JOB_OBJECT_UILIMIT_READCLIPBOARD |
                                JOB_OBJECT_UILIMIT_WRITECLIPBOARD | JOB_OBJECT_UILIMIT_SYSTEMPARAMETERS |
                                JOB_OBJECT_UILIMIT_DISPLAYSETTINGS | JOB_OBJECT_UILIMIT_GLOBALATOMS |
                                JOB_OBJECT_UILIMIT_DESKTOP | JOB_OBJECT_UILIMIT_EXITWINDOWS;
  (void)SetInformationJobObject(job, JobObjectBasicUIRestrictions, &desktop, sizeof desktop);
  return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) != FALSE;
}

// The handles that a child inherits: these, and no other of this process.
class InheritedHandles {
 public:
  explicit InheritedHandles(std::array<HANDLE, 2> handles) : handles_(handles) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    memory_.resize(size);
    InitializeProcThreadAttributeList(Get(), 1, 0, &size);
    UpdateProcThreadAttribute(Get(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(), sizeof handles_,
                              nullptr, nullptr);
  }
  ~InheritedHandles() { DeleteProcThreadAttributeList(Get()); }
  InheritedHandles(const InheritedHandles&) = delete;
  InheritedHandles& operator=(const InheritedHandles&) = delete;
  [[nodiscard]] LPPROC_THREAD_ATTRIBUTE_LIST Get() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
  }

 private:
  std::array<HANDLE, 2> handles_;
  std::string memory_;
};

// A child that is gone when this is.
class Child {
 public:
  explicit Child(const std::vector<std::string>& arguments) : job_(CreateJobObjectW(nullptr, nullptr)) {
    SECURITY_ATTRIBUTES inherited{
        .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    OwnHandle written;
    if (job_.Get() == nullptr || !Restrict(job_.Get())) return;
    if (CreatePipe(output_.Place(), written.Place(), &inherited, 0) == FALSE) return;
    SetHandleInformation(output_.Get(), HANDLE_FLAG_INHERIT, 0);
    const OwnHandle nothing(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                                        nullptr));
    started_ = Start(arguments, nothing.Get(), written.Get());
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  [[nodiscard]] bool Started() const { return started_; }

  // As ImportReading says.
  bool Read(std::string& bytes, milliseconds wait, std::size_t most) const {
    const auto end = std::chrono::steady_clock::now() + wait;
    DWORD there = 0;
    while (there == 0) {
      if (PeekNamedPipe(output_.Get(), nullptr, 0, nullptr, &there, nullptr) == FALSE) return false;
      if (there > 0) break;
      if (std::chrono::steady_clock::now() >= end) return true;
      Sleep(kStep);
    }
    std::array<char, std::size_t{64} * 1024> buffer{};
    const auto wanted = static_cast<DWORD>(std::min(buffer.size(), most));
    DWORD size = 0;
    if (ReadFile(output_.Get(), buffer.data(), wanted, &size, nullptr) == FALSE) return false;
    bytes.append(buffer.data(), size);
    return size > 0;
  }

 private:
  // It does nothing before it is in the job.
  bool Start(const std::vector<std::string>& arguments, HANDLE nothing, HANDLE output) {
    InheritedHandles inherited({nothing, output});
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = startup.StartupInfo.hStdError = nothing;
    startup.StartupInfo.hStdOutput = output;
    startup.lpAttributeList = inherited.Get();
    std::wstring line = Wide(CommandLineOf(arguments));
    PROCESS_INFORMATION process{};
    constexpr DWORD kFlags = CREATE_SUSPENDED | CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT;
    if (CreateProcessW(NativePath(arguments[0]).c_str(), line.data(), nullptr, nullptr, TRUE, kFlags, nullptr,
                       nullptr, &startup.StartupInfo, &process) == FALSE) {
      return false;
    }
    const OwnHandle child(process.hProcess);
    const OwnHandle thread(process.hThread);
    if (AssignProcessToJobObject(job_.Get(), child.Get()) == FALSE) {
      TerminateProcess(child.Get(), 1);
      return false;
    }
    return ResumeThread(thread.Get()) != static_cast<DWORD>(-1);
  }

  OwnHandle job_;
  OwnHandle output_;
  bool started_ = false;
};

}  // namespace

ImportProcess::Answer ImportJobRunner::Run(const Job& job, const std::function<bool(int)>& progress) {
  const Child child(ImportArguments(importFile_, job));
  if (!child.Started()) return ImportNotStarted();
  return HearImport(
      [&](std::string& bytes, milliseconds wait, std::size_t most) { return child.Read(bytes, wait, most); },
      limits_, progress);
}

}  // namespace lorelin
