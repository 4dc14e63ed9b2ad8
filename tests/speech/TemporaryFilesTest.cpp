#include "base/RuntimeError.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

class TemporaryFiles : public SpeechFixture {};

TEST_F(TemporaryFiles, BearTheNumberInTheTempFolder) {
  speech.SetWaveFile("");
  const std::string path = speech.TempWavPath();
  EXPECT_TRUE(path.starts_with(folder.File("temp/")));
  const int number = std::stoi(path.substr(folder.File("temp/").size()));
  EXPECT_GE(number, 1);
  EXPECT_LE(number, 31000);
  EXPECT_TRUE(path.ends_with(std::to_string(number) + ".wav"));
}

TEST_F(TemporaryFiles, GiveWayToTheNextOne) {
  speech.SetWaveFile("");
  const std::string first = speech.TempWavPath();
  WriteFile(first, "RIFF");
  speech.SetWaveFile("");
  EXPECT_FALSE(std::filesystem::exists(first));
}

TEST_F(TemporaryFiles, AreClearedButNothingElse) {
  WriteFile(folder.File("temp/1.wav"), "x");
  WriteFile(folder.File("temp/alt.txt"), "x");
  WriteFile(folder.File("draussen.txt"), "x");
  fileSearch.names = {"1.wav", "alt.txt", "fehlt.wav"};
  speech.ClearTempFolder();
  EXPECT_EQ(fileSearch.patterns.back(), folder.File("temp/*.*"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("temp")));
  EXPECT_TRUE(std::filesystem::exists(folder.File("draussen.txt")));
}

TEST_F(TemporaryFiles, AreNotFollowedWhereTheyAreLinks) {
  WriteFile(folder.File("draussen.txt"), "x");
  WriteFile(folder.File("temp/1.wav"), "x");
  std::error_code error;
  std::filesystem::create_symlink(folder.File("draussen.txt"), folder.File("temp/link.wav"), error);
  if (error) GTEST_SKIP() << "this system has no such links";
  fileSearch.names = {"1.wav", "link.wav"};
  speech.ClearTempFolder();
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("temp")));
  EXPECT_TRUE(std::filesystem::exists(folder.File("draussen.txt")));
}

TEST_F(TemporaryFiles, ClearingSurvivesAMissingFolder) {
  speech.ClearTempFolder();
  EXPECT_TRUE(log.lines.empty());
}

class RandomBetween : public SpeechFixture {};

TEST_F(RandomBetween, StaysWithinTheBoundsAndReachesThem) {
  bool low = false;
  bool high = false;
  for (int i = 0; i < 2000; ++i) {
    const std::int32_t number = speech.RandomBetween(1, 4);
    ASSERT_GE(number, 1);
    ASSERT_LE(number, 4);
    low = low || number == 1;
    high = high || number == 4;
  }
  EXPECT_TRUE(low);
  EXPECT_TRUE(high);
}

TEST_F(RandomBetween, NeverLeavesTheRangeOfTheTemporaryFiles) {
  for (int i = 0; i < 5000; ++i) {
    const std::int32_t number = speech.RandomBetween(1, 31000);
    ASSERT_GE(number, 1);
    ASSERT_LE(number, 31000);
  }
}

TEST_F(RandomBetween, DrawsTheBoundsHalfAsOften) {
  int low = 0;
  int inner = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::int32_t number = speech.RandomBetween(0, 10);
    if (number == 0) ++low;
    if (number == 5) ++inner;
  }
  EXPECT_NEAR(low, 1000, 200);
  EXPECT_NEAR(inner, 2000, 300);
}

TEST_F(RandomBetween, ReportsASpanThatOverflows) {
  EXPECT_THROW((void)speech.RandomBetween(-2000000000, 2000000000), RuntimeError);
}

}  // namespace
}  // namespace lorelin
