#include "platform/common/console.h"

#include <windows.h>
// the other needs windows.h before it
#include <shellapi.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <iostream>
#include <streambuf>
#include <string_view>

#include "platform/windows/systemErrors.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr DWORD kUnderstandsEscapes = 4;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, which not every wincon.h has

bool IsConsole(HANDLE handle, DWORD& mode) {
  return GetConsoleMode(handle, &mode) != FALSE;
}

// A character that is there only in part waits for the rest.
std::size_t WholeCharacters(std::string_view text) {
  std::size_t begin = text.size();
  for (int back = 0; begin > 0 && back < 4; ++back) {
    const auto byte = static_cast<unsigned char>(text[--begin]);
    if (byte < 0x80) break;
    if (byte < 0xC0) continue;
    const std::size_t length = byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    return begin + length <= text.size() ? text.size() : begin;
  }
  return text.size();
}

// Text for a console, which takes UTF-16: in its own code page characters would be lost.
class ConsoleBuffer final : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}

 protected:
  int_type overflow(int_type sign) override {
    if (traits_type::eq_int_type(sign, traits_type::eof())) return traits_type::not_eof(sign);
    const char character = traits_type::to_char_type(sign);
    return xsputn(&character, 1) == 1 ? sign : traits_type::eof();
  }
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    waiting_.append(text, static_cast<std::size_t>(size));
    const std::size_t whole = WholeCharacters(waiting_);
    const std::wstring wide = Wide(std::string_view(waiting_).substr(0, whole));
    waiting_.erase(0, whole);
    return Write(wide) ? size : 0;
  }

 private:
  // Old systems take no more than 64 kB at a time.
  bool Write(std::wstring_view text) {
    constexpr std::size_t kMost = 8192;
    while (!text.empty()) {
      DWORD written = 0;
      const auto size = static_cast<DWORD>(std::min(text.size(), kMost));
      if (WriteConsoleW(console_, text.data(), size, &written, nullptr) == FALSE || written == 0)
        return false;
      text.remove_prefix(written);
    }
    return true;
  }

  HANDLE console_;
  std::string waiting_;
};

// A stream of the standard library that writes to the console, if it has one.
class RedirectedStream {
 public:
  RedirectedStream(std::ostream& stream, DWORD which)
      : stream_(stream), console_(GetStdHandle(which)), buffer_(console_) {
    if (!IsConsole(console_, modeBefore_)) return;
    before_ = stream_.rdbuf(&buffer_);
    SetConsoleMode(console_, modeBefore_ | kUnderstandsEscapes);
  }
  ~RedirectedStream() {
    if (before_ == nullptr) return;
    stream_.rdbuf(before_);
    SetConsoleMode(console_, modeBefore_);
  }
  RedirectedStream(const RedirectedStream&) = delete;
  RedirectedStream& operator=(const RedirectedStream&) = delete;

 private:
  std::ostream& stream_;
  HANDLE console_;
  DWORD modeBefore_ = 0;
  ConsoleBuffer buffer_;
  std::streambuf* before_ = nullptr;
};

std::atomic<bool> interrupted = false;
std::atomic<bool> waiting = false;  // the main thread, for input
HANDLE mainThread = nullptr;

// On a thread of its own. Whoever closes the console or logs off ends the program when this returns: it waits
// then until the main thread has.
BOOL WINAPI OnControl(DWORD event) {
  constexpr DWORD kMostCleaning = 5000;
  constexpr DWORD kPause = 10;
  if (interrupted.exchange(true)) return FALSE;
  // It may be just about to wait.
  for (; waiting; Sleep(kPause)) CancelSynchronousIo(mainThread);
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) WaitForSingleObject(mainThread, kMostCleaning);
  return TRUE;
}

}  // namespace

// What main is given has lost the characters that the system's code page does not have.
std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8(wide[i]));
  LocalFree(wide);
  return arguments;
}

struct ConsoleText::State {
  RedirectedStream output{std::cout, STD_OUTPUT_HANDLE};
  RedirectedStream error{std::cerr, STD_ERROR_HANDLE};
};
ConsoleText::ConsoleText() : state_(std::make_unique<State>()) {}
ConsoleText::~ConsoleText() = default;

bool InputIsTerminal() {
  DWORD mode = 0;
  return IsConsole(GetStdHandle(STD_INPUT_HANDLE), mode);
}

bool ErrorIsTerminal() {
  DWORD mode = 0;
  return IsConsole(GetStdHandle(STD_ERROR_HANDLE), mode) && (mode & kUnderstandsEscapes) != 0;
}

struct ByteStream::Source {
  HANDLE handle = INVALID_HANDLE_VALUE;
  bool own = false;
  bool console = false;
  DWORD error = 0;
  std::string typed;  // and not read yet

  // A line that a person typed; its characters are asked for, not its bytes. Ctrl+Z ends the input.
  DWORD ReadLine() {
    std::array<wchar_t, 2048> line{};
    DWORD size = 0;
    SetLastError(ERROR_SUCCESS);
    if (ReadConsoleW(handle, line.data(), static_cast<DWORD>(line.size()), &size, nullptr) == FALSE)
      return GetLastError();
    typed = Utf8({line.data(), size});
    std::erase(typed, '\r');
    if (typed.starts_with('\x1A')) typed.clear();
    return size == 0 ? GetLastError() : ERROR_SUCCESS;
  }
  std::size_t Fetch(std::span<char> bytes) {
    if (console) {
      if (typed.empty()) error = ReadLine();
      const std::size_t size = typed.copy(bytes.data(), bytes.size());
      typed.erase(0, size);
      return size;
    }
    DWORD size = 0;
    if (ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &size, nullptr) == FALSE)
      error = GetLastError();
    return size;
  }
};

ByteStream::ByteStream() : source_(std::make_unique<Source>()) {
  source_->handle = GetStdHandle(STD_INPUT_HANDLE);
  source_->console = InputIsTerminal();
}

ByteStream::ByteStream(const std::filesystem::path& path) : source_(std::make_unique<Source>()) {
  source_->handle = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  source_->own = source_->handle != INVALID_HANDLE_VALUE;
  if (!source_->own) source_->error = GetLastError();
}

ByteStream::~ByteStream() {
  if (source_->own) CloseHandle(source_->handle);
}

std::ptrdiff_t ByteStream::Read(std::span<char> bytes) {
  Source& source = *source_;
  std::size_t size = 0;
  waiting = true;
  if (!Interrupted() && source.error == 0) size = source.Fetch(bytes);
  waiting = false;
  if (Interrupted()) return -EINTR;
  // The other end of a pipe was closed.
  if (source.error == ERROR_BROKEN_PIPE || source.error == ERROR_HANDLE_EOF) return 0;
  // A program that was started without standard input has none to read.
  if (source.error == ERROR_INVALID_HANDLE && !source.own) return 0;
  return source.error != 0 ? -ErrnoOf(source.error) : static_cast<std::ptrdiff_t>(size);
}

void NoteInterruptions() {
  if (mainThread != nullptr) return;
  DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &mainThread, 0, FALSE,
                  DUPLICATE_SAME_ACCESS);
  SetConsoleCtrlHandler(&OnControl, TRUE);
}

bool Interrupted() {
  return interrupted;
}

void HandleSystemEvents() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

unsigned long ProcessNumber() {
  return GetCurrentProcessId();
}

// Somebody may still hold a process that has ended.
bool ProcessIsThere(unsigned long number) {
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
  if (process == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool lives = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
  CloseHandle(process);
  return lives;
}

}  // namespace lorelin
