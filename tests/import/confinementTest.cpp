#include "import/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <functional>
#include <string>

#include "import/importAnswer.h"
#include "platform/linux/ImportProcessRunner.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/inChild.h"
#include "tests/support/withoutLandlock.h"

namespace lorelin {
namespace {

// What the call fails with in a process that is confined to the document; 0 when it does not fail.
int ErrorOf(const std::function<long()>& call, const std::string& document = "/gibt/es/nicht",
            bool children = false) {
  return InChild([&] {
    Confine(document, children);
    return call() < 0 ? errno : 0;
  });
}

bool KnowsFiles() {
  return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) >= 1;
}

TEST(Confinement, OpensNoConnection) {
  for (const int family : {AF_INET, AF_INET6, AF_UNIX, AF_NETLINK}) {
    for (const bool children : {false, true})
      EXPECT_EQ(ErrorOf([&] { return socket(family, SOCK_DGRAM, 0); }, "", children), EPERM) << family;
  }
  EXPECT_EQ(ErrorOf([] { return syscall(SYS_io_uring_setup, 1, nullptr); }), EPERM);
}

TEST(Confinement, StartsProgramsOnlyToRecognisePages) {
  char* const arguments[] = {const_cast<char*>("true"), nullptr};
  char* const none[] = {nullptr};
  const auto start = [&] { return execve("/bin/true", arguments, none); };
  EXPECT_EQ(ErrorOf(start), EPERM);
  EXPECT_EQ(ErrorOf(start, "", true), 0);
}

TEST(Confinement, LooksIntoNoOtherProcess) {
  char byte = 0;
  const iovec here{&byte, 1};
  EXPECT_EQ(ErrorOf([&] { return process_vm_readv(getppid(), &here, 1, &here, 1, 0); }), EPERM);
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_EQ(ErrorOf([] { return ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr); }), EPERM);
#endif
}

TEST(Confinement, ReadsTheDocumentAndNoOther) {
  if (!KnowsFiles()) GTEST_SKIP() << "this kernel cannot refuse files";
  TemporaryFolder folder;
  const std::string document = folder.File("Buch.epub");
  const std::string other = folder.File("Brief.txt");
  std::ofstream(document) << "Buch";
  std::ofstream(other) << "Brief";
  EXPECT_EQ(ErrorOf([&] { return open(document.c_str(), O_RDONLY); }, document), 0);
  EXPECT_EQ(ErrorOf([&] { return open(other.c_str(), O_RDONLY); }, document), EACCES);
  EXPECT_EQ(ErrorOf([&] { return unlink(document.c_str()); }, document), EACCES);
}

TEST(Confinement, WritesNoFile) {
  TemporaryFolder folder;
  const std::string file = folder.File("a");
  const int open_ = open(folder.File("b").c_str(), O_CREAT | O_WRONLY, 0600);
  EXPECT_EQ(ErrorOf([&] {
              return KnowsFiles() ? open(file.c_str(), O_CREAT | O_WRONLY, 0600) : (errno = EACCES, -1);
            }),
            EACCES);
  // Not even into one that is open.
  EXPECT_EQ(ErrorOf([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              return write(open_, "x", 1);
            }),
            EFBIG);
  close(open_);
}

TEST(Confinement, RefusesCallsWhereTheSystemCannotRefuseFiles) {
  TemporaryFolder folder;
  const std::string document = folder.File("Buch.epub");
  const std::string other = folder.File("Brief.txt");
  std::ofstream(document) << "Buch";
  std::ofstream(other) << "Brief";
  const auto error = [&](const std::function<long()>& call) {
    return InChild([&] {
      if (!LoseLandlock() || KnowsFiles()) return 254;
      Confine(document, false);
      return call() < 0 ? errno : 0;
    });
  };
  char* const arguments[] = {const_cast<char*>("true"), nullptr};
  char* const none[] = {nullptr};
  EXPECT_EQ(error([&] { return open(document.c_str(), O_RDONLY); }), 0);
  EXPECT_EQ(error([&] { return open(other.c_str(), O_RDONLY); }), 0) << "the filter of the test is not there";
  EXPECT_EQ(error([] { return socket(AF_INET, SOCK_STREAM, 0); }), EPERM);
  EXPECT_EQ(error([&] { return execve("/bin/true", arguments, none); }), EPERM);
  // An empty file may come into being; nothing gets into it.
  EXPECT_EQ(error([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const int file = open(folder.File("a").c_str(), O_CREAT | O_WRONLY, 0600);
              return file < 0 ? 0 : write(file, "x", 1);
            }),
            EFBIG);
}

TEST(Confinement, LetsTheRealProcessReadWhereTheSystemCannotRefuseFiles) {
  TemporaryFolder folder;
  const std::string document = folder.File("Buch.md");
  std::ofstream(document) << "# Titel\n\nEin Satz.\n";
  EXPECT_EQ(InChild([&] {
              if (!LoseLandlock()) return 254;
              ImportProcessRunner runner(LORELIN_BIN_DIR "/lorelin-import", {});
              const auto answer = runner.Run({.path = document}, {});
              if (!answer.problem.empty()) return 253;
              const std::string text = ReadImportAnswer(answer.bytes).text.text;
              return text.find("Ein Satz.") != std::string::npos ? 0 : 252;
            }),
            0);
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
