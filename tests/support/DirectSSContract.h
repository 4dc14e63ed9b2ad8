#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "ports/DirectSS.h"

namespace lorelin {

// An engine instance under test and how to let time pass for it.
class EngineUnderTest {
 public:
  virtual ~EngineUnderTest() = default;
  virtual DirectSS& Instance() = 0;
  // Lets the current text come to its end; false when it does not within a minute.
  virtual bool RunToTheEnd() = 0;
  // A file that the instance can render into.
  virtual std::string WavePath() = 0;
  // What this machine lacks to try the engine; "" when nothing.
  virtual std::string Lacking() { return {}; }
  // The same of an instance that plays.
  virtual std::string FileToRender() { return WavePath(); }
};

// What every engine does. The parameter makes one that renders or plays without a listener.
class DirectSSContract : public testing::TestWithParam<std::unique_ptr<EngineUnderTest> (*)()> {
 protected:
  void SetUp() override {
    if (const std::string lacking = subject->Lacking(); !lacking.empty()) GTEST_SKIP() << lacking;
    engine.OnEndOfText([this](const EndOfText& end) {
      ++ends;
      last = end;
    });
  }

  std::unique_ptr<EngineUnderTest> subject = GetParam()();
  DirectSS& engine = subject->Instance();
  int ends = 0;
  EndOfText last;
};

TEST_P(DirectSSContract, HasVoicesWithNameLanguageAndGender) {
  ASSERT_GE(engine.VoiceCount(), 2);
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    EXPECT_NE(engine.VoiceName(number), "") << number;
    EXPECT_TRUE(engine.VoiceGender(number) >= 0 && engine.VoiceGender(number) <= 2) << number;
  }
}

TEST_P(DirectSSContract, SpeaksGermanWithTheDefaultVoice) {
  EXPECT_EQ(engine.VoiceLanguage(1), 1031);
  EXPECT_EQ(engine.VoiceLanguage(2), 1031);
}

TEST_P(DirectSSContract, HasNothingToTellOfAVoiceThatDoesNotExist) {
  for (const std::int32_t number : {0, -1, engine.VoiceCount() + 1}) {
    EXPECT_EQ(engine.VoiceName(number), "");
    EXPECT_EQ(engine.VoiceLanguage(number), 0);
    EXPECT_EQ(engine.VoiceGender(number), 0);
    engine.SetCurrentVoice(number);
  }
}

TEST_P(DirectSSContract, TakesValuesOutsideTheRangesForTheBounds) {
  engine.SetPitch(-1000000);
  EXPECT_EQ(engine.Pitch(), engine.MinPitch());
  engine.SetPitch(1000000);
  EXPECT_EQ(engine.Pitch(), engine.MaxPitch());
  engine.SetSpeed(-1000000);
  EXPECT_EQ(engine.Speed(), engine.MinSpeed());
  engine.SetSpeed(1000000);
  EXPECT_EQ(engine.Speed(), engine.MaxSpeed());
  engine.SetVolumeLeft(1000000);
  engine.SetVolumeRight(-1000000);
  EXPECT_EQ(engine.VolumeLeft(), engine.MaxVolume());
  EXPECT_EQ(engine.VolumeRight(), engine.MinVolume());
}

TEST_P(DirectSSContract, IsSilentUntilItIsGivenAText) {
  EXPECT_FALSE(engine.Speaking());
}

TEST_P(DirectSSContract, TellsTheEndOfATextOnce) {
  engine.SetWaveFile(subject->WavePath());
  engine.Speak("Guten Tag.");
  EXPECT_TRUE(engine.Speaking());
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_FALSE(engine.Speaking());
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(last.complete);
  EXPECT_EQ(last.reason, "");
}

TEST_P(DirectSSContract, IsStillSpeakingWhilePaused) {
  engine.SetWaveFile(subject->WavePath());
  engine.PauseAudio();
  engine.Speak("Guten Tag.");
  engine.PauseAudio();
  EXPECT_TRUE(engine.Speaking());
  engine.ResumeAudio();
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
}

TEST_P(DirectSSContract, DiscardsWithoutTellingAnEnd) {
  engine.SetWaveFile(subject->WavePath());
  engine.Speak("Guten Tag.");
  engine.ResetAudio();
  EXPECT_FALSE(engine.Speaking());
  EXPECT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 0);
}

TEST_P(DirectSSContract, SpeaksAgainAfterAReset) {
  engine.SetWaveFile(subject->WavePath());
  engine.Speak("Das hört niemand.");
  engine.ResetAudio();
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
}

TEST_P(DirectSSContract, LetsANewTextTakeThePlaceOfTheOld) {
  engine.SetWaveFile(subject->WavePath());
  engine.Speak("Erster Text.");
  engine.Speak("Zweiter Text.");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
}

TEST_P(DirectSSContract, TellsTheEndOfAnEmptyText) {
  engine.SetWaveFile(subject->WavePath());
  engine.Speak("");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(last.complete);
}

TEST_P(DirectSSContract, TellsOneEndOfATextInParts) {
  engine.SetWaveFile(subject->WavePath());
  engine.SpeakBeginning("Guten Tag. ");
  engine.ContinueText("Guten Abend. ", false);
  EXPECT_TRUE(engine.Speaking());
  engine.ContinueText("", true);
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(last.complete);
}

TEST_P(DirectSSContract, WaitsForTheRestOfAText) {
  engine.SetWaveFile(subject->WavePath());
  engine.SpeakBeginning("");
  EXPECT_TRUE(engine.Speaking());
  engine.ContinueText("Guten Tag.", true);
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
}

TEST_P(DirectSSContract, DropsPartsOfADiscardedText) {
  engine.SetWaveFile(subject->WavePath());
  engine.SpeakBeginning("Guten Tag. ");
  engine.ResetAudio();
  engine.ContinueText("Das hört niemand.", true);
  EXPECT_FALSE(engine.Speaking());
  engine.Speak("Guten Abend.");
  engine.ContinueText("Das hört auch niemand.", true);
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 1);
}

TEST_P(DirectSSContract, KeepsQuietWhenNobodyListens) {
  engine.SetWaveFile(subject->WavePath());
  engine.OnEndOfText({});
  engine.Speak("Guten Tag.");
  EXPECT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(ends, 0);
}

}  // namespace lorelin
