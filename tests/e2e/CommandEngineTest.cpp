#include <sys/prctl.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>

#include "tests/support/CommandData.h"
#include "tests/support/RealEngine.h"
#include "tests/support/voiceWith.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

class CommandEngine : public testing::Test {
 protected:
  CommandEngine() { setenv("SDL_AUDIODRIVER", "dummy", 1); }

  CommandData data;
};

TEST_F(CommandEngine, LeavesTheOtherVoicesTheirNumbers) {
  RealEngine real;
  const std::int32_t first = VoiceWith(real.engine, "– Bleibend");
  EXPECT_EQ(real.engine.VoiceGender(first), 2);
  EXPECT_EQ(real.engine.VoiceName(first), "Deutsch – Bleibend");
  const TemporaryFolder empty;
  const engine::ChangedVariable none("XDG_DATA_HOME", empty.Path());
  RealEngine plain;
  EXPECT_EQ(first, plain.engine.VoiceCount() + 1);
  for (std::int32_t number = 1; number < first; ++number)
    ASSERT_EQ(plain.engine.VoiceName(number), real.engine.VoiceName(number));
}

TEST_F(CommandEngine, GoesOnWhenAProgramHangs) {
  RealEngine real;
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Hängt"));
  const int process = real.engine.ProcessId();
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_FALSE(real.ends.back().complete);
  EXPECT_EQ(real.ends.back().reason,
            "Die Stimme „Hängt“ lässt sich nicht verwenden: das Programm „../programs/misbehave“ ist nach 1 "
            "Sekunde "
            "noch nicht fertig.");
  EXPECT_FALSE(fs::exists(real.folder.File("a.wav")));
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Einzeln"));
  real.engine.Speak("Guten Tag.");
  ASSERT_TRUE(real.WaitForEnd(2));
  EXPECT_TRUE(real.ends.back().complete) << real.ends.back().reason;
  EXPECT_EQ(real.engine.ProcessId(), process);
}

TEST_F(CommandEngine, LeavesAProgramThatHangsForTheNextText) {
  RealEngine real;
  real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Hängt"));
  real.engine.SetWaveFile(real.folder.File("a.wav"));
  real.engine.Speak("Guten Tag.");
  real.engine.ResetAudio();
  real.engine.SetCurrentVoice(1);
  real.engine.Speak("Ja.");
  ASSERT_TRUE(real.WaitForEnd());
  EXPECT_TRUE(real.ends.back().complete);
  EXPECT_TRUE(real.log.lines.empty());
}

TEST_F(CommandEngine, RendersTheSameFileTwice) {
  const auto render = [](const std::string& file) {
    RealEngine real;
    real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Bleibend"));
    real.engine.SetWaveFile(real.folder.File(file));
    real.engine.Speak("Guten Tag, Herr Müller. Wie geht es Ihnen?");
    EXPECT_TRUE(real.WaitForEnd());
    EXPECT_TRUE(real.ends.back().complete) << real.ends.back().reason;
    return ReadFile(real.folder.File(file));
  };
  const std::string first = render("a.wav");
  EXPECT_GT(first.size(), 40000U);
  EXPECT_EQ(first, render("b.wav"));
}

TEST_F(CommandEngine, NamesFileAndLineOfAVoiceThatIsWrong) {
  const TemporaryFolder folder;
  WriteFile(folder.File("oma.voice"), "language = de\nbefehl = x");
  const CommandData wrong(folder.Path());
  RealEngine real;
  ASSERT_TRUE(real.WaitUntil([&] { return !real.notices.empty(); }));
  EXPECT_EQ(
      real.notices.back(),
      "Die Stimme „oma“ fehlt in der Auswahl: „oma.voice“, Zeile 2: den Schlüssel „befehl“ gibt es nicht.");
}

// Processes whose parents were killed come to this one as long as it lives.
class Orphanage {
 public:
  Orphanage() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
  ~Orphanage() { prctl(PR_SET_CHILD_SUBREAPER, 0); }
  Orphanage(const Orphanage&) = delete;
  Orphanage& operator=(const Orphanage&) = delete;

  // Waits until none is left; false when some live for a minute.
  static bool IsEmptySoon() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (std::chrono::steady_clock::now() < end) {
      if (waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD) return true;
    }
    return false;
  }
};

TEST_F(CommandEngine, LeavesNoProgramBehindHoweverOftenItIsKilled) {
  const Orphanage orphans;
  {
    RealEngine real(true);
    const std::int32_t voices[] = {VoiceWith(real.engine, "– Einzeln"), VoiceWith(real.engine, "– Bleibend"),
                                   VoiceWith(real.engine, "– Hängt"), VoiceWith(real.engine, "– Modul")};
    std::string text;
    for (int i = 0; i < 200; ++i) text += "Ein langer Text, der nicht enden will. ";
    std::mt19937 random(20261122);
    for (int i = 0; i < 200; ++i) {
      real.clock.steady += std::chrono::minutes(5);
      real.ends.clear();
      real.engine.SetCurrentVoice(voices[i % 4]);
      real.engine.SetWaveFile(i % 3 == 0 ? "" : real.folder.File("lang.wav"));
      real.engine.Speak(text);
      const auto moment = std::chrono::steady_clock::now() + std::chrono::milliseconds(random() % 120);
      while (std::chrono::steady_clock::now() < moment) real.pump.WaitForEvents();
      kill(real.engine.ProcessId(), SIGKILL);
      ASSERT_TRUE(real.WaitForEnd()) << i;
      ASSERT_FALSE(real.ends[0].complete) << i;
    }
    real.engine.SetCurrentVoice(voices[0]);
    real.engine.SetWaveFile(real.folder.File("kurz.wav"));
    real.engine.Speak("Ja.");
    ASSERT_TRUE(real.WaitForEnd(2));
    EXPECT_TRUE(real.ends[1].complete) << real.ends[1].reason;
  }
  EXPECT_TRUE(Orphanage::IsEmptySoon());
}

TEST_F(CommandEngine, EndsItsProgramsWithItself) {
  const Orphanage orphans;
  {
    RealEngine real;
    real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Bleibend"));
    real.engine.SetWaveFile(real.folder.File("kurz.wav"));
    real.engine.Speak("Ja, ja.");
    ASSERT_TRUE(real.WaitForEnd());
    real.engine.SetCurrentVoice(VoiceWith(real.engine, "– Hängt"));
    real.engine.Speak("Ja, ja.");
  }
  EXPECT_TRUE(Orphanage::IsEmptySoon());
}

}  // namespace
}  // namespace lorelin
