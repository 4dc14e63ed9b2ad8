#include "import/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <functional>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// Whether it holds in a process that is confined.
bool Confined(const std::function<bool()>& holds) {
  const pid_t child = fork();
  if (child == 0) {
    Confine(false);
    _exit(holds() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(Confinement, OpensNoConnection) {
  EXPECT_TRUE(
      Confined([] { return socket(AF_INET, SOCK_STREAM, 0) < 0 && socket(AF_UNIX, SOCK_STREAM, 0) < 0; }));
}

TEST(Confinement, WritesNoFile) {
  TemporaryFolder folder;
  const std::string file = folder.File("a");
  EXPECT_TRUE(Confined([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const int output = open(file.c_str(), O_CREAT | O_WRONLY, 0600);
    return write(output, "x", 1) < 0;
  }));
}

TEST(Confinement, EndsWithASentenceWhenItComputesForTooLong) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    GiveComputingTime(1);
    std::atomic<int> count{0};
    for (;;) ++count;
  }
  close(ends[1]);
  std::array<char, 4096> buffer{};
  const ssize_t size = read(ends[0], buffer.data(), buffer.size());
  close(ends[0]);
  waitpid(child, nullptr, 0);
  const std::string output(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  EXPECT_TRUE(output.starts_with("answer ")) << output;
  EXPECT_NE(output.find("zu lange"), std::string::npos) << output;
}

}  // namespace
}  // namespace lorelin
