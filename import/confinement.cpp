#include "import/confinement.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <fstream>
#include <string>

#include "import/importAnswer.h"

namespace lorelin {
namespace {

constexpr rlim_t kMemory = rlim_t{512} << 20U;
constexpr rlim_t kFileOfChild = rlim_t{64} << 20U;

// Made before it is needed: a signal handler may not.
const std::string& TooSlow() {
  static const std::string output = [] {
    const std::string answer = WriteImportProblem(
        "Das Einlesen wurde abgebrochen, weil es zu lange dauerte. Wahrscheinlich ist die Datei beschädigt "
        "oder "
        "viel zu groß.");
    return "answer " + std::to_string(answer.size()) + "\n" + answer;
  }();
  return output;
}

void EndLate(int) {
  const std::string& output = TooSlow();
  (void)!write(STDOUT_FILENO, output.data(), output.size());
  _exit(1);
}

void Limit(__rlimit_resource resource, rlim_t most, rlim_t own) {
  rlimit limit{};
  if (getrlimit(resource, &limit) != 0) return;
  limit.rlim_max = std::min(limit.rlim_max, most);
  limit.rlim_cur = std::min({limit.rlim_cur, limit.rlim_max, own});
  setrlimit(resource, &limit);
}

// What a checking build reserves at its start is more than the limit already.
bool HasRoom() {
  std::uintmax_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<std::uintmax_t>(sysconf(_SC_PAGESIZE)) < kMemory / 2;
}

// Sockets are refused by the system from here on, to what this process starts as well.
void RefuseConnections() {
  std::array<sock_filter, 4> filter{{{BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
                                     {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, SYS_socket},
                                     {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | EPERM},
                                     {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW}}};
  const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

// The parent may have ended before this process asked to be told.
bool ReaderIsGone() {
  pollfd output{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
  return poll(&output, 1, 0) == 1 && (output.revents & POLLERR) != 0;
}

}  // namespace

void Confine(bool children) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (ReaderIsGone()) _exit(1);
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  RefuseConnections();
  prctl(PR_SET_DUMPABLE, 0);
  Limit(RLIMIT_CORE, 0, 0);
  Limit(RLIMIT_FSIZE, children ? kFileOfChild : 0, 0);
  if (HasRoom()) Limit(RLIMIT_AS, kMemory, kMemory);
}

void GiveComputingTime(int seconds) {
  (void)TooSlow();
  std::signal(SIGPROF, &EndLate);
  const itimerval timer{.it_interval = {}, .it_value = {.tv_sec = seconds, .tv_usec = 0}};
  setitimer(ITIMER_PROF, &timer, nullptr);
}

double ComputingTime() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

}  // namespace lorelin
