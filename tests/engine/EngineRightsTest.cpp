#include "engine/engineRights.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "engine/ProgramStarter.h"
#include "tests/support/RealEngine.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/commandVoices.h"
#include "tests/support/inChild.h"
#include "tests/support/withoutLandlock.h"

namespace lorelin::engine {
namespace {

// What the call fails with in a process that has an engine's rights; 0 when it does not fail.
int ErrorOf(const std::filesystem::path& folder, const std::function<long()>& call) {
  return InChild([&] {
    (void)KeepEngineRights(folder);
    return call() < 0 ? errno : 0;
  });
}

bool KnowsFiles() {
  return syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) >= 1;
}

TEST(EngineRights, ReachTheSoundServerAndNobodyElse) {
  EXPECT_EQ(ErrorOf("", [] { return socket(AF_UNIX, SOCK_STREAM, 0); }), 0);
  for (const int family : {AF_INET, AF_INET6, AF_NETLINK, AF_PACKET})
    EXPECT_EQ(ErrorOf("", [&] { return socket(family, SOCK_DGRAM, 0); }), EPERM) << family;
}

TEST(EngineRights, ReachAnotherMachineForItsSoundServer) {
  setenv("PULSE_SERVER", "tcp:klang.example", 1);
  EXPECT_EQ(ErrorOf("", [] { return socket(AF_INET, SOCK_STREAM, 0); }), 0);
  unsetenv("PULSE_SERVER");
  EXPECT_TRUE(NamesDistantServer("# Klang\n  default-server = tcp:klang.example\n"));
  EXPECT_FALSE(NamesDistantServer("; default-server = tcp:klang.example\nautospawn = no\n"));
}

TEST(EngineRights, StartNoProgram) {
  char* const arguments[] = {const_cast<char*>("true"), nullptr};
  char* const none[] = {nullptr};
  EXPECT_EQ(ErrorOf("", [&] { return execve("/bin/true", arguments, none); }), EPERM);
  EXPECT_EQ(ErrorOf("", [&] { return syscall(SYS_execveat, AT_FDCWD, "/bin/true", arguments, none, 0); }),
            EPERM);
}

TEST(EngineRights, LookIntoNoOtherProcess) {
  char byte = 0;
  const iovec here{&byte, 1};
  EXPECT_EQ(ErrorOf("", [&] { return process_vm_readv(getppid(), &here, 1, &here, 1, 0); }), EPERM);
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_EQ(ErrorOf("", [] { return ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr); }), EPERM);
#endif
}

TEST(EngineRights, DoNotGoRoundTheRefusals) {
  EXPECT_EQ(ErrorOf("", [] { return syscall(SYS_io_uring_setup, 1, nullptr); }), EPERM);
#if defined(__x86_64__)
  constexpr long kOtherTable = 0x40000000;
  EXPECT_EQ(ErrorOf("", [] { return syscall(kOtherTable + SYS_socket, AF_INET, SOCK_STREAM, 0); }), EPERM);
#endif
}

TEST(EngineRights, WriteFilesIntoTheFolderOnly) {
  if (!KnowsFiles()) GTEST_SKIP() << "this kernel cannot refuse files";
  TemporaryFolder folder;
  TemporaryFolder other;
  const auto make = [](const std::string& file) { return open(file.c_str(), O_CREAT | O_WRONLY, 0600); };
  EXPECT_EQ(ErrorOf(folder.Path(),
                    [&] {
                      const std::string file = folder.File("a");
                      const std::string renamed = folder.File("b");
                      return make(file) < 0 || rename(file.c_str(), renamed.c_str()) != 0 ||
                                     unlink(renamed.c_str()) != 0
                                 ? -1
                                 : 0;
                    }),
            0);
  EXPECT_EQ(ErrorOf(folder.Path(), [&] { return make(other.File("a")); }), EACCES);
  EXPECT_EQ(ErrorOf("", [&] { return make(folder.File("a")); }), EACCES);
  EXPECT_EQ(ErrorOf(folder.Path(), [&] { return mkdir(other.File("b").c_str(), 0700); }), EACCES);
  EXPECT_EQ(ErrorOf(folder.Path(), [&] { return symlink("a", folder.File("c").c_str()); }), EACCES);
}

