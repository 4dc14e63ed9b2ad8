#include <sndfile.h>
#include <sys/resource.h>

#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <numbers>
#include <string>
#include <vector>

#include "engine/EncodingQueue.h"
#include "engine/Resampler.h"
#include "engine/SoundFileWriter.h"
#include "engine/StreamResampler.h"
#include "engine/protocol.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin::engine {
namespace {

constexpr std::uint32_t kFileRate = 22050;

std::vector<std::int16_t> Tone(double hertz, double seconds, double rate = kFileRate) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds * rate));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(i) / rate;
    samples[i] = static_cast<std::int16_t>(std::lround(10000 * std::sin(angle)));
  }
  return samples;
}

struct DecodedSound {
  double seconds = 0;
  double loudness = 0;  // root of the mean square
  double hertz = 0;     // by the changes of sign
};

DecodedSound Decoded(const std::string& path) {
  SF_INFO info{};
  SNDFILE* const file = sf_open(path.c_str(), SFM_READ, &info);
  if (file == nullptr) return {};
  std::vector<std::int16_t> samples;
  std::vector<std::int16_t> block(4096);
  while (const auto count = sf_read_short(file, block.data(), 4096))
    samples.insert(samples.end(), block.begin(), block.begin() + count);
  sf_close(file);
  DecodedSound sound;
  sound.seconds = static_cast<double>(samples.size()) / info.samplerate;
  double sum = 0;
  int changes = 0;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    sum += static_cast<double>(samples[i]) * samples[i];
    changes += (samples[i - 1] < 0) != (samples[i] < 0) ? 1 : 0;
  }
  sound.loudness = std::sqrt(sum / static_cast<double>(samples.size()));
  sound.hertz = changes / 2.0 / sound.seconds;
  return sound;
}

class SoundFiles : public testing::TestWithParam<SoundFormat> {
 protected:
  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  TemporaryFolder folder;
  std::string path = folder.File("Grüße.ton");
};

INSTANTIATE_TEST_SUITE_P(Every, SoundFiles,
                         testing::Values(SoundFormat::Mp3, SoundFormat::Opus, SoundFormat::Vorbis,
                                         SoundFormat::Flac));

TEST_P(SoundFiles, HoldWhatWasWritten) {
  for (const SoundQuality quality : {SoundQuality::Small, SoundQuality::Usual, SoundQuality::High}) {
    SoundFileWriter file(path, kFileRate, GetParam(), quality);
    const auto tone = Tone(440, 3);
    for (std::size_t at = 0; at < tone.size(); at += 1000)
      ASSERT_TRUE(file.Write(std::span(tone).subspan(at, std::min<std::size_t>(1000, tone.size() - at))));
    ASSERT_TRUE(file.Finish()) << file.Problem();
    const DecodedSound sound = Decoded(path);
    EXPECT_NEAR(sound.seconds, 3, 0.08);
    EXPECT_NEAR(sound.loudness, 10000 / std::sqrt(2), 700);
    EXPECT_NEAR(sound.hertz, 440, 12);
    EXPECT_EQ(Files().size(), 1U);
  }
}

TEST_P(SoundFiles, TakeLessRoomTheLowerTheQuality) {
  std::vector<std::uintmax_t> sizes;
  for (const SoundQuality quality : {SoundQuality::Small, SoundQuality::Usual, SoundQuality::High}) {
    SoundFileWriter file(path, kFileRate, GetParam(), quality);
    ASSERT_TRUE(file.Write(Tone(440, 3)));
    ASSERT_TRUE(file.Finish());
    sizes.push_back(std::filesystem::file_size(path));
  }
  EXPECT_LE(sizes[0], sizes[1]);
  EXPECT_LE(sizes[1], sizes[2]);
}

TEST_P(SoundFiles, ThatAreNotFinishedLeaveWhatWasThere) {
  WriteFile(path, "alt");
  {
    SoundFileWriter file(path, kFileRate, GetParam(), SoundQuality::Usual);
    ASSERT_TRUE(file.Write(Tone(440, 1)));
  }
  EXPECT_EQ(ReadFile(path), "alt");
  EXPECT_EQ(Files().size(), 1U);
}

