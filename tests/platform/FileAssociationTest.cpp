#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/common/AtomicFileWriter.h"
#include "platform/linux/XdgFileAssociation.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// Waits for the end of the program and tells its exit code.
int StatusOf(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawn(&process, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0) return -1;
  int status = -1;
  waitpid(process, &status, 0);
  return status;
}

class Association : public testing::Test {
 protected:
  void Publish(const std::string& program = "/opt/lorelin/lorelin") {
    association.Publish({.programFile = program, .programDrawing = "<svg/>", .scriptDrawing = "<svg></svg>"});
  }
  // As a package installs it, whose program is returned.
  std::string Install(const std::string& prefix) {
    std::filesystem::create_directories(folder.File(prefix + "/share/applications"));
    WriteFile(folder.File(prefix + "/share/applications/lorelin.desktop"), "");
    return folder.File(prefix + "/bin/lorelin");
  }
  std::string Entry() { return ReadFile(folder.File("applications/lorelin.desktop")); }

  TemporaryFolder folder;
  AtomicFileWriter files;
  FakeProgramLauncher launcher;
  FakeLog log;
  XdgFileAssociation association{folder.Path(), folder.File("usr/share"), files, launcher, log};
};

TEST_F(Association, WritesEntryTypeAndDrawings) {
  Publish();
  EXPECT_NE(Entry().find("Exec=\"/opt/lorelin/lorelin\" %f\n"), std::string::npos);
  EXPECT_NE(Entry().find("MimeType=application/x-lorelin-vts;"), std::string::npos);
  EXPECT_NE(ReadFile(folder.File("mime/packages/lorelin.xml")).find("*.vts"), std::string::npos);
  EXPECT_EQ(ReadFile(folder.File("icons/hicolor/scalable/apps/lorelin.svg")), "<svg/>");
  EXPECT_EQ(launcher.started, (std::vector<std::vector<std::string>>{
                                  {"update-mime-database", folder.File("mime")},
                                  {"update-desktop-database", folder.File("applications")}}));
}

TEST_F(Association, OffersWhatIsSelectedAsAnActionOfTheEntry) {
  Publish();
  EXPECT_NE(Entry().find("Actions=NewText;ReadSelection;\n"), std::string::npos);
  EXPECT_NE(Entry().find("Exec=\"/opt/lorelin/lorelin\" --auswahl\n"), std::string::npos);
}

TEST_F(Association, WritesAnEntryForTheMenusOfFiles) {
  Publish();
  const std::string menu = folder.File("kio/servicemenus/lorelin.desktop");
  EXPECT_NE(ReadFile(menu).find("Exec=\"/opt/lorelin/lorelin\" --auswahl %F\n"), std::string::npos);
  EXPECT_NE(std::filesystem::status(menu).permissions() & std::filesystem::perms::owner_exec,
            std::filesystem::perms::none);
  EXPECT_FALSE(std::filesystem::exists(folder.File("nautilus")));
}

// Run as the file manager does it, with a program in a folder that a shell would take apart.
TEST_F(Association, WritesAScriptForTheFileManagerThatTakesScripts) {
  std::filesystem::create_directories(folder.File("nautilus"));
  std::filesystem::create_directories(folder.File("it's $HOME"));
  const std::string program = folder.File("it's $HOME/lorelin");
  WriteFile(program, "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"$0.called\"\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  Publish(program);
  const std::string script = folder.File("nautilus/scripts/Mit Lorelin vorlesen");
  ASSERT_EQ(StatusOf({script, "/tmp/a b.txt", "/tmp/$c.txt"}), 0);
  EXPECT_EQ(ReadFile(program + ".called"), "--auswahl\n/tmp/a b.txt\n/tmp/$c.txt\n");
}

TEST_F(Association, WritesNothingTheSecondTime) {
  Publish();
  launcher.started.clear();
  const auto before = std::filesystem::last_write_time(folder.File("applications/lorelin.desktop"));
  Publish();
  EXPECT_TRUE(launcher.started.empty());
  EXPECT_EQ(std::filesystem::last_write_time(folder.File("applications/lorelin.desktop")), before);
}

TEST_F(Association, FollowsAProgramThatMoved) {
  Publish();
  launcher.started.clear();
  Publish("/home/müller/mit Leer \"und\" $x/lorelin");
  EXPECT_NE(Entry().find("Exec=\"/home/müller/mit Leer \\\\\"und\\\\\" \\\\$x/lorelin\" %f\n"),
            std::string::npos);
  EXPECT_EQ(launcher.started.size(), 1U);
}

TEST_F(Association, DoesWithoutTheTools) {
  launcher.error = ErrorNumber::FileNotFound;
  Publish();
  EXPECT_FALSE(Entry().empty());
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(Association, LogsAFolderThatCannotBeWritten) {
  WriteFile(folder.File("icons"), "");
  Publish();
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(Association, PublishesNothingWithoutAFolder) {
  XdgFileAssociation none("", "", files, launcher, log);
  none.Publish({.programFile = "/x", .programDrawing = "", .scriptDrawing = ""});
  EXPECT_TRUE(launcher.started.empty());
}

TEST_F(Association, LeavesTheDesktopToThePackage) {
  Publish(Install("usr"));
  EXPECT_TRUE(launcher.started.empty());
  EXPECT_FALSE(std::filesystem::exists(folder.File("applications")));
  EXPECT_FALSE(std::filesystem::exists(folder.File("mime")));
}

TEST_F(Association, PublishesAProgramThatIsInstalledWhereNoDesktopLooks) {
  Publish(Install("opt"));
  EXPECT_FALSE(Entry().empty());
}

TEST_F(Association, WritesTheFileManagersScriptForAPackageToo) {
  std::filesystem::create_directories(folder.File("nautilus"));
  Publish(Install("usr"));
  EXPECT_TRUE(std::filesystem::exists(folder.File("nautilus/scripts/Mit Lorelin vorlesen")));
}

TEST_F(Association, RemovesTheEntriesOfAProgramThatThePackageReplaced) {
  Publish(folder.File("unpacked/lorelin"));
  Publish(Install("usr"));
  EXPECT_FALSE(std::filesystem::exists(folder.File("applications/lorelin.desktop")));
  EXPECT_FALSE(std::filesystem::exists(folder.File("mime/packages/lorelin.xml")));
  EXPECT_FALSE(std::filesystem::exists(folder.File("kio/servicemenus/lorelin.desktop")));
}

TEST_F(Association, KeepsTheEntriesOfAnotherProgramThatIsStillThere) {
  WriteFile(folder.File("other"), "");
  Publish(folder.File("other"));
  Publish(Install("usr"));
  EXPECT_FALSE(Entry().empty());
}

TEST_F(Association, KeepsTheEntryThatTheUserWroteHimself) {
  std::filesystem::create_directories(folder.File("applications"));
  WriteFile(folder.File("applications/lorelin.desktop"), "[Desktop Entry]\nExec=lorelin /t\n");
  Publish(Install("usr"));
  EXPECT_FALSE(Entry().empty());
}

}  // namespace
}  // namespace lorelin
