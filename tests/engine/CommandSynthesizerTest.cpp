#include "engine/CommandSynthesizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

#include "base/textEncoding.h"
#include "engine/speakableText.h"
#include "engine/waveHeader.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/commandVoices.h"

namespace lorelin::engine {
namespace {

constexpr int kRate = 22050;
constexpr double kSilence = 0.05;    // in front of what tests/engine/programs/tones speaks
constexpr double kCharacter = 0.03;  // of it
constexpr double kPause = 0.2;

double Seconds(std::size_t samples) {
  return static_cast<double>(samples) / kRate;
}

class Commanded : public testing::Test {
 protected:
  Commanded() {
    utterance.pitch = 50;
    utterance.speed = 175;
    utterance.volumeLeft = 100;
  }

  bool Speak(const CommandVoice& voice, const std::string& text) {
    CommandSynthesizer synthesizer({voice}, kRate);
    return Speak(synthesizer, text);
  }
  bool Speak(CommandSynthesizer& synthesizer, const std::string& text) {
    samples.clear();
    marks.clear();
    synthesizer.Apply(0, utterance);
    const bool spoken = synthesizer.Speak(
        text,
        [this](std::span<const std::int16_t> some) {
          samples.insert(samples.end(), some.begin(), some.end());
          return true;
        },
        [this](const WordMark& mark) {
          EXPECT_GE(mark.sample, samples.size());
          marks.push_back(mark);
        });
    problem = synthesizer.Problem();
    return spoken;
  }
  std::string ProblemOf(const std::string& command, const std::string& more = {}) {
    EXPECT_FALSE(Speak(MakeCommandVoice(command, more), "Guten Tag.")) << command;
    return problem;
  }

  // Of the middle of what sounds.
  [[nodiscard]] double Hertz() const {
    const auto loud = [](std::int16_t sample) { return std::abs(sample) > 4000; };
    const auto begin = std::find_if(samples.begin(), samples.end(), loud) - samples.begin();
    const auto end = samples.rend() - std::find_if(samples.rbegin(), samples.rend(), loud);
    const auto edge = (end - begin) / 8;
    std::vector<std::size_t> rises;
    for (auto i = static_cast<std::size_t>(begin + edge); i < static_cast<std::size_t>(end - edge); ++i) {
      if (samples[i - 1] < 0 && samples[i] >= 0) rises.push_back(i);
    }
    return rises.size() < 2 ? 0
                            : (static_cast<double>(rises.size()) - 1) / Seconds(rises.back() - rises.front());
  }

  static std::string Tones(const std::string& options = {}) { return TestProgram("tones") + " " + options; }
  static std::string Misbehaving(const std::string& how) { return TestProgram("misbehave") + " " + how; }

  Utterance utterance;
  std::vector<std::int16_t> samples;
  std::vector<WordMark> marks;
  std::string problem;
};

constexpr const char* kText = "Guten Morgen.";  // 13 characters
constexpr double kLength = kSilence + 13 * kCharacter + kPause;

TEST_F(Commanded, SpeaksInEveryFormOfSound) {
  for (const char* const options :
       {"", "--rate 8000", "--rate 48000 --channels 2", "--bits 8", "--bits 24", "--bits 32 --rate 44100",
        "--bits float --channels 2", "--unknown-size"}) {
    ASSERT_TRUE(Speak(MakeCommandVoice(Tones(options)), kText)) << options << problem;
    EXPECT_NEAR(Seconds(samples.size()), kLength, 0.001) << options;
    EXPECT_NEAR(Hertz(), 300, 3) << options;
    EXPECT_NEAR(*std::max_element(samples.begin(), samples.end()), 16384, 800) << options;
  }
}

TEST_F(Commanded, SpeaksPlainSamples) {
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones("--raw --rate 16000"), "output = raw\nrate = 16000"), kText))
      << problem;
  EXPECT_NEAR(Seconds(samples.size()), kLength, 0.001);
  EXPECT_NEAR(Hertz(), 300, 3);
}

