#include <gtest/gtest.h>

#include <filesystem>

#include "base/paths.h"
#include "base/unfinishedName.h"
#include "platform/windows/DirectSSControl.h"
#include "platform/windows/MissingSpeech.h"
#include "platform/windows/SapiVoice.h"
#include "tests/support/DirectSSContract.h"
#include "tests/support/FakePorts.h"
#include "tests/support/HeardWordsContract.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/windows/ApartmentPump.h"
#include "tests/windows/speechServers.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// One of the engines on its test server.
class ServedEngine : public EngineUnderTest {
 public:
  DirectSS& Instance() override { return *engine_; }
  bool RunToTheEnd() override {
    const bool ended = pump.RunUntil([this] { return !engine_->Speaking(); });
    pump.WaitForEvents();
    return ended;
  }
  std::string WavePath() override { return folder.File("text.wav"); }

  TemporaryFolder folder;
  ApartmentPump pump;
  FakeLog log;

 protected:
  ServedEngine() { SpeechServers::Here() = {}; }
  std::unique_ptr<DirectSS> engine_;
};

class ServedControl final : public ServedEngine {
 public:
  ServedControl() { engine_ = DirectSSControl::Create(pump, log); }

 private:
  OfferedClass class_{kDirectSSClass, &MakeDirectSS};
};

class ServedSapi final : public ServedEngine {
 public:
  ServedSapi() { engine_ = SapiVoice::Create(pump, log); }

 private:
  OfferedClass voice_{kSpVoiceClass, &MakeSpVoice};
  OfferedClass file_{kSpFileStreamClass, &MakeSpFileStream};
};

std::unique_ptr<EngineUnderTest> OnControl() {
  return std::make_unique<ServedControl>();
}
std::unique_ptr<EngineUnderTest> OnSapi() {
  return std::make_unique<ServedSapi>();
}

INSTANTIATE_TEST_SUITE_P(DirectSSControl, DirectSSContract, testing::Values(&OnControl));
INSTANTIATE_TEST_SUITE_P(Sapi, DirectSSContract, testing::Values(&OnSapi));
INSTANTIATE_TEST_SUITE_P(DirectSSControl, HeardWordsContract, testing::Values(&OnControl));
INSTANTIATE_TEST_SUITE_P(Sapi, HeardWordsContract, testing::Values(&OnSapi));

template <typename Served>
class Engine : public testing::Test {
 protected:
  Engine() {
    engine.OnEndOfText([this](const EndOfText& end) { ends.push_back(end); });
  }

  Served served;
  DirectSS& engine = served.Instance();
  SpeechServers& servers = SpeechServers::Here();
  std::vector<EndOfText> ends;
};

using ControlTest = Engine<ServedControl>;
using SapiTest = Engine<ServedSapi>;

TEST_F(ControlTest, IsCalledByItsDispatchIds) {
  engine.SetCurrentVoice(2);
  engine.SetPitch(120);
  engine.SetSpeed(200);
  engine.SetVolumeLeft(1000);
  engine.SetVolumeRight(1000);
  engine.SetWaveFile(served.WavePath());
  engine.PauseAudio();
  engine.ResumeAudio();
  engine.ResetAudio();
  engine.Speak("Grüße – 10 €");
  for (const auto* const call :
       {"69=2", "7=120", "10=200", "72=1000", "13=1000", "35", "37", "36", "6(Grüße – 10 €)"}) {
    EXPECT_EQ(servers.Count(call), 1U) << call;
  }
}

TEST_F(ControlTest, IsGivenATextInPartsWhole) {
  engine.SpeakBeginning("Eins. ");
  engine.ContinueText("Zwei.", true);
  EXPECT_EQ(servers.Count("6(Eins. Zwei.)"), 1U);
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(ends.size(), 1U);
}

TEST_F(ControlTest, ReadsRangesAndVoices) {
  EXPECT_EQ(engine.MinPitch(), 50);
  EXPECT_EQ(engine.MaxPitch(), 200);
  EXPECT_EQ(engine.MinSpeed(), 30);
  EXPECT_EQ(engine.MaxSpeed(), 300);
  EXPECT_EQ(engine.MinVolume(), 0);
  EXPECT_EQ(engine.MaxVolume(), 65535);
  EXPECT_EQ(engine.VoiceCount(), 3);
  EXPECT_EQ(engine.VoiceName(3), "Mary");
  EXPECT_EQ(engine.VoiceLanguage(3), 1033);
  EXPECT_EQ(engine.VoiceGender(1), 1);
  EXPECT_EQ(engine.VoiceGender(3), 2);
}

