#pragma once

#include <sys/resource.h>

namespace lorelin {

// What a process goes on being able to ask of the system.
struct KeptCalls {
  bool localSockets = false;     // to servers on this machine, as those of sound are
  bool internetSockets = false;  // to others
  bool programs = false;         // may it become another program, or its children
};

// From here on the process and what it starts gain no rights, and the system refuses them with EPERM: sockets
// but those that are kept, other programs unless they are, looking into other processes, and what changes
// the system. To be called before there are threads. False when the system cannot do that.
bool KeepCalls(const KeptCalls& kept);

// The limit is lowered to `most`, and what applies now to `own`; it is never raised.
void LimitResource(__rlimit_resource resource, rlim_t most, rlim_t own);

}  // namespace lorelin
