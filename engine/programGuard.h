#pragma once

#include <sys/types.h>

namespace lorelin::engine {

// What the guard of a program tells through its socket, one message for each.
struct GuardMessage {
  enum class Kind : int { NotStarted = 1, Ended = 2 };
  Kind kind = Kind::Ended;
  int number = 0;  // errno, or the status of waitpid()
};

// Everything that is needed between fork and exec, where nothing may be allocated. The descriptors are
// above 2.
struct GuardedProgram {
  const char* file = nullptr;
  char* const* arguments = nullptr;
  const char* folder = nullptr;
  int input = -1;
  int output = -1;
  int errors = -1;
  int control = -1;  // a socket of messages; its other end closes with whoever wants the program to live
};

// Starts the guard and the program; the guard's process number, -1 when there is none. The guard ends soon
// after the program did or the control socket was closed, and leaves none of the program's group behind.
[[nodiscard]] pid_t StartGuarded(const GuardedProgram& program);

}  // namespace lorelin::engine
