#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "base/RuntimeError.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

class FileWriterTest : public testing::Test {
 protected:
  std::int32_t Refusal(const std::string& path, std::string_view bytes = "neu") {
    try {
      writer.Replace(path, bytes);
      return 0;
    } catch (const RuntimeError& error) {
      return error.Number();
    }
  }
  std::size_t FilesInFolder() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()));
  }

  TemporaryFolder folder;
  AtomicFileWriter writer;
};

TEST_F(FileWriterTest, CreatesAndReplaces) {
  const std::string bytes("a\0b\r\n\xFF", 6);
  writer.Replace(folder.File("a.txt"), bytes);
  EXPECT_EQ(ReadFile(folder.File("a.txt")), bytes);
  writer.Replace(folder.File("a.txt"), "");
  EXPECT_EQ(ReadFile(folder.File("a.txt")), "");
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(FileWriterTest, GivesANewFileThePermissionsOfTheUser) {
  const mode_t mask = umask(027);
  writer.Replace(folder.File("a.txt"), "x");
  umask(mask);
  EXPECT_EQ(fs::status(folder.File("a.txt")).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(FileWriterTest, KeepsThePermissionsOfAFile) {
  WriteFile(folder.File("a.txt"), "alt");
  fs::permissions(folder.File("a.txt"), static_cast<fs::perms>(0604));
  writer.Replace(folder.File("a.txt"), "neu");
  EXPECT_EQ(fs::status(folder.File("a.txt")).permissions(), static_cast<fs::perms>(0604));
}

TEST_F(FileWriterTest, WritesThroughALink) {
  WriteFile(folder.File("ziel.txt"), "alt");
  fs::create_symlink("ziel.txt", folder.File("link.txt"));
  writer.Replace(folder.File("link.txt"), "neu");
  EXPECT_TRUE(fs::is_symlink(folder.File("link.txt")));
  EXPECT_EQ(ReadFile(folder.File("ziel.txt")), "neu");
}

TEST_F(FileWriterTest, TakesEitherSeparator) {
  fs::create_directory(folder.File("unten"));
  writer.Replace(folder.Path() + "\\unten\\a.txt", "x");
  EXPECT_EQ(ReadFile(folder.File("unten/a.txt")), "x");
}

TEST_F(FileWriterTest, TellsWhyItCannotWrite) {
  EXPECT_EQ(Refusal(""), 52);
  EXPECT_EQ(Refusal(folder.File("fehlt/a.txt")), 76);
  EXPECT_EQ(Refusal(folder.Path()), 75);
  EXPECT_EQ(Refusal("/dev/null"), 75);
  EXPECT_EQ(Refusal(folder.File(std::string(300, 'x'))), 52);
  EXPECT_EQ(FilesInFolder(), 0U);
}

// In a child, since nothing allows more again.
TEST_F(FileWriterTest, KeepsTheOldFileWhenThereIsNoRoom) {
  WriteFile(folder.File("a.txt"), "alt");
  const pid_t child = fork();
  if (child == 0) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    _exit(Refusal(folder.File("a.txt"), std::string(100000, 'x')));
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 61);
  EXPECT_EQ(ReadFile(folder.File("a.txt")), "alt");
  EXPECT_EQ(FilesInFolder(), 1U);
}

// Likewise, since root may write everywhere.
TEST_F(FileWriterTest, RefusesWhatTheUserMayNotWrite) {
  WriteFile(folder.File("a.txt"), "alt");
  fs::permissions(folder.File("a.txt"), static_cast<fs::perms>(0444));
  fs::permissions(folder.Path(), static_cast<fs::perms>(0777));
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(99);
    _exit(Refusal(folder.File("a.txt")));
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 70);
  EXPECT_EQ(ReadFile(folder.File("a.txt")), "alt");
}

TEST_F(FileWriterTest, PutsPiecesTogether) {
  WriteFile(folder.File("stueck"), std::string(9 << 20, 'x'));
  const std::vector<FilePiece> pieces{
      {.bytes = "vorn "}, {.file = folder.File("stueck")}, {.bytes = " hinten"}};
  writer.Join(folder.File("ganz"), pieces);
  EXPECT_EQ(ReadFile(folder.File("ganz")), "vorn " + std::string(9 << 20, 'x') + " hinten");
}

TEST_F(FileWriterTest, LeavesWhatWasThereWhenAPieceIsMissing) {
  WriteFile(folder.File("ganz"), "alt");
  const std::vector<FilePiece> pieces{{.bytes = "vorn "}, {.file = folder.File("fehlt")}};
  EXPECT_THROW(writer.Join(folder.File("ganz"), pieces), RuntimeError);
  EXPECT_EQ(ReadFile(folder.File("ganz")), "alt");
  EXPECT_EQ(FilesInFolder(), 1U);
}

}  // namespace
}  // namespace lorelin
