#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <memory>

#include "platform/linux/FlockSingleInstance.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

TEST(SingleInstance, IsNotHeldByTheProgramsThatItStarted) {
  const TemporaryFolder folder;
  auto first = std::make_unique<FlockSingleInstance>(folder.File("lock"));
  EXPECT_FALSE(first->IsAlreadyRunning());
  std::array<int, 2> input{};
  ASSERT_EQ(pipe(input.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    dup2(input[0], STDIN_FILENO);
    close(input[0]);
    close(input[1]);
    // The file tells that the other program runs.
    execl("/bin/sh", "sh", "-c", "echo bereit > \"$0\"; read line", folder.File("bereit").c_str(),
          static_cast<char*>(nullptr));
    _exit(127);
  }
  close(input[0]);
  while (ReadFile(folder.File("bereit")).empty() && waitpid(child, nullptr, WNOHANG) == 0) {
  }
  first.reset();
  EXPECT_FALSE(FlockSingleInstance(folder.File("lock")).IsAlreadyRunning());
  close(input[1]);
  waitpid(child, nullptr, 0);
}

TEST(SingleInstance, LocksInTheSessionsFolderWhereItsOwnCannotBeWritten) {
  const TemporaryFolder folder;
  setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
  FlockSingleInstance first("/proc/nicht/da.lock");
  EXPECT_FALSE(first.IsAlreadyRunning());
  EXPECT_TRUE(FlockSingleInstance("/proc/nicht/da.lock").IsAlreadyRunning());
  unsetenv("XDG_RUNTIME_DIR");
}

}  // namespace
}  // namespace lorelin
