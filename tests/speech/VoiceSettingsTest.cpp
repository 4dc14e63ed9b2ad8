#include "speech/voiceSettings.h"

#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

using VoiceSettings = SpeechFixture;

TEST_F(VoiceSettings, ListTheVoicesAndStoreTheirPosition) {
  VoiceChoice choice(voice, settings);
  EXPECT_EQ(choice.Names(), (std::vector<std::string>{"Deutsch", "Deutsch (weiblich)", "Englisch"}));
  EXPECT_EQ(choice.StoredPosition(), 1);
  choice.Save(2);
  EXPECT_EQ(settings.GetSetting("Voice", "Voice", ""), "2");
  (void)Spoken("x");
  EXPECT_EQ(voice.CurrentVoice(), 3);
}

TEST_F(VoiceSettings, DescribeAVoice) {
  voice.voices = {{"a", 1031, 1}, {"b", 1036, 2}, {"c", 2070, 0}};
  VoiceChoice choice(voice, settings);
  EXPECT_EQ(choice.LanguageLabel(0), "Sprache: Deutsch");
  EXPECT_EQ(choice.GenderLabel(0), "Geschlecht: Männlich");
  EXPECT_EQ(choice.LanguageLabel(1), "Sprache: Unbekannt");
  EXPECT_EQ(choice.GenderLabel(1), "Geschlecht: Weiblich");
  EXPECT_EQ(choice.LanguageLabel(2), "Sprache: Portugiesisch");
  EXPECT_EQ(choice.GenderLabel(2), "Geschlecht: Weiblich");
  EXPECT_THROW((void)choice.LanguageLabel(32767), RuntimeError);
}

TEST_F(VoiceSettings, KnowSixLanguages) {
  EXPECT_EQ(LanguageName(1031), "Deutsch");
  EXPECT_EQ(LanguageName(1033), "Englisch");
  EXPECT_EQ(LanguageName(1034), "Spanisch");
  EXPECT_EQ(LanguageName(1040), "Italienisch");
  EXPECT_EQ(LanguageName(1043), "Niederländisch");
  EXPECT_EQ(LanguageName(2070), "Portugiesisch");
  EXPECT_EQ(LanguageName(0), "Unbekannt");
}

// Until the user confirms a dialog, speech is slower and darker than the dialogs propose.
TEST_F(VoiceSettings, ProposeMoreThanSpeakingTakes) {
  EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Volume), settings), 100);
  EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Speed), settings), 60);
  EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Pitch), settings), 60);
  (void)Spoken("x");
  EXPECT_EQ(voice.Speed(), 25);
  EXPECT_EQ(voice.Pitch(), 50);
}

TEST_F(VoiceSettings, ShowWhatIsStored) {
  Set(setting::Speed, "42");
  EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Speed), settings), 42);
  Set(setting::Speed, "400");
  EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Speed), settings), 100);
}

// A script may store anything: the dialogs open all the same, and confirming them repairs it.
TEST_F(VoiceSettings, ShowTheDefaultForWhatIsNoNumber) {
  for (const auto* const text : {"schnell", "", "99999999999"}) {
    Set(setting::Speed, text);
    Set(setting::Volume, text);
    Set(setting::Voice, text);
    EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Speed), settings), 60) << text;
    EXPECT_EQ(ShownPercentage(SliderDialogFor(VoiceParameter::Volume), settings), 100) << text;
    EXPECT_EQ(VoiceChoice(voice, settings).StoredPosition(), 1) << text;
  }
}

TEST_F(VoiceSettings, TellHowToRepairAValueThatCannotBeSpokenWith) {
  Set(setting::Speed, "schnell");
  try {
    (void)Spoken("x");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 13);
    EXPECT_STREQ(
        error.what(),
        "Typen unverträglich: Für Geschwindigkeit ist „schnell“ gespeichert, das ist keine brauchbare "
        "Zahl. Stellen Sie sie mit „Geschwindigkeit ändern“ neu ein.");
  }
  Set(setting::Speed, "30");
  Set(setting::Voice, "99999999999");
  try {
    (void)Spoken("x");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 6);
    EXPECT_NE(std::string(error.what()).find("„Stimme wählen“"), std::string::npos) << error.what();
  }
}

TEST_F(VoiceSettings, CanBeHeardWithoutBeingStored) {
  speech.SpeakSample("Probe", setting::Speed, "77");
  EXPECT_EQ(voice.SpokenText(), "Probe");
  EXPECT_EQ(voice.Speed(), 77);
  EXPECT_FALSE(calls.Has("Voice2.Speak"));
  EXPECT_FALSE(calls.Has("Voice2.ResetAudio"));
  EXPECT_EQ(settings.Get(setting::Speed), "25");
}

}  // namespace
}  // namespace lorelin
