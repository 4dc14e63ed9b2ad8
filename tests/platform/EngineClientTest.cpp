#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "tests/support/DirectSSContract.h"
#include "tests/support/HeardWordsContract.h"
#include "tests/support/RealEngine.h"

namespace lorelin {
namespace {

class RealUnderTest final : public EngineUnderTest {
 public:
  explicit RealUnderTest(bool playing) : playing_(playing) {}
  DirectSS& Instance() override { return real_.engine; }
  bool RunToTheEnd() override {
    const bool ended = real_.WaitUntil([this] { return !real_.engine.Speaking(); });
    real_.pump.WaitForEvents();
    return ended;
  }
  std::string WavePath() override { return playing_ ? "" : FileToRender(); }
  std::string FileToRender() override { return real_.folder.File("a.wav"); }

 private:
  bool playing_;
  RealEngine real_;
};

std::unique_ptr<EngineUnderTest> MakeRendering() {
  return std::make_unique<RealUnderTest>(false);
}

std::unique_ptr<EngineUnderTest> MakePlaying() {
  setenv("SDL_AUDIODRIVER", "dummy", 1);
  return std::make_unique<RealUnderTest>(true);
}

INSTANTIATE_TEST_SUITE_P(Rendering, DirectSSContract, testing::Values(&MakeRendering));
INSTANTIATE_TEST_SUITE_P(Playing, DirectSSContract, testing::Values(&MakePlaying));
INSTANTIATE_TEST_SUITE_P(Playing, HeardWordsContract, testing::Values(&MakePlaying));

// Played in real time for nobody; the words that are heard meanwhile.
class HeardWords : public testing::Test {
 protected:
  HeardWords() {
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    real.engine.OnWordHeard([this](const HeardWord& word) { words.push_back(word); });
    real.engine.SetSpeed(real.engine.MaxSpeed());
  }

  RealEngine real{true};
  std::vector<HeardWord> words;
};

TEST(EngineClients, StartTheirProcessWhenItIsNeeded) {
  TemporaryFolder folder;
  TaskPump pump;
  FakeClock clock;
  FakeLog log;
  EngineClient engine({.engineFile = LORELIN_BIN_DIR "/lorelin-engine",
                       .folder = folder.Path(),
                       .patience = kLongPatience,
                       .start = InstanceStart::WhenNeeded},
                      pump, clock, log);
  engine.PauseAudio();
  engine.ResumeAudio();
  engine.ResetAudio();
  engine.RenewVoices();
  EXPECT_FALSE(engine.Speaking());
  EXPECT_EQ(engine.ProcessId(), -1);
  EXPECT_GT(engine.VoiceCount(), 0);
  const int process = engine.ProcessId();
  EXPECT_GT(process, 0);
  engine.Start();
  EXPECT_EQ(engine.ProcessId(), process);
}

TEST_F(HeardWords, AreToldBeforeTheEndInTheOrderOfTheText) {
  real.engine.Speak("\x01„Grüße“ aus Köln.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{2, 7}, {9, 12}, {13, 17}}));
}

TEST_F(HeardWords, OfATextInPartsHaveTheirPlaceInTheWhole) {
  real.engine.SpeakBeginning("Ganz schön. ");
  real.engine.ContinueText("Ja, ", false);
  real.engine.ContinueText("ja.", true);
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 4}, {5, 10}, {12, 14}, {16, 18}}));
}

