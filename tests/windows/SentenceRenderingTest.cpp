#include "platform/windows/SentenceRendering.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "base/paths.h"
#include "engine/waveHeader.h"
#include "tests/support/FakeDirectSS.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

constexpr std::uint32_t kRate = 16000;

std::string Wave(const std::vector<std::int16_t>& samples, std::uint32_t rate = kRate) {
  std::string bytes = engine::WaveHeader(rate, static_cast<std::uint32_t>(samples.size() * 2));
  bytes.append(reinterpret_cast<const char*>(samples.data()), samples.size() * 2);
  return bytes;
}

// A tone with silence around it.
std::vector<std::int16_t> Tone(milliseconds before, milliseconds length, milliseconds behind,
                               std::uint32_t rate = kRate) {
  const auto count = [rate](milliseconds time) {
    return static_cast<std::size_t>(time.count()) * rate / 1000;
  };
  std::vector<std::int16_t> samples(count(before));
  for (std::size_t i = 0; i < count(length); ++i) {
    samples.push_back(static_cast<std::int16_t>(8000 * std::cos(static_cast<double>(i) * 0.2)));
  }
  samples.resize(samples.size() + count(behind));
  return samples;
}

class Sentences : public testing::Test {
 protected:
  Sentences() { utterance.waveFile = folder.File("ganz.wav"); }

  void Begin(std::string_view text, bool last = true) {
    rendering = std::make_unique<SentenceRendering>(
        engine, utterance,
        SentenceRendering::Handlers{.word = [this](const HeardWord& word) { words.push_back(word); },
                                    .end = [this](const EndOfText& end) { ends.push_back(end); }});
    rendering->Add(text, last);
    rendering->Turn();
  }
  // The engine has rendered the sentence that it was given.
  void Render(const std::string& wave) {
    WriteFile(engine.renderedTo, wave);
    engine.Finish();
    rendering->Turn();
  }
  [[nodiscard]] std::size_t Files() const {
    const auto files = std::filesystem::directory_iterator(NativePath(folder.Path()));
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  TemporaryFolder folder;
  CallLog log;
  FakeDirectSS engine{"engine", log};
  engine::Utterance utterance;
  std::unique_ptr<SentenceRendering> rendering;
  std::vector<HeardWord> words;
  std::vector<EndOfText> ends;
};

TEST_F(Sentences, BecomeOneFile) {
  Begin("Eins. Zwei.");
  EXPECT_EQ(engine.SpokenText(), "Eins. ");
  Render(Wave(Tone({}, milliseconds(300), {})));
  EXPECT_EQ(engine.SpokenText(), "Zwei.");
  EXPECT_TRUE(ends.empty());
  Render(Wave(Tone({}, milliseconds(200), {})));
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_TRUE(ends[0].complete);
  EXPECT_EQ(ends[0].length, milliseconds(500));
  EXPECT_EQ(std::filesystem::file_size(NativePath(utterance.waveFile)), 44U + kRate);
  EXPECT_EQ(ReadFile(utterance.waveFile), Wave([] {
              auto all = Tone({}, milliseconds(300), {});
              const auto second = Tone({}, milliseconds(200), {});
              all.insert(all.end(), second.begin(), second.end());
              return all;
            }()));
  EXPECT_EQ(Files(), 1U);
}

TEST_F(Sentences, HaveTheirWordsWhereTheyAreHeard) {
  Begin(
      "Eins zwei. D\x01"
      "rei.");
  Render(Wave(Tone(milliseconds(100), milliseconds(400), milliseconds(500))));
  Render(Wave(Tone(milliseconds(50), milliseconds(200), {})));
  EXPECT_EQ(words, (std::vector<HeardWord>{
                       {0, 4, milliseconds(100)}, {5, 9, milliseconds(300)}, {11, 16, milliseconds(1050)}}));
}

TEST_F(Sentences, WaitForTheRestOfTheLastOne) {
  Begin("Eins. Zw", false);
  Render(Wave(Tone({}, milliseconds(100), {})));
  EXPECT_FALSE(engine.Speaking());
  rendering->Add("ei. Drei.", true);
  rendering->Turn();
  EXPECT_EQ(engine.SpokenText(), "Zwei. ");
  Render(Wave(Tone({}, milliseconds(100), {})));
  EXPECT_EQ(engine.SpokenText(), "Drei.");
  Render(Wave(Tone({}, milliseconds(100), {})));
  ASSERT_EQ(words.size(), 3U);
  EXPECT_EQ(words[1], (HeardWord{6, 10, milliseconds(100)}));
}

TEST_F(Sentences, OfAnotherRateAreFitted) {
  Begin("Eins. Zwei.");
  Render(Wave(Tone({}, milliseconds(100), {})));
  Render(Wave(Tone({}, milliseconds(1000), {}, 48000), 48000));
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_NEAR(static_cast<double>(ends[0].length.count()), 1100, 2);
}

TEST_F(Sentences, AreSpokenAsTheUserWants) {
  utterance.voice = 3;
  utterance.pitch = 11;
  utterance.speed = 22;
  utterance.volumeLeft = 33;
  Begin("Eins.");
  EXPECT_EQ(engine.CurrentVoice(), 3);
  EXPECT_EQ(engine.Pitch(), 11);
  EXPECT_EQ(engine.Speed(), 22);
  EXPECT_EQ(engine.VolumeLeft(), 33);
}

TEST_F(Sentences, WithoutSoundLeaveAFileAllTheSame) {
  Begin(" \n");
  engine.Finish();
  rendering->Turn();
  rendering->Turn();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_TRUE(ends[0].complete);
  EXPECT_TRUE(std::filesystem::exists(NativePath(utterance.waveFile)));
}

TEST_F(Sentences, ThatTheEngineCannotSpeakEndTheText) {
  WriteFile(utterance.waveFile, "alt");
  Begin("Eins. Zwei.");
  Render(Wave(Tone({}, milliseconds(100), {})));
  engine.Finish({.complete = false, .reason = "Kaputt.", .length = {}});
  rendering->Turn();
  rendering->Turn();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
  EXPECT_EQ(ends[0].reason, "Kaputt.");
  EXPECT_EQ(ReadFile(utterance.waveFile), "alt");
  EXPECT_EQ(Files(), 1U);
}

TEST_F(Sentences, ThatAreNoSoundEndTheText) {
  Begin("Eins.");
  Render("kein Ton");
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
  EXPECT_EQ(Files(), 0U);
}

TEST_F(Sentences, CannotTakeThePlaceOfAFolder) {
  std::filesystem::create_directory(NativePath(utterance.waveFile));
  Begin("Eins.");
  Render(Wave(Tone({}, milliseconds(100), {})));
  rendering->Turn();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
  EXPECT_NE(ends[0].reason, "");
}

TEST_F(Sentences, ThatAreGivenUpLeaveNothing) {
  Begin("Eins. Zwei.");
  Render(Wave(Tone({}, milliseconds(100), {})));
  WriteFile(engine.renderedTo, "halb");
  rendering.reset();
  EXPECT_FALSE(engine.Speaking());
  EXPECT_TRUE(ends.empty());
  EXPECT_EQ(Files(), 0U);
}

}  // namespace
}  // namespace lorelin
