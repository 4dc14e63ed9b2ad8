#include "speech/SilentVoice.h"

#include <gtest/gtest.h>

#include "tests/support/FakeDirectSS.h"

namespace lorelin {
namespace {

TEST(SilentVoice, HasTheVoicesAndRangesOfItsLeader) {
  CallLog log;
  FakeDirectSS leader("Leader", log);
  leader.speedRange = {80, 450};
  SilentVoice silent(leader);
  EXPECT_EQ(silent.VoiceCount(), 3);
  EXPECT_EQ(silent.VoiceName(2), "Deutsch (weiblich)");
  EXPECT_EQ(silent.MaxSpeed(), 450);
}

TEST(SilentVoice, KeepsPropertiesOfItsOwnWithinTheRanges) {
  CallLog log;
  FakeDirectSS leader("Leader", log);
  leader.speedRange = {80, 450};
  SilentVoice silent(leader);
  silent.SetSpeed(1000);
  EXPECT_EQ(silent.Speed(), 450);
  EXPECT_EQ(leader.Speed(), 0);
}

TEST(SilentVoice, ProducesNothingAndEndsWithItsLeader) {
  CallLog log;
  FakeDirectSS leader("Leader", log);
  SilentVoice silent(leader);
  bool ended = false;
  silent.OnEndOfText([&](const EndOfText&) { ended = true; });
  silent.Speak("x");
  silent.ResetAudio();
  EXPECT_TRUE(log.Entries().empty());
  EXPECT_FALSE(silent.Speaking());
  leader.Speak("x");
  EXPECT_TRUE(silent.Speaking());
  leader.Finish();
  EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace lorelin
