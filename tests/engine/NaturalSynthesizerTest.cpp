#include "engine/NaturalSynthesizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <thread>

#include "base/textEncoding.h"
#include "engine/phonemes.h"
#include "tests/support/espeakLibrary.h"
#include "tests/support/naturalVoices.h"

namespace lorelin::engine {
namespace {

// A tone among the samples.
struct Tone {
  std::size_t begin = 0;
  std::size_t end = 0;
  double hertz = 0;
};

double Hertz(const std::vector<std::int16_t>& samples, std::size_t begin, std::size_t end) {
  std::vector<double> rises;
  for (std::size_t i = begin + 1; i < end; ++i) {
    const double before = samples[i - 1];
    const double after = samples[i];
    if (before < 0 && after >= 0) rises.push_back(static_cast<double>(i) - after / (after - before));
  }
  return rises.size() < 2 ? 0
                          : 22050 * (static_cast<double>(rises.size()) - 1) / (rises.back() - rises.front());
}

// Runs of sound between silences of two milliseconds and more.
std::vector<Tone> Tones(const std::vector<std::int16_t>& samples) {
  constexpr std::size_t kSilence = 44;
  std::vector<Tone> tones;
  std::size_t lastLoud = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (std::abs(samples[i]) < 600) continue;
    if (tones.empty() || i - lastLoud > kSilence) tones.push_back({.begin = i});
    lastLoud = i;
    tones.back().end = i + 1;
  }
  // A tone that is cut off hard rings when its rate is changed.
  for (Tone& tone : tones) {
    const std::size_t edge = (tone.end - tone.begin) / 6;
    tone.hertz = Hertz(samples, tone.begin + edge, tone.end - edge);
  }
  return tones;
}

class Natural : public testing::Test {
 protected:
  void SetUp() override {
    SKIP_WITHOUT_RUNTIME();
    utterance.pitch = 50;
    utterance.speed = 175;
    utterance.volumeLeft = 100;
  }

  static FoundVoices Found() { return FindNaturalVoices({TestVoices()}); }
  static NaturalSynthesizer& Synthesizer() {
    static NaturalSynthesizer synthesizer(TheEspeakLibrary(), InstalledRuntime(), Found().voices);
    return synthesizer;
  }
  static std::size_t Number(const std::string& part) {
    const auto voices = Synthesizer().Voices();
    const auto found = std::find_if(voices.begin(), voices.end(), [&](const Voice& voice) {
      return voice.name.find(part) != std::string::npos;
    });
    EXPECT_NE(found, voices.end()) << part;
    return static_cast<std::size_t>(found - voices.begin());
  }

  bool Speak(const std::string& voice, const std::string& text) {
    samples.clear();
    marks.clear();
    Synthesizer().Apply(Number(voice), utterance);
    return Synthesizer().Speak(
        text,
        [this](std::span<const std::int16_t> some) {
          samples.insert(samples.end(), some.begin(), some.end());
          return true;
        },
        [this](const WordMark& mark) { marks.push_back(mark); });
  }

  // The heights that the stand-in voice has for the sounds of the text.
  static std::vector<double> Expected(const std::string& voice, const std::string& text) {
    const auto voices = Found().voices;
    const auto told = std::find_if(voices.begin(), voices.end(),
                                   [&](const NaturalVoice& one) { return one.dataset == voice; });
    std::vector<double> heights;
    Phonemizer phonemizer(TheEspeakLibrary(), "de", text);
    while (const auto clause = phonemizer.Next()) {
      for (const char32_t symbol : clause->symbols) {
        const auto found = told->symbols.find(symbol);
        if (symbol != U' ' && found != told->symbols.end())
          heights.push_back(200 + 10 * static_cast<double>(found->second.front()));
      }
    }
    return heights;
  }

  void ExpectTones(const std::vector<double>& heights, double factor) {
    const auto tones = Tones(samples);
    ASSERT_EQ(tones.size(), heights.size());
    for (std::size_t i = 0; i < tones.size(); ++i) EXPECT_NEAR(tones[i].hertz, heights[i] * factor, 4) << i;
  }

