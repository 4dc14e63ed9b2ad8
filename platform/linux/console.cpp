#include "platform/common/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace lorelin {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnSignal(int) {
  interrupted = 1;
}

}  // namespace

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

// Terminals here take UTF-8 as it is.
struct ConsoleText::State {};
ConsoleText::ConsoleText() = default;
ConsoleText::~ConsoleText() = default;

bool InputIsTerminal() {
  return isatty(STDIN_FILENO) == 1;
}
bool ErrorIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

struct ByteStream::Source {
  int descriptor = STDIN_FILENO;
  int error = 0;
};

ByteStream::ByteStream() : source_(std::make_unique<Source>()) {}

ByteStream::ByteStream(const std::filesystem::path& path)
    : source_(std::make_unique<Source>(Source{.descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC)})) {
  if (source_->descriptor < 0) source_->error = errno;
}

ByteStream::~ByteStream() {
  if (source_->descriptor > STDIN_FILENO) close(source_->descriptor);
}

std::ptrdiff_t ByteStream::Read(std::span<char> bytes) {
  if (source_->error != 0) return -source_->error;
  while (true) {
    const ssize_t size = read(source_->descriptor, bytes.data(), bytes.size());
    if (Interrupted()) return -EINTR;
    if (size >= 0) return size;
    if (errno != EINTR) return -errno;
  }
}

void NoteInterruptions() {
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  // A file that grows beyond what is allowed is an error of writing like others.
  (void)std::signal(SIGXFSZ, SIG_IGN);
}

bool Interrupted() {
  return interrupted != 0;
}

void HandleSystemEvents() {}

unsigned long ProcessNumber() {
  return static_cast<unsigned long>(getpid());
}

bool ProcessIsThere(unsigned long number) {
  const auto process = static_cast<pid_t>(number);
  return process > 0 && (kill(process, 0) == 0 || errno != ESRCH);
}

}  // namespace lorelin
