#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/DirectSSContract.h"

namespace lorelin {

// What an engine does that knows where the voice is. The parameter makes one that plays.
class HeardWordsContract : public testing::TestWithParam<std::unique_ptr<EngineUnderTest> (*)()> {
 protected:
  void SetUp() override {
    if (const std::string lacking = subject->Lacking(); !lacking.empty()) GTEST_SKIP() << lacking;
    engine.SetSpeed(engine.MaxSpeed());
    engine.OnWordHeard([this](const HeardWord& word) { words.push_back(word); });
    engine.OnEndOfText([this](const EndOfText&) { wordsAtTheEnd = words.size(); });
  }

  std::unique_ptr<EngineUnderTest> subject = GetParam()();
  DirectSS& engine = subject->Instance();
  std::vector<HeardWord> words;
  std::size_t wordsAtTheEnd = 0;
};

TEST_P(HeardWordsContract, TellsEveryWordBeforeTheEndInTheOrderOfTheText) {
  engine.Speak("Grüße & Küsse: 3,5 < 10 €, \U0001F600 „Öko-Anbau“.");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{
                       {0, 5}, {6, 7}, {8, 13}, {15, 18}, {21, 23}, {24, 25}, {27, 28}, {30, 39}}));
  EXPECT_EQ(wordsAtTheEnd, words.size());
}

TEST_P(HeardWordsContract, CountsInTheTextAsItWasGiven) {
  engine.Speak("\x01Guten \x02Tag\xFF.");
  ASSERT_TRUE(subject->RunToTheEnd());
  ASSERT_EQ(words.size(), 2U);
  EXPECT_EQ(words[0], (HeardWord{1, 6}));
  EXPECT_EQ(words[1].begin, 8U);
}

TEST_P(HeardWordsContract, CountsOnThroughTheParts) {
  engine.SpeakBeginning("Grüße. ");
  engine.ContinueText(" ", false);
  engine.ContinueText("Guten Tag.", true);
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 5}, {8, 13}, {14, 17}}));
}

TEST_P(HeardWordsContract, BeginsAnewWithEveryText) {
  engine.Speak("Das hört niemand.");
  engine.ResetAudio();
  words.clear();
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 5}, {6, 9}}));
}

TEST_P(HeardWordsContract, TellsNothingOfATextThatIsRendered) {
  engine.SetWaveFile(subject->FileToRender());
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(subject->RunToTheEnd());
  EXPECT_TRUE(words.empty());
}

}  // namespace lorelin