  Utterance utterance;
  std::vector<std::int16_t> samples;
  std::vector<WordMark> marks;
};

constexpr const char* kSentence = "Guten Tag, Herr Müller. Ja!";

TEST_F(Natural, SpeaksEverySoundOfATextAndNoOther) {
  ASSERT_TRUE(Speak("probe", kSentence)) << Synthesizer().Problem();
  ExpectTones(Expected("probe", kSentence), 1);
}

TEST_F(Natural, HasTheLengthOfItsSymbolsAndPauses) {
  ASSERT_TRUE(Speak("probe", "Ja!"));
  // Beginning, three sounds and a sign with a parting symbol each, and the end; 20 frames of 64 samples.
  const std::size_t symbols = 2 + 2 * (Expected("probe", "Ja!").size() + 1) + 1;
  EXPECT_EQ(samples.size(), symbols * 20 * 64 + 22050 / 5);
}

TEST_F(Natural, SpeaksTheSameAtTheEnginesRate) {
  ASSERT_TRUE(Speak("– hoch", kSentence)) << Synthesizer().Problem();
  ExpectTones(Expected("paar", kSentence), 1);
  const double other = static_cast<double>(samples.size());
  ASSERT_TRUE(Speak("probe", kSentence));
  const double pauses = 2 * 22050.0 / 5;
  EXPECT_NEAR((other - pauses) / (static_cast<double>(samples.size()) - pauses), 22050.0 / 16000, 0.001);
}

TEST_F(Natural, SpeaksWithEverySpeakerOfAModel) {
  ASSERT_TRUE(Speak("– tief", kSentence));
  ExpectTones(Expected("paar", kSentence), 0.5);
}

TEST_F(Natural, IsFasterWithoutBeingHigher) {
  ASSERT_TRUE(Speak("probe", kSentence));
  const auto usual = static_cast<double>(samples.size());
  utterance.speed = 350;
  ASSERT_TRUE(Speak("probe", kSentence));
  EXPECT_NEAR(static_cast<double>(samples.size()) / usual, 0.5, 0.01);
  ExpectTones(Expected("probe", kSentence), 1);
}

TEST_F(Natural, IsHigherWithoutBeingFaster) {
  ASSERT_TRUE(Speak("probe", kSentence));
  const auto usual = static_cast<double>(samples.size());
  for (const int pitch : {0, 60, 75, 100}) {
    utterance.pitch = pitch;
    ASSERT_TRUE(Speak("probe", kSentence));
    EXPECT_NEAR(static_cast<double>(samples.size()) / usual, 1, 0.01) << pitch;
    ExpectTones(Expected("probe", kSentence), std::exp2((pitch - 50) / 100.0));
  }
}

TEST_F(Natural, IsAsLoudAsItIsTold) {
  ASSERT_TRUE(Speak("probe", kSentence));
  const double loud = *std::max_element(samples.begin(), samples.end());
  utterance.volumeLeft = 25;
  ASSERT_TRUE(Speak("probe", kSentence));
  EXPECT_NEAR(*std::max_element(samples.begin(), samples.end()) / loud, 0.25, 0.01);
  utterance.volumeLeft = 0;
  ASSERT_TRUE(Speak("probe", kSentence));
  EXPECT_EQ(*std::max_element(samples.begin(), samples.end()), 0);
}

TEST_F(Natural, SpeaksATextTheSameWayEveryTime) {
  ASSERT_TRUE(Speak("rausch", kSentence));
  const auto first = samples;
  ASSERT_TRUE(Speak("rausch", "Etwas anderes."));
  ASSERT_TRUE(Speak("rausch", kSentence));
  EXPECT_EQ(samples, first);
  ASSERT_TRUE(Speak("probe", kSentence));
  EXPECT_NE(samples, first);
}

TEST_F(Natural, TellsWhenEachWordBegins) {
  const std::string text = "Guten Tag, Herr Müller.\n\nJa, 1984 kam „er“.";
  ASSERT_TRUE(Speak("probe", text));
  std::string words;
  for (const WordMark& mark : marks) {
    const std::string_view rest = FromCharacter(text, mark.begin);
    words +=
        std::string(rest.substr(0, rest.size() - FromCharacter(rest, mark.end - mark.begin).size())) + "|";
  }
  EXPECT_EQ(words, "Guten|Tag|Herr|Müller|Ja|1984|kam|er|");
  const auto tones = Tones(samples);
  for (const std::size_t word :
       {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{4}}) {
    const bool there = std::any_of(tones.begin(), tones.end(), [&](const Tone& tone) {
      return std::abs(static_cast<double>(tone.begin) - static_cast<double>(marks[word].sample)) < 60;
    });
    EXPECT_TRUE(there) << word << " at " << marks[word].sample;
  }
  for (std::size_t i = 1; i < marks.size(); ++i) EXPECT_LT(marks[i - 1].sample, marks[i].sample);
}

TEST_F(Natural, SaysWhyAVoiceCannotSpeak) {
  const std::string end = "-low“ lässt sich nicht verwenden: ";
  for (const auto& [voice, reason] :
       {std::pair{"kaputt_art", "ihr Modell rechnet falsch."},
        std::pair{"kaputt_nan", "ihr Modell rechnet falsch."},
#ifndef __SANITIZE_ADDRESS__  // where asking for more memory than there is ends the program
        std::pair{"kaputt_riesig", "ihr Modell rechnet falsch."},
#endif
        std::pair{"kaputt_fremd", "die ONNX Runtime kann ihr Modell nicht ausführen."}}) {
    EXPECT_FALSE(Speak(voice, kSentence)) << voice;
    EXPECT_EQ(Synthesizer().Problem(), "Die Stimme „de_DE-" + std::string(voice) + end + reason);
  }
  ASSERT_TRUE(Speak("probe", kSentence));
  EXPECT_EQ(Synthesizer().Problem(), "");
}

TEST_F(Natural, ReadsNastyTexts) {
  utterance.speed = 450;
  for (const std::string& text : {std::string(), std::string(" \n "), std::string("..."), std::string("🎉"),
                                  std::string("[[x]] <b>&amp;</b>"), std::string(3000, 'x')})
    EXPECT_TRUE(Speak("probe", text)) << text.substr(0, 10) << Synthesizer().Problem();
}

TEST_F(Natural, EndsWhenNobodyTakesItsSamples) {
  Synthesizer().Apply(Number("probe"), utterance);
  int calls = 0;
  EXPECT_FALSE(Synthesizer().Speak(
      kSentence, [&](auto) { return ++calls < 3; }, [](const WordMark&) {}));
  EXPECT_EQ(calls, 3);
}

TEST_F(Natural, StopsInTheMiddleOfALongComputation) {
  std::string text;
  for (int i = 0; i < 200; ++i) text += "Ein langer Satz ohne Ende und Ziel. ";
  std::atomic<bool> ended{false};
  std::thread speaker([&] {
    EXPECT_FALSE(Speak("langsam", text));
    ended = true;
  });
  Synthesizer().SetCancelled(true);
  speaker.join();
  EXPECT_TRUE(ended);
  EXPECT_EQ(Synthesizer().Problem(), "");
  Synthesizer().SetCancelled(false);
  EXPECT_TRUE(Speak("probe", "Ja."));
}

}  // namespace
}  // namespace lorelin::engine
