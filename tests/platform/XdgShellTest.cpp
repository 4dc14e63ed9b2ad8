#include "platform/linux/XdgShell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// Programs are found in the test's folder only.
class XdgShellTest : public testing::Test {
 protected:
  XdgShellTest() { setenv("PATH", folder.Path().c_str(), 1); }
  ~XdgShellTest() override { setenv("PATH", path.c_str(), 1); }

  std::string path = std::getenv("PATH");
  TemporaryFolder folder;
  FakeLog log;
  XdgShell shell{folder.Path(), log};
};

TEST_F(XdgShellTest, HandsTheFolderOverAsOneArgument) {
  const std::string pipe = folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  WriteFile(folder.File("xdg-open"), "#!/bin/sh\nprintf '%s|' \"$#\" \"$@\" > '" + pipe + "'\n");
  std::filesystem::permissions(folder.File("xdg-open"), std::filesystem::perms::owner_all);
  EXPECT_TRUE(shell.OpenFolder("/tmp/Meine Texte; $(reboot)"));
  EXPECT_EQ(ReadFile(pipe), "1|/tmp/Meine Texte; $(reboot)|");
}

TEST_F(XdgShellTest, LeavesNoChildBehind) {
  WriteFile(folder.File("xdg-open"), "#!/bin/sh\n");
  std::filesystem::permissions(folder.File("xdg-open"), std::filesystem::perms::owner_all);
  EXPECT_TRUE(shell.OpenFolder("/tmp"));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(XdgShellTest, SaysWhenThereIsNoFileManager) {
  EXPECT_FALSE(shell.OpenFolder("/tmp"));
  EXPECT_EQ(log.lines.size(), 1U);
}

}  // namespace
}  // namespace lorelin
