#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace lorelin {

// What the function answers in a process of its own, 0 to 254; 255 when that did not end well.
inline int InChild(const std::function<int()>& function) {
  const pid_t child = fork();
  if (child == 0) _exit(function());
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

}  // namespace lorelin
