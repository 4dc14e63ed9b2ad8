#include "platform/common/abandonedRuns.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

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

}  // namespace
}  // namespace lorelin