TEST_F(Commanded, GivesAProgramOneSentenceAfterTheOther) {
  const TemporaryFolder folder;
  WriteFile(folder.File("merken"),
            "#!/bin/sh\necho begonnen >>log\nexec tee -a log | " + TestProgram("tones") + "\n");
  std::filesystem::permissions(folder.File("merken"), std::filesystem::perms::owner_all);
  CommandVoice voice = MakeCommandVoice("./merken");
  voice.folder = folder.Path();
  ASSERT_TRUE(Speak(voice, "Guten Morgen.  Wie geht\nes Ihnen?\n\n…\n\nÜbel!")) << problem;
  EXPECT_EQ(ReadFile(folder.File("log")),
            "begonnen\nGuten Morgen.\nbegonnen\nWie geht es Ihnen?\nbegonnen\nÜbel!\n");
  EXPECT_NEAR(Seconds(samples.size()), 3 * (kSilence + kPause) + (13 + 18 + 5) * kCharacter, 0.002);
}

TEST_F(Commanded, AsksOneProgramThatStaysForEverySentence) {
  const TemporaryFolder folder;
  WriteFile(folder.File("merken"),
            "#!/bin/sh\necho begonnen >>log\nexec " + TestProgram("tones") + " --lines\n");
  std::filesystem::permissions(folder.File("merken"), std::filesystem::perms::owner_all);
  CommandVoice voice = MakeCommandVoice("./merken", "mode = stays");
  voice.folder = folder.Path();
  CommandSynthesizer synthesizer({voice}, kRate);
  synthesizer.Prepare(0);
  ASSERT_TRUE(Speak(synthesizer, "Guten Morgen. Wie geht\nes Ihnen?")) << problem;
  EXPECT_NEAR(Seconds(samples.size()), 2 * (kSilence + kPause) + (13 + 18) * kCharacter, 0.002);
  ASSERT_TRUE(Speak(synthesizer, kText)) << problem;
  EXPECT_NEAR(Seconds(samples.size()), kLength, 0.001);
  EXPECT_EQ(ReadFile(folder.File("log")), "begonnen\n");
}

TEST_F(Commanded, IsFasterAndHigherAsItIsTold) {
  for (const int speed : {80, 350, 450}) {
    utterance.speed = speed;
    for (const int pitch : {0, 50, 100}) {
      utterance.pitch = pitch;
      ASSERT_TRUE(Speak(MakeCommandVoice(Tones()), kText)) << problem;
      EXPECT_NEAR(Seconds(samples.size()) / kLength, 175.0 / speed, 0.03) << speed << " " << pitch;
      EXPECT_NEAR(Hertz() / 300, std::exp2((pitch - 50) / 100.0), 0.02) << speed << " " << pitch;
    }
  }
}

TEST_F(Commanded, LeavesToTheProgramWhatItTakes) {
  utterance.speed = 350;
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones("--stretch {stretch}")), kText)) << problem;
  EXPECT_NEAR(Seconds(samples.size()), kSilence + (kLength - kSilence) / 2, 0.002);
  utterance.pitch = 80;
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones("--stretch {stretch} --hertz {pitch}")), kText)) << problem;
  EXPECT_NEAR(Hertz(), 80, 2);
}

TEST_F(Commanded, IsAsLoudAsItIsTold) {
  utterance.volumeLeft = 25;
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones()), kText)) << problem;
  EXPECT_NEAR(*std::max_element(samples.begin(), samples.end()), 4096, 50);
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones("--hertz {volume}")), kText)) << problem;
  EXPECT_NEAR(*std::max_element(samples.begin(), samples.end()), 16384, 100);
}

TEST_F(Commanded, TellsEveryWordByItsShare) {
  const std::string text = "„Grüße“ aus Köln. Na, 1984?";
  ASSERT_TRUE(Speak(MakeCommandVoice(Tones()), text)) << problem;
  std::string words;
  for (const WordMark& mark : marks) {
    const std::string_view rest = FromCharacter(text, mark.begin);
    words +=
        std::string(rest.substr(0, rest.size() - FromCharacter(rest, mark.end - mark.begin).size())) + "|";
  }
  EXPECT_EQ(words, "Grüße|aus|Köln|Na|1984|");
  EXPECT_NEAR(Seconds(marks[0].sample), kSilence, 0.005);
  EXPECT_NEAR(Seconds(marks[2].sample), kSilence + 17 * kCharacter * 8 / 12, 0.01);
  EXPECT_NEAR(Seconds(marks[3].sample), kSilence + 17 * kCharacter + kPause + kSilence, 0.01);
}

