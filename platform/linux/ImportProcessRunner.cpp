#include "platform/linux/ImportProcessRunner.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/paths.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kStep{50};  // between two calls of the caller's function
constexpr std::size_t kLongestLine = 64;

constexpr std::string_view kNotStarted =
    "Das Programm lorelin-import, das Dokumente einliest, lässt sich nicht starten. Bitte installieren Sie "
    "Lorelin neu.";
constexpr std::string_view kBroken =
    "Die Datei ließ sich nicht einlesen. Wahrscheinlich ist sie beschädigt; bitte öffnen Sie eine andere "
    "Kopie.";
constexpr std::string_view kTooSlow =
    "Das Einlesen wurde abgebrochen, weil es zu lange dauerte. Wahrscheinlich ist die Datei beschädigt.";
constexpr std::string_view kTooLarge = "Das Dokument ist zu umfangreich, um geöffnet zu werden.";

std::vector<std::string> Arguments(const std::string& program, const ImportProcess::Job& job) {
  std::vector<std::string> arguments{program};
  if (job.articleOnly) arguments.emplace_back("--article");
  if (job.recognisePages) arguments.emplace_back("--recognise");
  if (!job.source.empty()) arguments.insert(arguments.end(), {"--source", job.source});
  arguments.emplace_back("--");
  arguments.push_back(NativePath(job.path).string());
  return arguments;
}

// Spawns the program in a process group of its own with `output` as its standard output; its process number
// or -1.
pid_t Spawn(std::vector<std::string> arguments, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  // Libraries complain there about what is wrong with a file.
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
  posix_spawnattr_setpgroup(&attributes, 0);
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  pid_t process = -1;
  const int error =
      posix_spawn(&process, arguments[0].c_str(), &actions, &attributes, pointers.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? process : -1;
}

// A child that is gone, with what it started, when this is.
class Child {
 public:
  explicit Child(std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) return;
    process_ = Spawn(std::move(arguments), ends[1]);
    close(ends[1]);
    output_ = ends[0];
    fcntl(output_, F_SETFL, O_NONBLOCK);
  }
  ~Child() {
    if (output_ >= 0) close(output_);
    if (process_ <= 0) return;
    kill(-process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  [[nodiscard]] bool Started() const { return process_ > 0; }

  // Waits for output and appends what is there, at most `most` bytes; false at the output's end.
  bool Read(std::string& bytes, milliseconds wait, std::size_t most) const {
    pollfd ready{.fd = output_, .events = POLLIN, .revents = 0};
    if (poll(&ready, 1, static_cast<int>(wait.count())) <= 0) return true;
    std::array<char, std::size_t{64} * 1024> buffer{};
    const ssize_t size = read(output_, buffer.data(), std::min(buffer.size(), most));
    if (size < 0) return errno == EAGAIN || errno == EINTR;
    bytes.append(buffer.data(), static_cast<std::size_t>(size));
    return size > 0;
  }

 private:
  pid_t process_ = -1;
  int output_ = -1;
};

std::optional<std::size_t> NumberAfter(std::string_view line, std::string_view word) {
  if (!line.starts_with(word)) return {};
  line.remove_prefix(word.size());
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  if (error != std::errc() || end != line.data() + line.size()) return {};
  return number;
}

// What the child has written, and what it means so far.
struct Output {
  std::string bytes;                // not yet taken for a line
  std::optional<std::size_t> size;  // of the answer, once it has begun
  int percent = -1;
  bool broken = false;

  // Takes the lines; whether there was one.
  bool TakeLines() {
    bool any = false;
    for (auto end = bytes.find('\n'); !size && !broken && end != std::string::npos; end = bytes.find('\n')) {
      TakeLine(std::string_view(bytes).substr(0, end));
      bytes.erase(0, end + 1);
      any = true;
    }
    if (!size && bytes.size() > kLongestLine) broken = true;
    return any;
  }
  void TakeLine(std::string_view line) {
    if (const auto done = NumberAfter(line, "progress ")) {
      percent = static_cast<int>(std::min<std::size_t>(*done, 100));
    } else {
      size = NumberAfter(line, "answer ");
      broken = !size;
    }
  }
  [[nodiscard]] bool Whole() const { return size && bytes.size() == *size; }
};

ImportProcess::Answer Problem(std::string_view sentence) {
  return {.bytes = {}, .problem = std::string(sentence)};
}

}  // namespace

ImportProcess::Answer ImportProcessRunner::Run(const Job& job, const std::function<bool(int)>& progress) {
  const Child child(Arguments(importFile_, job));
  if (!child.Started()) return Problem(kNotStarted);
  Output output;
  auto heard = steady_clock::now();
  auto told = heard - kStep;
  for (bool open = true; open;) {
    if (steady_clock::now() - told >= kStep) {
      if (progress && !progress(output.percent)) return {};
      told = steady_clock::now();
    }
    const std::size_t most = output.size ? *output.size + 1 - output.bytes.size() : kLongestLine;
    open = child.Read(output.bytes, kStep, most);
    if (!output.size && output.TakeLines()) heard = steady_clock::now();
    if (output.broken) break;
    if (output.size && *output.size > limits_.answer) return Problem(kTooLarge);
    if (output.size && output.bytes.size() > *output.size) break;
    if (steady_clock::now() - heard > limits_.silence) return Problem(kTooSlow);
  }
  if (output.broken || !output.Whole()) return Problem(kBroken);
  return {.bytes = std::move(output.bytes), .problem = {}};
}

}  // namespace lorelin
