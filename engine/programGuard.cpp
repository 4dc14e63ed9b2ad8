#include "engine/programGuard.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>
#include <initializer_list>

// All of this runs in the child of a process with several threads: nothing but system calls.
namespace lorelin::engine {
namespace {

constexpr int kFirstOther = 3;
constexpr int kNotRun = 127;
constexpr int kFarewellSteps = 100;
constexpr int kFarewellStep = 2;  // milliseconds

void Tell(int control, GuardMessage::Kind kind, int number) {
  const GuardMessage message{kind, number};
  (void)send(control, &message, sizeof message, MSG_NOSIGNAL);
}

// Signals do again what they do in a program that is started from a terminal.
void ResetSignals() {
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
}

// The limit of this process's own memory is meant for models.
void RaiseMemoryLimit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_AS, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_AS, &limit);
}

void CloseOthersAtStart() {
  if (close_range(kFirstOther, UINT_MAX, CLOSE_RANGE_CLOEXEC) == 0) return;
  const auto most = static_cast<int>(sysconf(_SC_OPEN_MAX));
  for (int number = kFirstOther; number < most; ++number) fcntl(number, F_SETFD, FD_CLOEXEC);
}

[[noreturn]] void BecomeProgram(const GuardedProgram& program, pid_t guard) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != guard) _exit(kNotRun);
  ResetSignals();
  RaiseMemoryLimit();
  dup2(program.input, STDIN_FILENO);
  dup2(program.output, STDOUT_FILENO);
  dup2(program.errors, STDERR_FILENO);
  CloseOthersAtStart();
  if (chdir(program.folder) == 0) execve(program.file, program.arguments, environ);
  Tell(program.control, GuardMessage::Kind::NotStarted, errno);
  _exit(kNotRun);
}

void KeepOnly(int control) {
  dup2(control, 0);
  if (close_range(1, UINT_MAX, 0) == 0) return;
  const auto most = static_cast<int>(sysconf(_SC_OPEN_MAX));
  for (int number = 1; number < most; ++number) close(number);
}

// A program that begins a session of its own escapes the group; it is not waited for.
void EndGroup(pid_t program) {
  kill(-program, SIGKILL);
  for (int step = 0; step < kFarewellSteps; ++step) {
    const pid_t ended = waitpid(-1, nullptr, WNOHANG);
    if (ended < 0) return;
    if (ended == 0) poll(nullptr, 0, kFarewellStep);
  }
}

// Whether the program has ended, its process still there so that nobody else gets its number. What it left
// to the guard is taken in.
bool HasEnded(pid_t program) {
  for (;;) {
    siginfo_t ended{};
    if (waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid == 0) return false;
    if (ended.si_pid == program) return true;
    waitpid(ended.si_pid, nullptr, 0);
  }
}

int StatusOf(pid_t program) {
  int status = 0;
  kill(-program, SIGKILL);
  waitpid(program, &status, 0);
  return status;
}

void Ignore(int) {}

void PrepareSignals(sigset_t& waiting) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGTTIN, SIGTTOU})
    signal(number, SIG_IGN);
  sigset_t children;
  sigemptyset(&children);
  sigaddset(&children, SIGCHLD);
  sigprocmask(SIG_SETMASK, &children, nullptr);
  sigemptyset(&waiting);
  struct sigaction heard {};
  heard.sa_handler = &Ignore;
  sigaction(SIGCHLD, &heard, nullptr);
}

[[noreturn]] void Guard(const GuardedProgram& plan) {
  prctl(PR_SET_NAME, "lorelin-guard");
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  sigset_t waiting;
  PrepareSignals(waiting);
  const pid_t self = getpid();
  const pid_t program = _Fork();
  if (program == 0) BecomeProgram(plan, self);
  if (program < 0) {
    Tell(plan.control, GuardMessage::Kind::NotStarted, errno);
    _exit(0);
  }
  setpgid(program, program);
  KeepOnly(plan.control);
  while (!HasEnded(program)) {
    pollfd wanted{.fd = 0, .events = POLLIN, .revents = 0};
    if (ppoll(&wanted, 1, nullptr, &waiting) <= 0) continue;
    EndGroup(program);
    _exit(0);
  }
  const int status = StatusOf(program);
  EndGroup(program);
  Tell(0, GuardMessage::Kind::Ended, status);
  _exit(0);
}

}  // namespace

pid_t StartGuarded(const GuardedProgram& program) {
  const pid_t guard = _Fork();
  if (guard == 0) Guard(program);
  return guard;
}

}  // namespace lorelin::engine
