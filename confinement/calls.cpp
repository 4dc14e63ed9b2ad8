#include "confinement/calls.h"

#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lorelin {
namespace {

#if defined(__x86_64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_AARCH64;
#elif defined(__i386__)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_I386;
#elif defined(__riscv)
constexpr std::uint32_t kArchitecture = AUDIT_ARCH_RISCV64;
#else
constexpr std::uint32_t kArchitecture = 0;
#endif

constexpr std::uint32_t kOtherTable = 0x40000000;  // calls of x86-64 with short pointers have this bit
constexpr std::uint32_t kRefuse = SECCOMP_RET_ERRNO | EPERM;

// The leak detector looks into its own process through these.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsWatched = true;
#else
constexpr bool kIsWatched = false;
#endif

// Those of other processes, of the whole system, and those that go round what is refused here.
std::vector<long> RefusedCalls(const KeptCalls& kept) {
  std::vector<long> calls{SYS_process_vm_readv,
                          SYS_process_vm_writev,
                          SYS_pidfd_getfd,
                          SYS_io_uring_setup,
                          SYS_bpf,
                          SYS_perf_event_open,
                          SYS_userfaultfd,
                          SYS_keyctl,
                          SYS_add_key,
                          SYS_request_key,
                          SYS_mount,
                          SYS_umount2,
                          SYS_pivot_root,
                          SYS_chroot,
                          SYS_setns,
                          SYS_unshare,
                          SYS_fsopen,
                          SYS_open_tree,
                          SYS_move_mount,
                          SYS_open_by_handle_at,
                          SYS_init_module,
                          SYS_finit_module,
                          SYS_reboot,
                          SYS_kexec_load,
                          SYS_swapon,
                          SYS_acct,
                          SYS_clock_settime,
                          SYS_settimeofday};
  if (!kIsWatched) calls.push_back(SYS_ptrace);
  if (!kept.programs) calls.insert(calls.end(), {SYS_execve, SYS_execveat});
  return calls;
}

std::vector<std::uint32_t> Families(const KeptCalls& kept) {
  std::vector<std::uint32_t> families;
  if (kept.localSockets) families.push_back(AF_UNIX);
  if (kept.internetSockets) families.insert(families.end(), {AF_INET, AF_INET6});
  return families;
}

class Filter {
 public:
  void Load(std::size_t place) { Add(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(place)); }
  void Answer(std::uint32_t answer) { Add(BPF_RET | BPF_K, answer); }
  // What was loaded skips the next instructions, or not, by how it compares with the value.
  void Compare(unsigned how, std::uint32_t value, std::uint8_t ifSo, std::uint8_t ifNot) {
    code_.push_back({static_cast<std::uint16_t>(BPF_JMP | BPF_K | how), ifSo, ifNot, value});
  }
  void AnswerIf(std::uint32_t value, std::uint32_t answer) {
    Compare(BPF_JEQ, value, 0, 1);
    Answer(answer);
  }
  bool Install() {
    const sock_fprog program{static_cast<unsigned short>(code_.size()), code_.data()};
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
  }

 private:
  void Add(unsigned what, std::uint32_t value) {
    code_.push_back({static_cast<std::uint16_t>(what), 0, 0, value});
  }
  std::vector<sock_filter> code_;
};

// The low half of a call's first argument.
constexpr std::size_t kFirstArgument = offsetof(seccomp_data, args);

}  // namespace

bool KeepCalls(const KeptCalls& kept) {
  if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || kArchitecture == 0) return false;
  Filter filter;
  filter.Load(offsetof(seccomp_data, arch));
  filter.Compare(BPF_JEQ, kArchitecture, 1, 0);
  filter.Answer(kRefuse);
  filter.Load(offsetof(seccomp_data, nr));
  filter.Compare(BPF_JGE, kOtherTable, 0, 1);
  filter.Answer(kRefuse);
  for (const long call : RefusedCalls(kept)) filter.AnswerIf(static_cast<std::uint32_t>(call), kRefuse);
  filter.Compare(BPF_JEQ, SYS_socket, 1, 0);
  filter.Answer(SECCOMP_RET_ALLOW);
  filter.Load(kFirstArgument);
  for (const std::uint32_t family : Families(kept)) filter.AnswerIf(family, SECCOMP_RET_ALLOW);
  filter.Answer(kRefuse);
  return filter.Install();
}

void LimitResource(__rlimit_resource resource, rlim_t most, rlim_t own) {
  rlimit limit{};
  if (getrlimit(resource, &limit) != 0) return;
  limit.rlim_max = std::min(limit.rlim_max, most);
  limit.rlim_cur = std::min({limit.rlim_cur, limit.rlim_max, own});
  setrlimit(resource, &limit);
}

}  // namespace lorelin
