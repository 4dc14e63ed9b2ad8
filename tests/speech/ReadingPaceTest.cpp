#include "speech/ReadingPace.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class ReadingPaceTest : public testing::Test {
 protected:
  // Words of five characters, two in a second.
  void Read(int words) {
    for (int i = 0; i < words; ++i) Word(milliseconds(500), 5);
  }
  void Word(milliseconds time, std::size_t characters, bool jumped = false) {
    now += time;
    character += characters;
    pace.Heard(now, character, jumped);
  }

  ReadingPace::Time now{seconds(1000)};
  std::size_t character = 0;
  ReadingPace pace;

  void SetUp() override { pace.Begin(now); }
};

TEST_F(ReadingPaceTest, KnowsNothingBeforeSomethingWasHeard) {
  EXPECT_EQ(pace.Gone(), seconds(0));
  EXPECT_EQ(pace.Left(100), std::nullopt);
  Read(3);
  EXPECT_EQ(pace.Left(100), std::nullopt);
}

TEST_F(ReadingPaceTest, GoesOnAsItWasHeard) {
  Read(21);
  EXPECT_EQ(pace.Gone(), seconds(10));
  EXPECT_EQ(pace.Left(100), seconds(10));
  EXPECT_EQ(pace.Left(0), seconds(0));
}

TEST_F(ReadingPaceTest, LeavesPausesOut) {
  Read(21);
  now += milliseconds(100);
  pace.Hold(now, true);
  now += seconds(600);
  pace.Hold(now, false);
  Word(milliseconds(400), 5);
  EXPECT_EQ(pace.Gone(), seconds(11));
  EXPECT_EQ(pace.Left(100), seconds(10));
}

TEST_F(ReadingPaceTest, DoesNotCountTheTimeThatTheComputerSlept) {
  Read(21);
  Word(seconds(36000), 5);
  EXPECT_LE(pace.Gone(), seconds(21));
}

TEST_F(ReadingPaceTest, TakesNoSkippedTextForHeard) {
  Read(21);
  Word(milliseconds(500), 100000, true);
  EXPECT_EQ(pace.Left(100), seconds(10));
  Word(milliseconds(500), 5);
  EXPECT_EQ(pace.Left(100), seconds(10));
}

TEST_F(ReadingPaceTest, MeasuresAnotherSpeedAnew) {
  Read(21);
  pace.ChangeSpeed();
  EXPECT_EQ(pace.Left(100), std::nullopt);
  for (int i = 0; i < 20; ++i) Word(milliseconds(250), 5);
  EXPECT_EQ(pace.Left(100), seconds(5));
}

TEST_F(ReadingPaceTest, FollowsAVoiceThatBecomesSlower) {
  Read(40);
  for (int i = 0; i < 400; ++i) Word(milliseconds(1000), 5);
  const auto left = pace.Left(100);
  ASSERT_TRUE(left.has_value());
  EXPECT_GE(*left, seconds(19));
}

TEST_F(ReadingPaceTest, BeginsAnewWithAnotherText) {
  Read(21);
  pace.Begin(now);
  EXPECT_EQ(pace.Gone(), seconds(0));
  EXPECT_EQ(pace.Left(100), std::nullopt);
}

}  // namespace
}  // namespace lorelin
