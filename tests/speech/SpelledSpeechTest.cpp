#include "speech/SpelledSpeech.h"

#include <gtest/gtest.h>

#include "speech/VoiceSample.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

using SpelledSpeechTest = SpeechFixture;

std::string Repeated(std::string_view text, std::size_t bytes) {
  std::string repeated;
  while (repeated.size() < bytes) repeated += text;
  return repeated;
}

TEST_F(SpelledSpeechTest, BothInstancesGetTheSpokenForm) {
  std::string text = "Er kommt am 3. Mai um 14:30 Uhr.";
  speech.Speak(text, false, "-1", false);
  EXPECT_EQ(voice.SpokenText(), " Er kommt am dritten Mai um vierzehn Uhr dreißig. ");
  EXPECT_EQ(voice2.SpokenText(), voice.SpokenText());
}

TEST_F(SpelledSpeechTest, ASampleIsReadLikeEverythingElse) {
  auto made = std::make_unique<FakeDirectSS>("sample", calls);
  FakeDirectSS& instance = *made;
  VoiceSample sample(speech, [&] { return spoken.Spelled(std::move(made)); });
  sample.Play("am 3. Mai", setting::Volume, "50");
  EXPECT_EQ(instance.SpokenText(), "am dritten Mai");
}

TEST_F(SpelledSpeechTest, TheTextOfTheCallerStaysAsItIsWritten) {
  std::string text = "z. B. 5 kg";
  speech.Speak(text, false, "-1", false);
  EXPECT_EQ(text, " z. B. 5 kg ");
}

TEST_F(SpelledSpeechTest, AVoiceOfAnotherLanguageGetsTheTextAsItIs) {
  Set(setting::Voice, "2");
  EXPECT_EQ(Spoken("May 3. 5 kg"), " May 3. 5 kg ");
}

TEST_F(SpelledSpeechTest, AnAustrianVoiceIsGermanToo) {
  voice.voices[1].language = 0x0C07;
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt fünf Kilogramm. ");
}

TEST_F(SpelledSpeechTest, ANumberThatNoVoiceHasLeavesTheLanguage) {
  Set(setting::Voice, "2");
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt 5 kg. ");
  Set(setting::Voice, "50");
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt 5 kg. ");
}

TEST_F(SpelledSpeechTest, SwitchedOffItLeavesTheTextAlone) {
  Set(setting::SpellOut, "0");
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt 5 kg. ");
  Set(setting::SpellOut, "1");
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt fünf Kilogramm. ");
}

TEST_F(SpelledSpeechTest, ALongTextBeginsBeforeItIsSpelledOutWhole) {
  const std::string text = Repeated("Das kostet 5 EUR. ", 300000);
  spoken.voice.Speak(text);
  EXPECT_TRUE(voice.AwaitsMore());
  EXPECT_LT(voice.SpokenText().size(), 20000U);
  EXPECT_GT(voice.SpokenText().size(), 3000U);
  pump.RunPendingEvents();
  EXPECT_FALSE(voice.AwaitsMore());
  EXPECT_EQ(voice.SpokenText(), SpellOut(text).text);
}

TEST_F(SpelledSpeechTest, BothInstancesShareTheWork) {
  const std::string text = Repeated("Das kostet 5 EUR. ", 100000);
  spoken.voice.Speak(text);
  spoken.voice2.Speak(text);
  EXPECT_EQ(spoken.voice.Current(), spoken.voice2.Current());
  pump.RunPendingEvents();
  EXPECT_EQ(voice.SpokenText(), voice2.SpokenText());
  EXPECT_FALSE(voice2.AwaitsMore());
}

TEST_F(SpelledSpeechTest, ADiscardedTextGetsNoMoreParts) {
  const std::string text = Repeated("Das kostet 5 EUR. ", 100000);
  spoken.voice.Speak(text);
  spoken.voice.ResetAudio();
  const std::size_t heard = voice.SpokenText().size();
  pump.RunPendingEvents();
  EXPECT_EQ(voice.SpokenText().size(), heard);
}

TEST_F(SpelledSpeechTest, ANewTextIsNotMixedWithTheOldOne) {
  spoken.voice.Speak(Repeated("Das kostet 5 EUR. ", 100000));
  const std::string next = Repeated("Er wiegt 3 kg. ", 100000);
  spoken.voice.Speak(next);
  pump.RunPendingEvents();
  EXPECT_EQ(voice.SpokenText(), SpellOut(next).text);
}

TEST_F(SpelledSpeechTest, AnEngineThatDiedIsGivenNothingMore) {
  spoken.voice.Speak(Repeated("Das kostet 5 EUR. ", 100000));
  voice.Finish({.complete = false, .reason = "tot"});
  const std::size_t heard = voice.SpokenText().size();
  pump.RunPendingEvents();
  EXPECT_EQ(voice.SpokenText().size(), heard);
}

TEST_F(SpelledSpeechTest, PartsOfSomebodyElseGoThrough) {
  spoken.voice.SpeakBeginning("5 ");
  spoken.voice.ContinueText("kg", true);
  EXPECT_EQ(voice.SpokenText(), "5 kg");
}

// In characters: of the written text from..to, of the spoken one the words.
std::string WrittenFor(SpelledText& text, std::string_view words) {
  const std::string spoken(text.Part(0));
  const std::size_t at = spoken.find(words);
  EXPECT_NE(at, std::string::npos) << words << " in " << spoken;
  const std::size_t begin = CountCharacters(std::string_view(spoken).substr(0, at));
  const CharacterRange range = WrittenRange(text.Runs(), {begin, begin + CountCharacters(words)});
  std::string_view written = text.Written();
  std::size_t byte = 0;
  std::size_t from = 0;
  for (std::size_t character = 0; byte < written.size() && character < range.end; ++character) {
    if (character == range.begin) from = byte;
    byte += CountCharacters(written.substr(byte, 2)) == 1 ? 2 : 1;
  }
  return std::string(written.substr(from, byte - from));
}

TEST(SpelledTextTest, EveryWordHeardHasItsPlaceInTheWrittenText) {
  SpelledText text(std::make_shared<GermanSpeller>(), "Für z. B. 5 kg Äpfel.");
  EXPECT_EQ(WrittenFor(text, "Für"), "Für");
  EXPECT_EQ(WrittenFor(text, "zum"), "z. B.");
  EXPECT_EQ(WrittenFor(text, "Beispiel"), "z. B.");
  EXPECT_EQ(WrittenFor(text, "Äpfel"), "Äpfel");
}

TEST(SpelledTextTest, PlacesCountThroughAllParts) {
  const std::string written = Repeated("Für 5 EUR. ", 60000);
  SpelledText text(std::make_shared<GermanSpeller>(), written);
  std::string whole;
  std::size_t parts = 0;
  do {
    whole += text.Part(parts);
  } while (!text.IsLast(parts++));
  EXPECT_GT(parts, 2U);
  const SpokenText atOnce = SpellOut(written);
  EXPECT_EQ(whole, atOnce.text);
  EXPECT_EQ(text.Runs(), atOnce.runs);
}

TEST(SpelledTextTest, AnEmptyTextHasOneEmptyPart) {
  SpelledText text(std::make_shared<GermanSpeller>(), "");
  EXPECT_EQ(text.Part(0), "");
  EXPECT_TRUE(text.IsLast(0));
}

}  // namespace
}  // namespace lorelin