TEST_F(HeardWords, AreNotToldOfATextThatWasDiscarded) {
  real.engine.Speak("Eins zwei drei vier fünf sechs sieben acht neun zehn.");
  ASSERT_TRUE(real.WaitUntil([this] { return !words.empty(); }));
  real.engine.ResetAudio();
  words.clear();
  real.engine.Speak("Elf zwölf.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{0, 3}, {4, 9}}));
}

TEST_F(HeardWords, AreNotToldOfATextInAFile) {
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.Speak("Elf zwölf.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(words.empty());
}

TEST_F(HeardWords, GoOnAfterAPause) {
  real.engine.Speak("Eins zwei drei.");
  real.engine.PauseAudio();
  real.engine.ResumeAudio();
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(words.size(), 3U);
}

std::string Repeated(std::string_view text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

class Engine : public testing::Test {
 protected:
  Engine() { real.engine.SetWaveFile(wave); }

  RealEngine real;
  std::string wave = real.folder.File("a.wav");
  std::string unfinished = real.folder.File(".part-a.wav");

  double SecondsOf(const std::string& text) {
    real.ends.clear();
    real.engine.Speak(text);
    EXPECT_TRUE(real.WaitForEnd());
    EXPECT_TRUE(real.ends.back().complete);
    return (static_cast<double>(std::filesystem::file_size(wave)) - 44) / 44100;
  }
};

TEST_F(Engine, ReadsWhatMakesTheLibraryAbort) {
  EXPECT_GT(SecondsOf(Repeated("z.B. ", 43)), 5);
  EXPECT_GT(SecondsOf(Repeated("i.d.R. ", 29)), 5);
  EXPECT_GT(SecondsOf(Repeated("a.", 85)), 4);
  EXPECT_GT(SecondsOf(Repeated("z.B. ", 1000)), 200);
  EXPECT_GT(SecondsOf(Repeated("z.B. i.d.R. a.a.a. u.s.w. ", 300)), 200);
  EXPECT_TRUE(real.log.lines.empty());
}

TEST_F(Engine, ReadsNastyTexts) {
  for (const std::string& text :
       {std::string(100000, 'x'), std::string(20000, '.'), std::string(20000, '7'), Repeated("🎉", 2000),
        Repeated("e\u0301\u0327", 2000), std::string("שלום עולם مرحبا"),
        std::string("a\x01"
                    "20v b\x1b\x01"),
        std::string("\xED\xA0\x80\xFF\xC3"), std::string("?!,;:-()[]{}<>"),
        Repeated("[[x]] <b>&amp;</b> ", 200)}) {
    real.ends.clear();
    real.engine.Speak(text);
    ASSERT_TRUE(real.WaitForEnd());
    EXPECT_TRUE(real.ends.back().complete) << text.substr(0, 20);
  }
  EXPECT_TRUE(real.log.lines.empty());
}

TEST_F(Engine, SpeaksFasterAtAHigherSpeed) {
  const std::string text = "Das ist ein Satz, der eine Weile dauert.";
  real.engine.SetSpeed(real.engine.MinSpeed());
  const double slow = SecondsOf(text);
  real.engine.SetSpeed(real.engine.MaxSpeed());
  EXPECT_LT(SecondsOf(text) * 2, slow);
}

TEST_F(Engine, RendersAnotherVoiceDifferently) {
  SecondsOf("Guten Tag.");
  const std::string first = ReadFile(wave);
  real.engine.SetCurrentVoice(2);
  SecondsOf("Guten Tag.");
  EXPECT_NE(ReadFile(wave), first);
}

TEST_F(Engine, IsSilentAtVolumeZero) {
  real.engine.SetVolumeLeft(0);
  SecondsOf("Guten Tag.");
  const std::string bytes = ReadFile(wave);
  EXPECT_EQ(bytes.find_first_not_of('\0', 44), std::string::npos);
}

TEST_F(Engine, TellsWhyAFileCannotBeWritten) {
  real.engine.SetWaveFile(real.folder.File("fehlt/a.wav"));
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends[0].complete);
  EXPECT_EQ(real.ends[0].reason, "Die WAV-Datei konnte nicht geschrieben werden. Den Ordner gibt es nicht.");
}

TEST_F(Engine, IsNotHeldUpByAPipe) {
  const std::string pipe = real.folder.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  real.engine.SetWaveFile(pipe);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(real.ends[0].reason,
            "Die WAV-Datei konnte nicht geschrieben werden. Das ist keine gewöhnliche Datei.");
  real.engine.SetWaveFile(wave);
  EXPECT_GT(SecondsOf("Guten Tag."), 0.3);
}

TEST_F(Engine, RemovesTheUnfinishedFileOfADiscardedText) {
  real.engine.Speak(Repeated("Ein langer Text. ", 20000));
  ASSERT_TRUE(real.WaitUntil([&] { return std::filesystem::exists(unfinished); }));
  real.engine.ResetAudio();
  EXPECT_TRUE(real.WaitUntil([&] { return !std::filesystem::exists(unfinished); }));
  EXPECT_FALSE(std::filesystem::exists(wave));
  EXPECT_GT(SecondsOf("Guten Tag."), 0.3);
}

TEST_F(Engine, HoldsARenderingWhilePaused) {
  real.engine.Speak(Repeated("Ein langer Text. ", 4000));
  ASSERT_TRUE(real.WaitUntil([&] { return std::filesystem::exists(unfinished); }));
  real.engine.PauseAudio();
  const auto begin = std::chrono::steady_clock::now();
  (void)real.WaitUntil(
      [&] { return std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(300); });
  const auto size = std::filesystem::file_size(unfinished);
  (void)real.WaitUntil(
      [&] { return std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(600); });
  EXPECT_EQ(std::filesystem::file_size(unfinished), size);
  EXPECT_TRUE(real.engine.Speaking());
  real.engine.ResumeAudio();
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends[0].complete);
}

TEST_F(Engine, WhichDiesMidTextIsReplacedAndDoesNotClaimTheEnd) {
  for (const int signal : {SIGKILL, SIGABRT, SIGSEGV}) {
    real.clock.steady += std::chrono::minutes(5);
    real.ends.clear();
    WriteFile(wave, "alt");
    real.engine.Speak(Repeated("Ein langer Text. ", 20000));
    ASSERT_TRUE(real.WaitUntil([&] { return std::filesystem::exists(unfinished); }));
    kill(real.engine.ProcessId(), signal);
    ASSERT_TRUE(real.WaitForEnd());
    EXPECT_FALSE(real.ends[0].complete);
    EXPECT_EQ(real.ends[0].reason,
              "Die Sprachausgabe wurde unterbrochen. Der Text wurde nicht vollständig vorgelesen.");
    EXPECT_TRUE(real.WaitUntil([&] { return !real.engine.Speaking(); }));
    EXPECT_FALSE(std::filesystem::exists(unfinished));
    EXPECT_EQ(ReadFile(wave), "alt");
    EXPECT_GT(SecondsOf("Guten Tag."), 0.3);
  }
}

TEST_F(Engine, KeepsItsPropertiesWhenItIsReplaced) {
  real.engine.SetCurrentVoice(2);
  real.engine.SetSpeed(300);
  const double before = SecondsOf("Guten Tag, wie geht es Ihnen?");
  const std::string bytes = ReadFile(wave);
  kill(real.engine.ProcessId(), SIGKILL);
  ASSERT_TRUE(real.WaitUntil([&] { return !real.log.lines.empty(); }));
  EXPECT_EQ(SecondsOf("Guten Tag, wie geht es Ihnen?"), before);
  EXPECT_EQ(ReadFile(wave), bytes);
}

TEST_F(Engine, ThatKeepsDyingIsGivenUpAndTriedAgainLater) {
  for (int i = 0; i < 4; ++i) {
    real.ends.clear();
    real.engine.Speak(Repeated("Ein langer Text. ", 20000));
    kill(real.engine.ProcessId(), SIGKILL);
    ASSERT_TRUE(real.WaitForEnd());
    EXPECT_FALSE(real.ends[0].complete);
  }
  ASSERT_TRUE(real.WaitUntil([&] { return !real.notices.empty(); }));
  EXPECT_EQ(
      real.notices[0],
      "Die Sprachausgabe ist mehrmals nacheinander ausgefallen. Bitte versuchen Sie es in zwei Minuten noch "
      "einmal.");
  EXPECT_EQ(real.engine.ProcessId(), -1);
  real.ends.clear();
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends[0].complete);
  real.clock.steady += std::chrono::minutes(3);
  EXPECT_GT(SecondsOf("Guten Tag."), 0.3);
}

