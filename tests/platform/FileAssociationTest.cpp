#include <gtest/gtest.h>

#include <filesystem>

#include "platform/common/AtomicFileWriter.h"
#include "platform/linux/XdgFileAssociation.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class Association : public testing::Test {
 protected:
  void Publish(const std::string& program = "/opt/lorelin/lorelin") {
    association.Publish({.programFile = program, .programDrawing = "<svg/>", .scriptDrawing = "<svg></svg>"});
  }
  std::string Entry() { return ReadFile(folder.File("applications/lorelin.desktop")); }

  TemporaryFolder folder;
  AtomicFileWriter files;
  FakeProgramLauncher launcher;
  FakeLog log;
  XdgFileAssociation association{folder.Path(), files, launcher, log};
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
  XdgFileAssociation none("", files, launcher, log);
  none.Publish({.programFile = "/x", .programDrawing = "", .scriptDrawing = ""});
  EXPECT_TRUE(launcher.started.empty());
}

}  // namespace
}  // namespace lorelin