TEST_F(ControlTest, EndsWhenTheLastOfTheTextWasHeard) {
  engine.Speak("Guten Tag.");
  EXPECT_TRUE(engine.Speaking());
  ASSERT_TRUE(served.RunToTheEnd());
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_TRUE(ends[0].complete);
}

TEST_F(ControlTest, LeavesAWaveFileOfTheTextsLength) {
  engine.SetWaveFile(served.WavePath());
  engine.Speak("Zwanzig Zeichen lang");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(fs::file_size(served.WavePath()), 44U + 20U * 882U);
}

TEST_F(ControlTest, TakesAwayAFileThatIsNotCompleteAndLeavesTheOldOne) {
  const auto unfinished = UnfinishedName(NativePath(served.WavePath()));
  engine.SetWaveFile(served.WavePath());
  WriteFile(served.WavePath(), "alt");
  WriteFile(PathText(unfinished), "halb");
  engine.Speak("Guten Tag.");
  engine.ResetAudio();
  EXPECT_FALSE(fs::exists(unfinished));
  EXPECT_EQ(ReadFile(served.WavePath()), "alt");
}

TEST_F(ControlTest, ReplacesTheOldFileWhenTheNewOneIsWhole) {
  engine.SetWaveFile(served.WavePath());
  WriteFile(served.WavePath(), "alt");
  engine.Speak("Zwanzig Zeichen lang");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(fs::file_size(served.WavePath()), 44U + 20U * 882U);
  EXPECT_FALSE(fs::exists(UnfinishedName(NativePath(served.WavePath()))));
}

TEST_F(ControlTest, RefusesAFolderAsTarget) {
  fs::create_directory(NativePath(served.WavePath()));
  engine.SetWaveFile(served.WavePath());
  engine.Speak("Guten Tag.");
  served.RunToTheEnd();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
}

TEST_F(ControlTest, IsMadeAnewWhenItFails) {
  engine.SetPitch(120);
  servers.failing.insert("6");
  engine.Speak("Das geht nicht.");
  EXPECT_FALSE(engine.Speaking());
  served.RunToTheEnd();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
  EXPECT_NE(ends[0].reason, "");
  EXPECT_EQ(served.log.lines.size(), 1U);
  servers.failing.clear();
  servers.calls.clear();
  engine.Speak("Das geht.");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(servers.Count("7=120"), 1U);
  ASSERT_EQ(ends.size(), 2U);
  EXPECT_TRUE(ends[1].complete);
}

TEST_F(ControlTest, FailsWithinASettingAsAnErrorOfTheProgram) {
  engine.SetPitch(120);
  servers.failing.insert("7");
  EXPECT_THROW(engine.SetPitch(130), RuntimeError);
}

TEST(DirectSSControl, IsAbsentWhereItsClassIs) {
  ApartmentPump pump;
  FakeLog log;
  EXPECT_EQ(DirectSSControl::Create(pump, log), nullptr);
}

TEST_F(SapiTest, SpeaksMarkupWithThePitch) {
  engine.SetPitch(-4);
  engine.Speak("a < b & c > \"d\"");
  EXPECT_EQ(servers.Count("Speak(<pitch absmiddle=\"-4\">a &lt; b &amp; c &gt; \"d\"</pitch>, 9)"), 1U);
}

TEST_F(SapiTest, SpeaksPartsOneBehindTheOther) {
  engine.SpeakBeginning("Eins. ");
  engine.ContinueText("Zwei. ", false);
  engine.ContinueText("", true);
  EXPECT_EQ(servers.Count("Speak(<pitch absmiddle=\"0\">Eins. </pitch>, 9)"), 1U);
  EXPECT_EQ(servers.Count("Speak(<pitch absmiddle=\"0\">Zwei. </pitch>, 9)"), 1U);
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(ends.size(), 1U);
}

TEST_F(SapiTest, WaitsForPartsThatComeLate) {
  engine.SpeakBeginning("Eins. ");
  served.pump.RunFor(std::chrono::milliseconds(200));
  EXPECT_TRUE(engine.Speaking());
  engine.ContinueText(" ", true);
  EXPECT_FALSE(engine.Speaking());
}

TEST_F(SapiTest, KeepsControlCharactersFromTheMarkup) {
  engine.Speak(
      std::string("a\x01\x00"
                  "b",
                  4));
  EXPECT_EQ(servers.Count("Speak(<pitch absmiddle=\"0\">ab</pitch>, 9)"), 1U);
}

TEST_F(SapiTest, MapsTheSpeedAroundTheUsualRate) {
  const std::int32_t span = engine.MaxSpeed() - engine.MinSpeed();
  engine.SetSpeed(engine.MinSpeed() + span / 4);
  engine.SetSpeed(engine.MinSpeed());
  engine.SetSpeed(engine.MaxSpeed());
  EXPECT_EQ(servers.Count("Rate=0"), 1U);
  EXPECT_EQ(servers.Count("Rate=-10"), 1U);
  EXPECT_EQ(servers.Count("Rate=10"), 1U);
}