TEST(StoppedEngine, IsNoticedAndReplaced) {
  RealEngine real(false, {.answer = std::chrono::milliseconds(300)});
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  (void)real.engine.VoiceCount();
  const int process = real.engine.ProcessId();
  kill(process, SIGSTOP);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends[0].complete);
  EXPECT_NE(real.engine.ProcessId(), process);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd(2));
  EXPECT_TRUE(real.ends[1].complete);
}

TEST(StoppedEngine, DoesNotHoldUpAVeryLongText) {
  RealEngine real(false, {.answer = std::chrono::milliseconds(300)});
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  (void)real.engine.VoiceCount();
  kill(real.engine.ProcessId(), SIGSTOP);
  real.engine.Speak(std::string(20 << 20, 'x'));
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends[0].complete);
}

TEST(StoppedEngine, IsReplacedWhileOneTextFollowsTheOther) {
  RealEngine real(false, {.answer = std::chrono::milliseconds(300)});
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  (void)real.engine.VoiceCount();
  const int process = real.engine.ProcessId();
  kill(process, SIGSTOP);
  EXPECT_TRUE(real.WaitUntil([&] {
    real.engine.ResetAudio();
    real.engine.Speak("Guten Tag.");
    return real.engine.ProcessId() != process;
  }));
  real.engine.Speak("Guten Tag.");
  EXPECT_TRUE(real.WaitUntil([&] { return !real.ends.empty() && real.ends.back().complete; }));
}