TEST_P(SoundFiles, CannotLieInAFolderThatIsNotThere) {
  SoundFileWriter file(folder.File("fehlt/a"), kFileRate, GetParam(), SoundQuality::Usual);
  EXPECT_EQ(file.Problem(), "Die Tondatei konnte nicht geschrieben werden. Den Ordner gibt es nicht.");
  EXPECT_FALSE(file.Write(Tone(440, 1)));
  EXPECT_FALSE(file.Finish());
}

// As a full disk ends it, in the middle and in the last bytes.
TEST_P(SoundFiles, ThatDoNotFitAreNoFiles) {
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  WriteFile(path, "alt");
  std::uintmax_t whole = 0;
  {
    SoundFileWriter file(folder.File("ganz"), kFileRate, GetParam(), SoundQuality::High);
    ASSERT_TRUE(file.Write(Tone(440, 30)));
    ASSERT_TRUE(file.Finish());
    whole = std::filesystem::file_size(folder.File("ganz"));
    std::filesystem::remove(folder.File("ganz"));
  }
  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  for (const std::uintmax_t most : {std::uintmax_t{100}, whole / 2, whole - 1}) {
    const rlimit small{most, old.rlim_max};
    SoundFileWriter file(path, kFileRate, GetParam(), SoundQuality::High);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool finished = file.Write(Tone(440, 30)) && file.Finish();
    setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_FALSE(finished) << most;
    EXPECT_NE(file.Problem().find("keine so große Datei"), std::string::npos) << file.Problem();
  }
  std::signal(SIGXFSZ, before);
  EXPECT_EQ(ReadFile(path), "alt");
  EXPECT_EQ(Files().size(), 1U);
}

TEST_P(SoundFiles, HoldNothingForNothing) {
  SoundFileWriter file(path, kFileRate, GetParam(), SoundQuality::Usual);
  EXPECT_TRUE(file.Finish()) << file.Problem();
  EXPECT_LT(Decoded(path).seconds, 0.2);
}

TEST(StreamResampler, GivesWhatTheWholeGives) {
  const auto tone = Tone(1000, 2);
  const std::vector<float> whole(tone.begin(), tone.end());
  for (const std::uint32_t to : {24000U, 48000U, 16000U, 11025U, 22050U}) {
    const auto expected = Resampled(whole, static_cast<double>(kFileRate) / to);
    for (const std::size_t block : {std::size_t{1}, std::size_t{777}, std::size_t{9000}, tone.size()}) {
      if (block == 1 && to != 24000) continue;  // it is slow
      StreamResampler resampler(kFileRate, to);
      std::vector<std::int16_t> samples;
      const auto add = [&](const std::vector<std::int16_t>& more) {
        samples.insert(samples.end(), more.begin(), more.end());
      };
      for (std::size_t at = 0; at < tone.size(); at += block)
        add(resampler.Next(std::span(tone).subspan(at, std::min(block, tone.size() - at))));
      add(resampler.Last());
      ASSERT_EQ(samples.size(), expected.size()) << to << " " << block;
      for (std::size_t i = 0; i < samples.size(); ++i) ASSERT_NEAR(samples[i], expected[i], 0.6) << i;
    }
  }
}

// What came in, and an end on demand.
class RecordingSink final : public SampleSink {
 public:
  explicit RecordingSink(std::vector<std::int16_t>& taken, std::size_t most = SIZE_MAX)
      : taken_(taken), most_(most) {}
  bool Write(std::span<const std::int16_t> samples) override {
    if (taken_.size() + samples.size() > most_) {
      problem_ = "Voll.";
      return false;
    }
    taken_.insert(taken_.end(), samples.begin(), samples.end());
    return true;
  }
  bool Finish() override { return problem_.empty(); }
  [[nodiscard]] std::string Problem() const override { return problem_; }

 private:
  std::vector<std::int16_t>& taken_;
  std::size_t most_;
  std::string problem_;
};