TEST_F(Commanded, SaysWhyAProgramDidNotSpeak) {
  const std::string begin = "Die Stimme „Probe“ lässt sich nicht verwenden: das Programm „";
  const std::string program = TestProgram("misbehave") + "“ ";
  EXPECT_EQ(ProblemOf("gibt-es-nicht"), begin + "gibt-es-nicht“ wurde nicht gefunden.");
  EXPECT_EQ(ProblemOf(Misbehaving("haengt"), "timeout = 1"),
            begin + program + "ist nach 1 Sekunde noch nicht fertig.");
  EXPECT_EQ(ProblemOf(Misbehaving("unbeirrt"), "timeout = 1"),
            begin + program + "ist nach 1 Sekunde noch nicht fertig.");
  EXPECT_EQ(ProblemOf(Misbehaving("unsinn")), begin + program + "gibt etwas anderes aus als eine WAV-Datei.");
  EXPECT_EQ(ProblemOf(Misbehaving("frueh")), begin + program + "gibt keinen Ton aus.");
  EXPECT_EQ(ProblemOf(Misbehaving("fehler")),
            begin + program + "endet mit dem Fehler 3 („Die Lizenz fehlt.“).");
  EXPECT_EQ(ProblemOf(Misbehaving("stuerzt")), begin + program + "ist abgestürzt.");
  EXPECT_EQ(ProblemOf(Misbehaving("endlos")), begin + program + "gibt zu einem Satz mehr als 32 MB aus.");
}

TEST_F(Commanded, SaysWhyAProgramThatStaysDidNotSpeak) {
  const std::string begin =
      "Die Stimme „Probe“ lässt sich nicht verwenden: das Programm „" + TestProgram("misbehave") + "“ ";
  const std::string stays = "mode = stays\ntimeout = 1";
  EXPECT_EQ(ProblemOf(Misbehaving("haengt"), stays), begin + "ist nach 1 Sekunde noch nicht fertig.");
  EXPECT_EQ(ProblemOf(Misbehaving("unsinn"), stays), begin + "gibt etwas anderes aus als eine WAV-Datei.");
  EXPECT_EQ(ProblemOf(Misbehaving("zeilen"), "mode = stays\ntimeout = 1"),
            begin + "ist nach 1 Sekunde noch nicht fertig.");  // ten bytes might still become a WAV
  EXPECT_EQ(ProblemOf(Misbehaving("einmal"), stays), begin + "endet, bevor der Satz gesprochen ist.");
  EXPECT_EQ(ProblemOf(Misbehaving("fehler"), stays), begin + "endet mit dem Fehler 3 („Die Lizenz fehlt.“).");
  EXPECT_EQ(ProblemOf(Misbehaving("endlos"), stays), begin + "gibt etwas anderes aus als eine WAV-Datei.");
  EXPECT_FALSE(Speak(MakeCommandVoice(Tones("--lines --unknown-size"), "mode = stays"), "Ja, ja."));
  EXPECT_TRUE(problem.ends_with("“ nennt in seiner WAV-Datei nicht, wie lang sie ist.")) << problem;
}

TEST_F(Commanded, TakesTheSoundOfAProgramThatDoesNotEnd) {
  const TemporaryFolder folder;
  WriteFile(folder.File("ton.wav"), WaveHeader(kRate, 4000) + std::string(4000, '\x20'));
  ASSERT_TRUE(Speak(MakeCommandVoice(Misbehaving("bleibt " + folder.File("ton.wav"))), kText)) << problem;
  EXPECT_EQ(samples.size(), 2000 + static_cast<std::size_t>(kPause * kRate));
}

TEST_F(Commanded, SpeaksWithAModuleAndKnowsItsWords) {
  const std::string module = TestProgram("module");
  CommandSynthesizer synthesizer({MakeCommandVoice(module, "mode = module")}, kRate);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(Speak(synthesizer, "Grüße an\n<Moritz> & Max. Ja, gut.")) << problem;
    EXPECT_NEAR(Seconds(samples.size()), 7 * 0.1 + 2 * kPause, 0.002);
    ASSERT_EQ(marks.size(), 7U);
    for (const std::size_t word : {0U, 1U, 2U, 3U, 4U}) {
      EXPECT_NEAR(Seconds(marks[word].sample), 0.1 * static_cast<double>(word), 0.001) << word;
    }
    EXPECT_NEAR(Seconds(marks[6].sample), 0.1 * 6 + kPause, 0.001);
  }
  EXPECT_TRUE(ProblemOf(module + " --stumm", "mode = module").ends_with("“ meldet: 300 MODULE ERROR."));
  EXPECT_TRUE(ProblemOf(Misbehaving("unsinn"), "mode = module")
                  .ends_with("“ antwortet nicht wie ein Modul von speech-dispatcher."));
}