// What AddressSanitizer keeps back of memory that was given free, in kilobytes.
#ifdef __SANITIZE_ADDRESS__
constexpr long kQuarantine = 256 * 1024;
#else
constexpr long kQuarantine = 0;
#endif

TEST(StoppedEngine, DoesNotMakeTextsPileUp) {
  RealEngine real(false, {.answer = std::chrono::milliseconds(2000)});
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  (void)real.engine.VoiceCount();
  kill(real.engine.ProcessId(), SIGSTOP);
  const std::string text(4 << 20, 'x');
  rusage before{};
  getrusage(RUSAGE_SELF, &before);
  for (int i = 0; i < 100; ++i) real.engine.Speak(text);
  rusage after{};
  getrusage(RUSAGE_SELF, &after);
  // All of them would be 400 MB.
  EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 100 * 1024 + kQuarantine);
}

// A program that starts as `first` and after that as the engine itself.
std::string FirstOtherwise(const TemporaryFolder& folder, const std::string& first) {
  const std::string file = folder.File("engine.sh");
  WriteFile(file, "#!/bin/sh\nif mkdir '" + folder.File("begun") + "' 2>/dev/null; then " + first +
                      "; fi\nexec '" LORELIN_BIN_DIR "/lorelin-engine' \"$@\"\n");
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  return file;
}

TEST(StoppedEngine, IsReplacedWhenItNeverSaysAWord) {
  const TemporaryFolder folder;
  RealEngine real(false, {.greeting = std::chrono::seconds(3), .answer = std::chrono::seconds(10)},
                  FirstOtherwise(folder, "exec sleep 1000"));
  EXPECT_GT(real.engine.VoiceCount(), 0);
  EXPECT_EQ(real.log.lines.size(), 2U);
}

TEST(StoppedEngine, IsWaitedForAsLongAsItMayTake) {
  const TemporaryFolder folder;
  RealEngine real(false, {.greeting = std::chrono::seconds(8)}, FirstOtherwise(folder, "sleep 3.2"));
  EXPECT_GT(real.engine.VoiceCount(), 0);
}

TEST(EngineClient, TellsWhenWhatWasWrongIsOver) {
  RealEngine real;
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  (void)real.engine.VoiceCount();
  for (std::size_t i = 1; i <= 4; ++i) {
    kill(real.engine.ProcessId(), SIGKILL);
    ASSERT_TRUE(real.WaitUntil([&] { return real.log.lines.size() >= i; }));
  }
  ASSERT_TRUE(real.WaitUntil([&] { return real.notices.size() == 1; }));
  real.clock.steady += std::chrono::minutes(3);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitUntil([&] { return real.notices.size() == 2; }));
  EXPECT_EQ(real.notices.back(), "");
}

TEST(MissingEngine, IsToldInGerman) {
  TaskPump pump;
  FakeClock clock;
  FakeLog log;
  EngineClient engine({.engineFile = "/gibt/es/nicht", .condition = {}}, pump, clock, log);
  try {
    engine.Speak("x");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 440);
    EXPECT_STREQ(error.what(), "Die Sprachausgabe antwortet nicht.");
  }
}

TEST(EngineProcess, EndsWithItsClient) {
  int process = -1;
  {
    RealEngine real;
    real.engine.SetWaveFile(real.folder.File("a.wav"));
    real.engine.Speak(Repeated("Ein langer Text. ", 20000));
    process = real.engine.ProcessId();
    ASSERT_GT(process, 0);
  }
  EXPECT_EQ(kill(process, 0), -1);
  EXPECT_EQ(errno, ESRCH);
}

}  // namespace
}  // namespace lorelin