TEST(EngineRights, ReadTheSystemAndNoDocuments) {
  if (!KnowsFiles()) GTEST_SKIP() << "this kernel cannot refuse files";
  TemporaryFolder folder;
  const std::string file = folder.File("Brief.txt");
  std::ofstream(file) << "Liebe Anna";
  EXPECT_EQ(ErrorOf("", [&] { return open(file.c_str(), O_RDONLY); }), EACCES);
  EXPECT_EQ(ErrorOf("", [&] { return unlink(file.c_str()); }), EACCES);
  EXPECT_EQ(ErrorOf("", [] { return open("/etc/passwd", O_RDONLY); }), 0);
}

TEST(EngineRights, AreWhatTheProcessHas) {
  RealEngine real;
  (void)real.engine.MinSpeed();
  // It is told of right after the greeting.
  ASSERT_TRUE(real.WaitUntil([&] {
    std::ifstream status("/proc/" + std::to_string(real.engine.ProcessId()) + "/status");
    const std::string text{std::istreambuf_iterator<char>(status), {}};
    return text.find("NoNewPrivs:\t1") != std::string::npos && text.find("Seccomp:\t2") != std::string::npos;
  }));
  std::ifstream limits("/proc/" + std::to_string(real.engine.ProcessId()) + "/limits");
  const std::string text{std::istreambuf_iterator<char>(limits), {}};
  EXPECT_NE(text.find("Max core file size        0                    0 "), std::string::npos) << text;
}

TEST(EngineRights, AreThoseOfCallsWhereTheSystemCannotRefuseFiles) {
  EXPECT_EQ(InChild([] {
              if (!LoseLandlock()) return 254;
              const ConfinedTo kept = KeepEngineRights("");
              if (kept.filesKept || !kept.callsKept) return 253;
              if (open("/etc/passwd", O_RDONLY) < 0) return 252;
              return socket(AF_INET, SOCK_STREAM, 0) < 0 ? errno : 0;
            }),
            EPERM);
}

TEST(EngineRights, LackingForFilesAreLoggedOnceAndTheEngineSpeaks) {
  const auto speak = [] {
    if (!LoseLandlock()) return 254;
    RealEngine real;
    TemporaryFolder other;  // another process takes this folder's place
    for (const std::string& file : {real.folder.File("a.wav"), other.File("a.wav")}) {
      real.engine.SetWaveFile(file);
      real.engine.Speak("Ja.");
      if (!real.WaitForEnd(real.ends.size() + 1) || !real.ends.back().complete) return 253;
      if (std::filesystem::file_size(file) < 1000) return 252;
    }
    if (real.log.lines.size() != 1 || real.log.lines[0].find("Landlock fehlt") == std::string::npos)
      return 251;
    std::ifstream status("/proc/" + std::to_string(real.engine.ProcessId()) + "/status");
    const std::string text{std::istreambuf_iterator<char>(status), {}};
    // That of the test, and its own.
    return text.find("Seccomp_filters:\t2") != std::string::npos ? 0 : 250;
  };
  EXPECT_EQ(InChild(speak), 0);
}

TEST(EngineRights, FollowTheFoldersOfSoundFiles) {
  RealEngine real;
  TemporaryFolder other;
  const auto render = [&](const std::string& file) {
    real.engine.SetWaveFile(file);
    real.engine.Speak("Ja.");
    EXPECT_TRUE(real.WaitForEnd(real.ends.size() + 1));
    EXPECT_EQ(real.ends.back().reason, "");
    EXPECT_TRUE(std::filesystem::exists(file)) << file;
    return real.engine.ProcessId();
  };
  const int first = render(real.folder.File("a.wav"));
  EXPECT_EQ(render(real.folder.File("b.wav")), first) << "the same folder needs no other process";
  EXPECT_NE(render(other.File("a.wav")), first);
  // One that was removed and made again is another folder.
  const std::string below = other.File("unten");
  std::filesystem::create_directory(below);
  render(below + "/a.wav");
  std::filesystem::remove_all(below);
  std::filesystem::create_directory(below);
  render(below + "/a.wav");
}

TEST(ProgramStarter, StartsTheProgramsOfItsVoicesOnly) {
  const std::vector<CommandVoice> voices{MakeCommandVoice("cat")};
  const CommandVoice other = MakeCommandVoice("cat");
  const ProgramStarter starter(voices);
  std::unique_ptr<ChildProgram> program;
  EXPECT_EQ(starter.Start(other, {}, program), ProgramStarter::Outcome::Failed);
  EXPECT_EQ(program, nullptr);
  EXPECT_EQ(starter.Start(voices[0], {}, program), ProgramStarter::Outcome::Started);
  EXPECT_NE(program, nullptr);
}

}  // namespace
}  // namespace lorelin::engine