TEST_F(SapiTest, SetsVoiceAndVolume) {
  engine.SetCurrentVoice(2);
  engine.SetVolumeLeft(70);
  EXPECT_EQ(servers.Count("Voice=Stimme 1"), 1U);
  EXPECT_EQ(servers.Count("Volume=70"), 1U);
}

TEST_F(SapiTest, RendersIntoAStreamOfOurFormatAndClosesIt) {
  engine.SetWaveFile(served.WavePath());
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(servers.Count("Format=22"), 1U);
  EXPECT_EQ(servers.Count("Open(3)"), 1U);
  EXPECT_EQ(servers.Count("Close"), 1U);
  EXPECT_GT(fs::file_size(served.WavePath()), 10000U);
  EXPECT_EQ(ends.size(), 1U);
}

TEST_F(SapiTest, PurgesAndReleasesThePauseOnAReset) {
  engine.SetWaveFile(served.WavePath());
  engine.PauseAudio();
  engine.Speak("Guten Tag.");
  engine.ResetAudio();
  EXPECT_EQ(servers.Count("Speak(, 3)"), 1U);
  EXPECT_EQ(servers.Count("Pause"), 1U);
  EXPECT_EQ(servers.Count("Resume"), 1U);
  EXPECT_EQ(servers.Count("Close"), 1U);
  EXPECT_FALSE(fs::exists(served.WavePath()));
}

TEST_F(SapiTest, NoticesAnEndThatNoEventTells) {
  servers.quietAboutTheEnd = true;
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(ends.size(), 1U);
}

TEST_F(SapiTest, TellsAFileThatCannotBeWritten) {
  servers.failing.insert("Open");
  engine.SetWaveFile(served.WavePath());
  engine.Speak("Guten Tag.");
  served.RunToTheEnd();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
}

TEST_F(SapiTest, CountsBeyondThePitchOfItsMarkup) {
  std::vector<HeardWord> words;
  engine.OnWordHeard([&](const HeardWord& word) { words.push_back(word); });
  engine.SetPitch(-10);
  engine.Speak("Guten Tag.");
  ASSERT_TRUE(served.RunToTheEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 5}, {6, 9}}));
}

TEST(HeardWordsTest, TellsWhatWasPassedOverAndNothingTwice) {
  HeardWords heard(&Utf16Units);
  std::vector<HeardWord> words;
  const auto take = [&](const HeardWord& word) { words.push_back(word); };
  heard.Add("eins zwei\n\ndrei", "eins zwei\n\ndrei");
  heard.Add(" vier", " vier");
  heard.Event(0, 11, take);
  heard.Event(0, 0, take);
  heard.Event(1, 1, take);
  heard.Event(0, 5, take);
  heard.Event(7, 0, take);
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 4}, {5, 9}, {11, 15}, {16, 20}}));
}

TEST(SapiVoice, IsAbsentWithoutVoices) {
  ApartmentPump pump;
  FakeLog log;
  SpeechServers::Here() = {};
  SpeechServers::Here().languages.clear();
  const OfferedClass voice(kSpVoiceClass, &MakeSpVoice);
  EXPECT_EQ(SapiVoice::Create(pump, log), nullptr);
}

TEST(SapiVoice, OffersGermanVoicesFirstAndASingleOneSecond) {
  using Order = std::vector<std::size_t>;
  EXPECT_EQ(VoiceOrder({0x409, 0x407, 0x40C, 0xC07}), (Order{1, 3, 0, 2}));
  EXPECT_EQ(VoiceOrder({0x407, 0x409, 0x40C}), (Order{1, 0, 2}));
  EXPECT_EQ(VoiceOrder({0x409, 0x40C, 0x407}), (Order{0, 2, 1}));
  EXPECT_EQ(VoiceOrder({0x407}), Order{0});
  EXPECT_EQ(VoiceOrder({0x409, 0x40C}), (Order{0, 1}));
}

TEST(MissingSpeech, EndsEveryTextWithTheReason) {
  ApartmentPump pump;
  MissingSpeech engine(pump);
  std::vector<EndOfText> ends;
  engine.OnEndOfText([&](const EndOfText& end) { ends.push_back(end); });
  engine.Speak("Guten Tag.");
  EXPECT_FALSE(engine.Speaking());
  pump.WaitForEvents();
  ASSERT_EQ(ends.size(), 1U);
  EXPECT_FALSE(ends[0].complete);
  EXPECT_EQ(ends[0].reason, MissingSpeech::kReason);
}

}  // namespace
}  // namespace lorelin
