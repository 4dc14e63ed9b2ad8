#include "platform/linux/ImportProcessRunner.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>
#include <vector>

namespace lorelin {
namespace {

using std::chrono::milliseconds;

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

}  // namespace

ImportProcess::Answer ImportProcessRunner::Run(const Job& job, const std::function<bool(int)>& progress) {
  const Child child(ImportArguments(importFile_, job));
  if (!child.Started()) return ImportNotStarted();
  return HearImport(
      [&](std::string& bytes, milliseconds wait, std::size_t most) { return child.Read(bytes, wait, most); },
      limits_, progress);
}

}  // namespace lorelin
