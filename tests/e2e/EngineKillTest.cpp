#include <dirent.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>

#include "tests/support/RealEngine.h"

namespace lorelin {
namespace {

int CountOpenFiles() {
  int count = 0;
  DIR* const folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

// Engines whose parent is this process.
int CountChildren() {
  int count = 0;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
    std::ifstream children(thread.path() / "children");
    for (int process = 0; children >> process;) ++count;
  }
  return count;
}

std::string LongText() {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "Ein langer Text, der nicht enden will. ";
  return text;
}

TEST(KilledEngine, TwoHundredTimesAtRandomMomentsNeverCostsMoreThanTheText) {
  std::mt19937 random(20261003);
  std::uniform_int_distribution<int> delay(0, 30);
  const std::string text = LongText();
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  RealEngine real(true);
  (void)real.engine.VoiceCount();
  const int filesBefore = CountOpenFiles();
  for (int i = 0; i < 200; ++i) {
    real.clock.steady += std::chrono::minutes(5);
    real.ends.clear();
    const bool playing = i % 2 == 0;
    real.engine.SetWaveFile(playing ? "" : real.folder.File("lang.wav"));
    real.engine.Speak(text);
    const auto moment = std::chrono::steady_clock::now() + std::chrono::milliseconds(delay(random));
    while (std::chrono::steady_clock::now() < moment) real.pump.WaitForEvents();
    kill(real.engine.ProcessId(), SIGKILL);
    ASSERT_TRUE(real.WaitForEnd()) << i;
    ASSERT_FALSE(real.ends[0].complete) << i;
    ASSERT_FALSE(std::ifstream(real.folder.File("lang.wav"))) << i;
    const auto begin = std::chrono::steady_clock::now();
    real.engine.SetWaveFile(real.folder.File("kurz.wav"));
    real.engine.Speak("Ja.");
    ASSERT_TRUE(real.WaitForEnd(2)) << i;
    ASSERT_TRUE(real.ends[1].complete) << i;
    ASSERT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << i;
  }
  EXPECT_EQ(CountChildren(), 1);
  EXPECT_EQ(CountOpenFiles(), filesBefore);
}

}  // namespace
}  // namespace lorelin