TEST_F(Commanded, StartsAProgramThatStaysAgainWhenItIsGone) {
  const TemporaryFolder folder;
  WriteFile(folder.File("einmal"),
            "#!/bin/sh\nread -r line\necho \"$line\" | " + TestProgram("tones") + " --lines\n");
  std::filesystem::permissions(folder.File("einmal"), std::filesystem::perms::owner_all);
  CommandSynthesizer synthesizer({MakeCommandVoice(folder.File("einmal"), "mode = stays")}, kRate);
  for (int i = 0; i < 3; ++i) {
    // It may end while the next sentence is on its way to it; that one is lost.
    const bool spoken = Speak(synthesizer, kText);
    EXPECT_TRUE(spoken || problem.ends_with("endet, bevor der Satz gesprochen ist.")) << problem;
  }
}

TEST_F(Commanded, GoesOnWithTheNextTextWhateverHappened) {
  CommandVoice broken = MakeCommandVoice("gibt-es-nicht");
  CommandSynthesizer synthesizer({MakeCommandVoice(Tones()), broken}, kRate);
  synthesizer.Apply(1, utterance);
  EXPECT_FALSE(synthesizer.Speak(
      kText, [](auto) { return true; }, [](const WordMark&) {}));
  EXPECT_TRUE(Speak(synthesizer, kText));
  EXPECT_EQ(problem, "");
}

TEST_F(Commanded, EndsWhenNobodyTakesItsSamples) {
  CommandSynthesizer synthesizer({MakeCommandVoice(Tones())}, kRate);
  int calls = 0;
  EXPECT_FALSE(synthesizer.Speak(
      kText, [&](auto) { return ++calls < 3; }, [](const WordMark&) {}));
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(synthesizer.Problem(), "");
}

TEST_F(Commanded, StopsAProgramThatHangs) {
  CommandSynthesizer synthesizer({MakeCommandVoice(Misbehaving("haengt"), "timeout = 300")}, kRate);
  std::thread other([&] { synthesizer.SetCancelled(true); });
  EXPECT_FALSE(Speak(synthesizer, kText));
  other.join();
  EXPECT_EQ(problem, "");
}

TEST_F(Commanded, ReadsNastyTexts) {
  for (const std::string& text : {std::string(), std::string(" \n "), std::string("..."), std::string("🎉"),
                                  std::string("-e $(ls) `ls` \\0"), std::string(3000, 'x')})
    EXPECT_TRUE(Speak(MakeCommandVoice(Tones()), text)) << text.substr(0, 10) << problem;
}

TEST(NextSentence, EndsWhereOneEnds) {
  const auto sentences = [](std::string_view text) {
    std::vector<std::string> found;
    while (!text.empty()) {
      found.emplace_back(text.substr(0, NextSentence(text)));
      text.remove_prefix(found.back().size());
    }
    return found;
  };
  using Words = std::vector<std::string>;
  EXPECT_EQ(sentences("Guten Tag. Wie geht es?  Gut! ja"),
            (Words{"Guten Tag. ", "Wie geht es?  ", "Gut! ja"}));
  EXPECT_EQ(sentences("„Komm mit!“ „Nein danke.“ Er blieb z. B. hier. 12 Uhr"),
            (Words{"„Komm mit!“ ", "„Nein danke.“ ", "Er blieb z. B. hier. ", "12 Uhr"}));
  EXPECT_EQ(sentences("Titel\n\nText\nweiter"), (Words{"Titel\n\n", "Text\nweiter"}));
  std::string longText;
  for (int i = 0; i < 300; ++i) longText += "wort, ";
  for (const std::string& sentence : sentences(longText)) EXPECT_LE(sentence.size(), 510U);
  for (const std::string& sentence : sentences(std::string(5000, 'x'))) EXPECT_LE(sentence.size(), 1810U);
  std::string umlauts;
  for (int i = 0; i < 2000; ++i) umlauts += "ü";
  for (const std::string& sentence : sentences(umlauts)) EXPECT_TRUE(IsValidUtf8(sentence));
}

}  // namespace
}  // namespace lorelin::engine
