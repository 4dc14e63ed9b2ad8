#include "platform/common/abandonedRuns.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "platform/common/UnfinishedList.h"

#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

TEST(AbandonedRuns, GoOnceNobodyUsesThem) {
  const TemporaryFolder cache;
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  const std::string dead = cache.File("run-" + std::to_string(child));
  const std::string own = cache.File("run-" + std::to_string(getpid()));
  for (const std::string& folder : {dead, own, cache.File("run-neu"), cache.File("filter")}) {
    std::filesystem::create_directories(folder + "/temp");
    WriteFile(folder + "/temp/1.wav", "x");
  }
  RemoveAbandonedRuns(cache.Path());
  EXPECT_FALSE(std::filesystem::exists(dead));
  EXPECT_TRUE(std::filesystem::exists(own + "/temp/1.wav"));
  EXPECT_TRUE(std::filesystem::exists(cache.File("run-neu/temp/1.wav")));
  EXPECT_TRUE(std::filesystem::exists(cache.File("filter/temp/1.wav")));
}

TEST(AbandonedRuns, NeedNoCacheFolder) {
  const TemporaryFolder folder;
  RemoveAbandonedRuns(folder.File("fehlt"));
}

class Unfinished : public testing::Test {
 protected:
  // A process that begins these files and is killed.
  void KillOneWith(const std::vector<std::string>& files) {
    const pid_t child = fork();
    if (child == 0) {
      UnfinishedList list(cache.Path());
      for (const std::string& file : files) list.Add(file);
      raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
    for (const std::string& file : files) WriteFile(file, "halb");
  }
  [[nodiscard]] bool IsThere(const std::string& file) const { return std::filesystem::exists(file); }

  TemporaryFolder cache;
  TemporaryFolder folder;
};

TEST_F(Unfinished, FilesOfAKilledProcessGoWithTheNextOne) {
  const std::vector<std::string> files{folder.File(".part-ä\nb.mp3"), folder.File(".part-buch.epub.1.mp3")};
  KillOneWith(files);
  WriteFile(folder.File(".part-fremd.mp3"), "von einem anderen Programm");
  UnfinishedList next(cache.Path());
  EXPECT_TRUE(IsThere(files[0]));
  WriteFile(folder.File(".part-.part-buch.epub.1.mp3"), "der Stimme");
  next.Add(folder.File(".part-neu.mp3"));
  EXPECT_FALSE(IsThere(files[0]));
  EXPECT_FALSE(IsThere(files[1]));
  EXPECT_FALSE(IsThere(folder.File(".part-.part-buch.epub.1.mp3")));
  EXPECT_TRUE(IsThere(folder.File(".part-fremd.mp3")));
}

TEST_F(Unfinished, FilesStayThatALivingProcessMakesAgain) {
  const std::string file = folder.File(".part-a.mp3");
  UnfinishedList living(cache.Path());
  living.Add(file);
  KillOneWith({file});
  RemoveAbandonedRuns(cache.Path());
  EXPECT_TRUE(IsThere(file));
}

TEST_F(Unfinished, FilesAreOnlyThoseThatAreNamedSo) {
  const std::string file = folder.File("brief.mp3");
  const std::string link = folder.File(".part-link.mp3");
  std::filesystem::create_symlink(folder.File("anderes.mp3"), link);
  KillOneWith({file, link});
  RemoveAbandonedRuns(cache.Path());
  EXPECT_TRUE(IsThere(file));
  EXPECT_TRUE(IsThere(link));
}

TEST_F(Unfinished, FilesLeaveNoListBehind) {
  {
    UnfinishedList list(cache.Path());
    list.Add(folder.File(".part-a.mp3"));
    EXPECT_FALSE(std::filesystem::is_empty(cache.Path()));
    list.Remove(folder.File(".part-a.mp3"));
    EXPECT_TRUE(std::filesystem::is_empty(cache.Path()));
    list.Add(folder.File(".part-b.mp3"));
  }
  EXPECT_TRUE(std::filesystem::is_empty(cache.Path()));
  KillOneWith({folder.File(".part-c.mp3")});
  RemoveAbandonedRuns(cache.Path());
  EXPECT_TRUE(std::filesystem::is_empty(cache.Path()));
}

TEST_F(Unfinished, FilesNeedNoFolderThatCanBeMade) {
  WriteFile(cache.File("datei"), "x");
  UnfinishedList list(cache.File("datei/cache"));
  list.Add(folder.File(".part-a.mp3"));
}

}  // namespace
}  // namespace lorelin
