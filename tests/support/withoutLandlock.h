#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace lorelin {

// From here on the system is to this process, and to what it starts, one of before Landlock: its calls are
// unknown (ENOSYS). False when that cannot be had.
inline bool LoseLandlock() {
  static_assert(SYS_landlock_add_rule == SYS_landlock_create_ruleset + 1 &&
                SYS_landlock_restrict_self == SYS_landlock_create_ruleset + 2);
  std::array<sock_filter, 5> code{{
      {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
      {BPF_JMP | BPF_JGE | BPF_K, 0, 2, SYS_landlock_create_ruleset},
      {BPF_JMP | BPF_JGT | BPF_K, 1, 0, SYS_landlock_restrict_self},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | ENOSYS},
      {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
  }};
  const sock_fprog program{static_cast<unsigned short>(code.size()), code.data()};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace lorelin