TEST(EncodingQueue, HandsOnEverythingInOrder) {
  std::vector<std::int16_t> taken;
  const auto tone = Tone(440, 60);
  EncodingQueue queue(std::make_unique<RecordingSink>(taken));
  for (std::size_t at = 0; at < tone.size(); at += 1000)
    ASSERT_TRUE(queue.Write(std::span(tone).subspan(at, std::min<std::size_t>(1000, tone.size() - at))));
  ASSERT_TRUE(queue.Finish());
  EXPECT_EQ(taken, tone);
  EXPECT_EQ(queue.Problem(), "");
}

TEST(EncodingQueue, TellsWhatWentWrongBehindIt) {
  std::vector<std::int16_t> taken;
  const auto tone = Tone(440, 1);
  EncodingQueue queue(std::make_unique<RecordingSink>(taken, tone.size() * 2));
  int written = 0;
  // More than the queue holds: it cannot take all of it.
  while (written < 100 && queue.Write(tone)) ++written;
  EXPECT_LT(written, 100);
  EXPECT_FALSE(queue.Finish());
  EXPECT_EQ(queue.Problem(), "Voll.");
}

TEST(EncodingQueue, FailsAtTheEndWhenOnlyTheLastBlockFails) {
  std::vector<std::int16_t> taken;
  const auto tone = Tone(440, 1);
  EncodingQueue queue(std::make_unique<RecordingSink>(taken, tone.size()));
  ASSERT_TRUE(queue.Write(tone));
  (void)queue.Write(tone);  // it may not know yet
  EXPECT_FALSE(queue.Finish());
  EXPECT_EQ(queue.Problem(), "Voll.");
}

TEST(EncodingQueue, KnowsAtOnceOfAFileThatCannotBe) {
  TemporaryFolder folder;
  EncodingQueue queue(std::make_unique<SoundFileWriter>(folder.File("fehlt/a"), kFileRate, SoundFormat::Mp3,
                                                        SoundQuality::Usual));
  EXPECT_FALSE(queue.Problem().empty());
  EXPECT_FALSE(queue.Write(Tone(440, 1)));
  EXPECT_FALSE(queue.Finish());
}

Utterance Across(const Utterance& utterance) {
  FrameReader reader;
  reader.Feed(FrameSpeak(utterance));
  return ReadSpeak(reader.Next()->fields).value_or(Utterance{});
}

Utterance InAFile(SoundFormat format, SoundQuality quality) {
  Utterance utterance;
  utterance.id = 3;
  utterance.format = format;
  utterance.quality = quality;
  utterance.tellsWords = true;
  return utterance;
}

TEST(Protocol, BringsTheFormatOfAFileAcross) {
  const Utterance read = Across(InAFile(SoundFormat::Flac, SoundQuality::High));
  EXPECT_EQ(read.id, 3U);
  EXPECT_EQ(read.format, SoundFormat::Flac);
  EXPECT_EQ(read.quality, SoundQuality::High);
  EXPECT_TRUE(read.tellsWords);
}

TEST(Protocol, RefusesAFormatThatNobodyKnows) {
  EXPECT_EQ(Across(InAFile(static_cast<SoundFormat>(kSoundFormats), SoundQuality::High)).id, 0U);
  EXPECT_EQ(Across(InAFile(SoundFormat::Mp3, static_cast<SoundQuality>(kSoundQualities))).id, 0U);
}

TEST(Protocol, BringsTheTimesOfAFileAcross) {
  FrameReader reader;
  reader.Feed(FrameWord({.id = 1, .begin = 2, .end = 3, .milliseconds = 4000000000U}));
  reader.Feed(FrameEnded({.id = 1, .reason = "", .milliseconds = 5}));
  EXPECT_EQ(ReadWord(reader.Next()->fields)->milliseconds, 4000000000U);
  EXPECT_EQ(ReadEnded(reader.Next()->fields)->milliseconds, 5U);
}

}  // namespace
}  // namespace lorelin::engine
