#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <random>

#include "tests/support/NaturalData.h"
#include "tests/support/RealEngine.h"
#include "tests/support/naturalVoices.h"
#include "tests/support/voiceWith.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

class NaturalEngine : public testing::Test {
 protected:
  void SetUp() override {
    SKIP_WITHOUT_RUNTIME();
    setenv("SDL_AUDIODRIVER", "dummy", 1);
  }

  NaturalData data;
};

TEST_F(NaturalEngine, LeavesTheOtherVoicesTheirNumbers) {
  RealEngine real;
  const std::int32_t first = VoiceWith(real.engine, " – ");
  std::int32_t others = 0;
  {
    const NaturalData without(false);
    RealEngine plain;
    others = plain.engine.VoiceCount();
    for (std::int32_t number = 1; number <= others; ++number)
      ASSERT_EQ(plain.engine.VoiceName(number), real.engine.VoiceName(number));
  }
  EXPECT_EQ(first, others + 1);
  EXPECT_EQ(real.engine.VoiceCount(), others + 9);
}

TEST_F(NaturalEngine, RendersTheSameFileTwice) {
  const auto render = [](const std::string& file) {
    RealEngine real;
    real.engine.SetCurrentVoice(VoiceWith(real.engine, "rausch"));
    real.engine.SetWaveFile(real.folder.File(file));
    real.engine.Speak("Guten Tag, Herr Müller. Ja!");
    EXPECT_TRUE(real.WaitForEnd());
    EXPECT_TRUE(real.ends.back().complete) << real.ends.back().reason;
    return ReadFile(real.folder.File(file));
  };
  const std::string first = render("a.wav");
  EXPECT_GT(first.size(), 100000U);
  EXPECT_EQ(first, render("b.wav"));
}

TEST_F(NaturalEngine, TellsTheWordsThatAreHeard) {
  RealEngine real(true);
  std::vector<HeardWord> words;
  real.engine.OnWordHeard([&](const HeardWord& word) { words.push_back(word); });
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "probe"));
  real.engine.SetSpeed(real.engine.MaxSpeed());
  real.engine.SpeakBeginning("\x01„Grüße“ aus Köln. ");
  real.engine.ContinueText("Ja.", true);
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_EQ(words, (std::vector<HeardWord>{{2, 7}, {9, 12}, {13, 17}, {19, 21}}));
}

TEST_F(NaturalEngine, GoesOnWhenAVoiceIsBroken) {
  RealEngine real;
  for (const char* const voice : {"kaputt_art", "kaputt_fremd", "kaputt_nan", "kaputt_riesig"}) {
    real.ends.clear();
    real.engine.SetCurrentVoice(VoiceWith(real.engine, voice));
    real.engine.SetWaveFile(real.folder.File("a.wav"));
    real.engine.Speak("Guten Tag.");
    ASSERT_TRUE(real.WaitForEnd());
    EXPECT_FALSE(real.ends.back().complete);
    EXPECT_TRUE(real.ends.back().reason.starts_with("Die Stimme „de_DE-")) << real.ends.back().reason;
    EXPECT_FALSE(fs::exists(real.folder.File("a.wav")));
  }
  const int process = real.engine.ProcessId();
  real.ends.clear();
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "probe"));
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.back().complete);
  EXPECT_EQ(real.engine.ProcessId(), process);
}

TEST_F(NaturalEngine, LeavesASlowSentenceForTheNextText) {
  RealEngine real;
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "langsam"));
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.Speak("Ein langer Satz ohne Ende und Ziel.");
  real.engine.ResetAudio();
  real.engine.SetCurrentVoice(1);
  real.engine.Speak("Ja.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.back().complete);
  EXPECT_TRUE(real.log.lines.empty());
}

// Files that are no voices, or not whole, under the name of one.
class DamagedVoice : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override { SKIP_WITHOUT_RUNTIME(); }

  static std::string Good(const std::string& ending) {
    return ReadFile((engine::TestVoices() / ("de_DE-probe-medium.onnx" + ending)).string());
  }
  static std::string Damaged(const std::string& how) {
    const std::string good = Good("");
    if (how == "leer") return "";
    if (how == "Text") return std::string(5000, 'x');
    if (how == "halb") return good.substr(0, good.size() / 2);
    if (how == "fast ganz") return good.substr(0, good.size() - 1);
    if (how == "doppelt") return good + good;
    if (how == "andere Eingabe") {
      std::string changed = good;
      for (std::size_t at = 0; (at = changed.find("scales", at)) != std::string::npos;)
        changed.replace(at, 6, "waagen");
      return changed;
    }
    std::string changed = good;  // Nullen am Anfang
    changed.replace(200, 40, 40, '\0');
    return changed;
  }
};

TEST_P(DamagedVoice, CostsASentence) {
  const fs::path runtime = engine::InstalledRuntime();
  const TemporaryFolder folder;
  WriteFile(folder.File("lorelin/voices/kaputt.onnx"), Damaged(GetParam()));
  WriteFile(folder.File("lorelin/voices/kaputt.onnx.json"), Good(".json"));
  fs::create_directory_symlink(runtime.parent_path(), folder.File("lorelin/runtime"));
  const engine::ChangedVariable data("XDG_DATA_HOME", folder.Path());
  RealEngine real;
  (void)real.engine.VoiceCount();
  const int process = real.engine.ProcessId();
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "probe"));
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends.back().complete);
  EXPECT_TRUE(real.ends.back().reason.starts_with("Die Stimme „kaputt“ lässt sich nicht verwenden: "))
      << real.ends.back().reason;
  real.ends.clear();
  real.engine.SetCurrentVoice(1);
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.back().complete);
  EXPECT_EQ(real.engine.ProcessId(), process);
}

INSTANTIATE_TEST_SUITE_P(InEveryWay, DamagedVoice,
                         testing::Values("leer", "Text", "halb", "fast ganz", "doppelt", "andere Eingabe",
                                         "Nullen am Anfang"));

TEST_F(NaturalEngine, IsNamedInALineWhenItsDescriptionIsBroken) {
  const TemporaryFolder folder;
  WriteFile(folder.File("lorelin/voices/kaputt.onnx"), "");
  WriteFile(folder.File("lorelin/voices/kaputt.onnx.json"), "{\"audio\":");
  const engine::ChangedVariable changed("XDG_DATA_HOME", folder.Path());
  RealEngine real;
  ASSERT_TRUE(real.WaitUntil([&] { return !real.notices.empty(); }));
  EXPECT_EQ(
      real.notices.back(),
      "Die Stimme „kaputt“ fehlt in der Auswahl: Ihre Beschreibung „kaputt.onnx.json“ ist unbrauchbar, sie "
      "ist kein JSON.");
}

TEST_F(NaturalEngine, SpeaksWithAVoiceThatItWasToldOfBefore) {
  RealEngine real(true);
  const std::int32_t voice = VoiceWith(real.engine, "probe");
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "kaputt_fremd"));
  real.engine.SetCurrentVoice(voice);
  real.engine.SetSpeed(real.engine.MaxSpeed());
  real.engine.Speak("Ja.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.back().complete) << real.ends.back().reason;
}

TEST_F(NaturalEngine, GivesWayWhenItRenders) {
  const auto priority = [](RealEngine& real) {
    (void)real.engine.VoiceCount();
    return getpriority(PRIO_PROCESS, static_cast<id_t>(real.engine.ProcessId()));
  };
  RealEngine rendering(false);
  RealEngine heard(true);
  EXPECT_GT(priority(rendering), priority(heard));
}

TEST_F(NaturalEngine, IsStartedAgainHoweverOftenItIsKilled) {
  RealEngine real(true);
  const std::int32_t voice = VoiceWith(real.engine, "probe");
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "Ein langer Text, der nicht enden will. ";
  std::mt19937 random(20261122);
  for (int i = 0; i < 200; ++i) {
    real.clock.steady += std::chrono::minutes(5);
    real.ends.clear();
    real.engine.SetCurrentVoice(voice);
    real.engine.SetWaveFile(i % 2 == 0 ? "" : real.folder.File("lang.wav"));
    real.engine.Speak(text);
    const auto moment = std::chrono::steady_clock::now() + std::chrono::milliseconds(random() % 80);
    while (std::chrono::steady_clock::now() < moment) real.pump.WaitForEvents();
    kill(real.engine.ProcessId(), SIGKILL);
    ASSERT_TRUE(real.WaitForEnd()) << i;
    ASSERT_FALSE(real.ends[0].complete) << i;
    ASSERT_FALSE(fs::exists(real.folder.File("lang.wav"))) << i;
  }
  real.engine.SetWaveFile(real.folder.File("kurz.wav"));
  real.engine.Speak("Ja.");
  ASSERT_TRUE(real.WaitForEnd(2));
  EXPECT_TRUE(real.ends[1].complete);
}

TEST(NaturalVoicesWithoutRuntime, AreNotOfferedAndSaidToLackIt) {
  const NaturalData data(false);
  if (!engine::OnnxRuntime::Find(engine::RuntimeFolders()).empty())
    GTEST_SKIP() << "the system has an ONNX Runtime of its own";
  RealEngine real;
  EXPECT_GT(real.engine.VoiceCount(), 200);
  ASSERT_TRUE(real.WaitUntil([&] { return !real.notices.empty(); }));
  EXPECT_EQ(
      real.notices.back(),
      "Für die natürlichen Stimmen fehlt die ONNX Runtime. Die Hilfe sagt unter „Natürliche Stimmen“, wie "
      "man sie bekommt.");
  ASSERT_EQ(real.log.lines.size(), 1U);
}

}  // namespace
}  // namespace lorelin
