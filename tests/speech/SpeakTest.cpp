#include <limits>

#include "base/RuntimeError.h"
#include "tests/support/SpeechFixture.h"

namespace lorelin {
namespace {

class Speak : public SpeechFixture {};

TEST_F(Speak, WhileLoadingDoesNothing) {
  startup.loadingInProgress = true;
  std::string text = "Hallo";
  speech.Speak(text, true, "", true);
  EXPECT_EQ(text, "Hallo");
  EXPECT_TRUE(calls.Entries().empty());
  EXPECT_EQ(pump.turns, 0);
}

TEST_F(Speak, AddsABlankAtEachEndWithoutPrefixAndSuffix) {
  EXPECT_EQ(Spoken("Hallo"), " Hallo ");
}

TEST_F(Speak, PutsPrefixAndSuffixAround) {
  Set(setting::Prefix, "Achtung");
  Set(setting::Suffix, "Ende");
  EXPECT_EQ(Spoken("Hallo"), "Achtung Hallo Ende");
}

TEST_F(Speak, ReadsThePrefixThatTheSettingsDialogWrites) {
  settings.SaveSetting("settings", "Prefix", "Vorweg");
  EXPECT_EQ(Spoken("Hallo"), "Vorweg Hallo ");
}

TEST_F(Speak, GivesBothInstancesTheSameTextAndTheCallerTheDecoratedOne) {
  std::string text = "Hallo";
  speech.Speak(text, false, "-1", false);
  EXPECT_EQ(text, " Hallo ");
  EXPECT_EQ(voice.SpokenText(), " Hallo ");
  EXPECT_EQ(voice2.SpokenText(), " Hallo ");
}

TEST_F(Speak, TakesTheDocumentForATextOfBlanks) {
  document.text = "Das Dokument";
  EXPECT_EQ(Spoken("   "), " Das Dokument ");
  EXPECT_EQ(Spoken(""), " Das Dokument ");
}

TEST_F(Speak, HandsTheFilterTheEmptyTextAndLeavesTheDocumentUnfiltered) {
  std::string seen = "nichts";
  RegisterFilter("Filter", [&](const auto&, auto argument) { return seen = *argument, ""; });
  document.text = "Das Dokument";
  std::string text;
  speech.Speak(text, false, "-1", true);
  EXPECT_EQ(seen, "");
  EXPECT_EQ(voice.SpokenText(), " Das Dokument ");
}

TEST_F(Speak, ReadsTheDocumentWhenTheFilterLeavesOnlyBlanks) {
  RegisterFilter("Filter", [](const auto&, auto) { return "  "; });
  document.text = "Das Dokument";
  std::string text = "etwas";
  speech.Speak(text, false, "-1", true);
  EXPECT_EQ(voice.SpokenText(), " Das Dokument ");
}

TEST_F(Speak, FiltersBeforeItDecorates) {
  Set(setting::Prefix, "v");
  RegisterFilter("Filter", [](const auto&, auto argument) { return "<" + *argument + ">"; });
  std::string text = "a";
  speech.Speak(text, false, "-1", true);
  EXPECT_EQ(text, "v <a> ");
}

TEST_F(Speak, DoesNotFilterUnasked) {
  RegisterFilter("Filter", [](const auto&, auto) { return "gefiltert"; });
  EXPECT_EQ(Spoken("roh"), " roh ");
}

TEST_F(Speak, ReplacesTimePlaceholdersWithoutLeadingZeros) {
  Set(setting::SpellOut, "0");
  EXPECT_EQ(Spoken("$Zeit[h]:$Zeit[m]:$Zeit[s] Tag $Zeit[w], $Zeit[h]"), " 9:5:7 Tag 7, 9 ");
}

TEST_F(Speak, LeavesPlaceholdersInOtherCaseAlone) {
  EXPECT_EQ(Spoken("$zeit[h] $Zeit[H]"), " $zeit[h] $Zeit[H] ");
}

TEST_F(Speak, ReplacesPlaceholdersInPrefixAndSuffix) {
  Set(setting::SpellOut, "0");
  Set(setting::Prefix, "$Zeit[h]");
  Set(setting::Suffix, "$Zeit[m]");
  EXPECT_EQ(Spoken("x"), "9 x 5");
}

TEST_F(Speak, SelectsTheSecondVoiceWithoutASetting) {
  Spoken("x");
  EXPECT_EQ(voice.CurrentVoice(), 2);
  EXPECT_EQ(voice2.CurrentVoice(), 2);
}

TEST_F(Speak, SelectsTheThirdVoiceForTheStoredPositionTwo) {
  Set(setting::Voice, "2");
  Spoken("x");
  EXPECT_EQ(voice.CurrentVoice(), 3);
}

TEST_F(Speak, TellsTheVoiceBeforeThereIsAText) {
  Set(setting::Voice, "2");
  speech.PrepareVoice();
  EXPECT_EQ(voice.CurrentVoice(), 3);
  EXPECT_EQ(voice2.CurrentVoice(), 3);
  Set(setting::Voice, "laut");
  speech.PrepareVoice();
  EXPECT_EQ(voice.CurrentVoice(), 3);
}

TEST_F(Speak, WorksInItsOrder) {
  speech.OnExportAvailable([&](bool available) { calls.Add(available ? "export on" : "export off"); });
  std::string text = "x";
  speech.Speak(text, false, "/tmp/x.wav", false);
  EXPECT_EQ(calls.Entries(),
            (std::vector<std::string>{"Voice2.WaveFile", "Voice.ResetAudio", "Voice2.ResetAudio",
                                      "Voice.Voice=2", "Voice2.Voice=2", "Voice.Pitch=50", "Voice.Speed=25",
                                      "Voice.VolumeLeft=100", "Voice.VolumeRight=100", "Voice2.Pitch=50",
                                      "Voice2.Speed=25", "Voice2.VolumeLeft=100", "Voice2.VolumeRight=100",
                                      "export off", "Voice.Speak", "Voice2.Speak"}));
}

TEST_F(Speak, RoundsAPercentageWithHalvesToEven) {
  voice.pitchRange = {0, 5};
  Spoken("x");
  EXPECT_EQ(voice.Pitch(), 2);
  voice.pitchRange = {0, 7};
  Spoken("x");
  EXPECT_EQ(voice.Pitch(), 4);
}

TEST_F(Speak, GivesTheSecondInstanceWhatTheFirstMadeOfTheValue) {
  Set(setting::Speed, "500");
  voice.speedRange = {80, 450};
  voice2.speedRange = {0, 9999};
  Spoken("x");
  EXPECT_TRUE(calls.Has("Voice.Speed=1930"));
  EXPECT_EQ(voice2.Speed(), 450);
}

TEST_F(Speak, ReportsAnOverflowOfThePercentageAfterTheVoiceWasSet) {
  voice.pitchRange = {0, std::numeric_limits<std::int32_t>::max()};
  bool touched = false;
  speech.OnExportAvailable([&](bool) { touched = true; });
  std::string text = "x";
  try {
    speech.Speak(text, false, "-1", false);
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 6);
    EXPECT_STREQ(error.what(), "Überlauf");
  }
  EXPECT_EQ(voice2.CurrentVoice(), 2);
  EXPECT_FALSE(touched);
  EXPECT_FALSE(voice.Speaking());
}

TEST_F(Speak, ReportsAnOverflowOfTheVoiceNumber) {
  Set(setting::Voice, "2147483647");
  EXPECT_THROW(Spoken("x"), RuntimeError);
}

TEST_F(Speak, ReportsAVoiceThatIsNoNumber) {
  Set(setting::Voice, "Anna");
  try {
    Spoken("x");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 13);
  }
}

TEST_F(Speak, KeepsTheWaveFileForMinusOne) {
  speech.SetWaveFile("/tmp/mein.wav");
  Spoken("x");
  EXPECT_EQ(voice2.WaveFile(), "/tmp/mein.wav");
}

TEST_F(Speak, ChoosesANewTemporaryFileForAnEmptyName) {
  std::string text = "x";
  speech.Speak(text, false, "", false);
  EXPECT_EQ(voice2.WaveFile(), speech.TempWavPath());
  const std::string first = speech.TempWavPath();
  text = "x";
  speech.Speak(text, false, "", false);
  EXPECT_NE(speech.TempWavPath(), first);
}

TEST_F(Speak, RendersIntoTheNamedFileAndKeepsTheTemporaryName) {
  speech.SetWaveFile("");
  const std::string temporary = speech.TempWavPath();
  std::string text = "x";
  speech.Speak(text, false, "/tmp/ziel.wav", false);
  EXPECT_EQ(voice2.WaveFile(), "/tmp/ziel.wav");
  EXPECT_EQ(speech.TempWavPath(), temporary);
}

TEST_F(Speak, WaitsUntilTheFirstInstanceHasFinishedAndResetsBoth) {
  int turnsWhileSpeaking = 0;
  pump.onTurn = [&] {
    if (voice.Speaking() && ++turnsWhileSpeaking == 3) voice.Finish();
  };
  std::string text = "x";
  speech.Speak(text, true, "-1", false);
  EXPECT_EQ(turnsWhileSpeaking, 3);
  EXPECT_EQ(calls.Entries().back(), "Voice2.ResetAudio");
  EXPECT_EQ(calls.Entries()[calls.Entries().size() - 2], "Voice.ResetAudio");
}

TEST_F(Speak, ReturnsAtOnceWithoutWaiting) {
  Spoken("x");
  EXPECT_TRUE(voice.Speaking());
}

TEST_F(Speak, KeepsWaitingForATextThatANestedCallPutInPlace) {
  int turn = 0;
  pump.onTurn = [&] {
    if (!voice.Speaking()) return;
    if (++turn == 1) {
      std::string nested = "zweiter";
      speech.Speak(nested, false, "-1", false);
    } else if (turn == 5) {
      voice.Finish();
    }
  };
  std::string text = "erster";
  speech.Speak(text, true, "-1", false);
  EXPECT_EQ(voice.SpokenText(), " zweiter ");
  EXPECT_GE(turn, 5);
}

TEST_F(Speak, TellsTheEndAndAllowsTheExport) {
  bool available = false;
  speech.OnExportAvailable([&](bool on) { available = on; });
  Spoken("x");
  EXPECT_FALSE(available);
  voice2.Finish();
  EXPECT_EQ(statusBar.message, "Der Text wurde vollständig vorgelesen.");
  EXPECT_TRUE(available);
}

TEST_F(Speak, DoesNotCallARenderingThatBrokeOffComplete) {
  Spoken("x");
  voice2.Finish({.complete = false, .reason = "Zu lang."});
  EXPECT_EQ(statusBar.message, "Zu lang.");
}

TEST_F(Speak, DoesNotCallATextReadWhoseSoundBrokeOff) {
  bool available = false;
  speech.OnExportAvailable([&](bool on) { available = on; });
  Spoken("x");
  voice.Finish({.complete = false, .reason = "Unterbrochen."});
  voice2.Finish();
  EXPECT_EQ(statusBar.message, "Unterbrochen.");
  EXPECT_TRUE(available);
  Spoken("y");
  voice2.Finish();
  EXPECT_EQ(statusBar.message, "Der Text wurde vollständig vorgelesen.");
}

TEST_F(Speak, SaysWhatGoesOnAsLongAsItDoes) {
  Spoken("x");
  EXPECT_EQ(statusBar.notices["reading"], "Liest vor …  ·  Export wird vorbereitet …");
  voice2.Finish();
  EXPECT_EQ(statusBar.notices["reading"], "Liest vor …");
  voice.Finish();
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(Speak, SaysThatAllWasReadAgainWhenItWasHeard) {
  Spoken("x");
  voice2.Finish();
  EXPECT_EQ(statusBar.message, "Der Text wurde vollständig vorgelesen.");
  statusBar.SetMessage("etwas anderes");
  voice.Finish();
  EXPECT_EQ(statusBar.message, "Der Text wurde vollständig vorgelesen.");
}

TEST_F(Speak, DoesNotLetTheEndOfTheTextBeforeStand) {
  Spoken("x");
  voice2.Finish();
  Spoken("y");
  EXPECT_EQ(statusBar.message, "");
}

TEST_F(Speak, AllowsTheExportAgainWhenItIsStopped) {
  bool available = true;
  speech.OnExportAvailable([&](bool on) { available = on; });
  Spoken("x");
  EXPECT_FALSE(available);
  speech.Stop();
  EXPECT_TRUE(available);
}

TEST_F(Speak, AllowsTheExportAgainWhenTheWaitCutsTheRenderingOff) {
  bool available = true;
  speech.OnExportAvailable([&](bool on) { available = on; });
  pump.onTurn = [&] { voice.Finish(); };
  std::string text = "x";
  speech.Speak(text, true, "-1", false);
  EXPECT_TRUE(available);
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(Speak, TellsThatANamedFileWasNotWritten) {
  speech.SetWaveFile("/fehlt/x.wav");
  Spoken("x");
  voice2.Finish({.complete = false, .reason = "Den Ordner gibt es nicht."});
  voice.Finish();
  EXPECT_EQ(statusBar.message, "Den Ordner gibt es nicht.");
  EXPECT_EQ(statusBar.notices["reading"], "„x.wav“ wurde nicht gespeichert.");
  EXPECT_EQ(speech.FailedFiles(), 1);
  EXPECT_EQ(log.lines, std::vector<std::string>{"Exportieren(/fehlt/x.wav): Den Ordner gibt es nicht."});
  speech.SetWaveFile("/da/x.wav");
  Spoken("x");
  voice2.Finish();
  EXPECT_EQ(statusBar.message, "Der Text wurde vollständig vorgelesen.");
  voice.Finish();
  EXPECT_EQ(statusBar.message, "Gespeichert: x.wav");
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(Speak, TellsThatTheRecordingIntoANamedFileWasCutOff) {
  speech.SetWaveFile("/da/x.wav");
  Spoken("x");
  speech.Stop();
  EXPECT_EQ(statusBar.notices["reading"], "„x.wav“ wurde nicht gespeichert.");
  EXPECT_EQ(speech.FailedFiles(), 1);
}

TEST_F(Speak, GoesBackToTheTemporaryFileThatIsThere) {
  speech.SetWaveFile("");
  const std::string temporary = speech.TempWavPath();
  WriteFile(temporary, "RIFF");
  speech.SetWaveFile("/da/x.wav");
  speech.EndNamedWaveFile();
  EXPECT_EQ(voice2.WaveFile(), temporary);
  EXPECT_TRUE(std::filesystem::exists(temporary));
}

TEST_F(Speak, SaysNothingOfATextThatWasStoppedWhileItWasPrepared) {
  int turn = 0;
  pump.onTurn = [&] {
    if (++turn == 2) speech.Stop();
  };
  Spoken("x");
  EXPECT_FALSE(voice.Speaking());
  EXPECT_FALSE(voice2.Speaking());
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(Speak, DoesNotPileUpWhileAKeyIsHeld) {
  document.text = "Dokument";
  int depth = 0;
  int deepest = 0;
  int times = 0;
  pump.onTurn = [&] {
    deepest = std::max(deepest, ++depth);
    if (++times < 3000) {
      times % 2 == 0 ? speech.SpeakMenu() : speech.SpeakToolbar();
    } else {
      voice.Finish();
    }
    --depth;
  };
  speech.SpeakMenu();
  EXPECT_LE(deepest, 3);
  EXPECT_FALSE(voice.Speaking());
}

TEST_F(Speak, CarriesOutTheLastWishOfThoseThatCameWhileATextWasPrepared) {
  document.text = "Dokument";
  document.selectionStart = 5;
  bool wished = false;
  pump.onTurn = [&] {
    if (std::exchange(wished, true)) return;
    speech.SpeakMenu();
    speech.ReadFromCursor();
  };
  Spoken("x");
  EXPECT_EQ(voice.SpokenText(), " ment ");
}

TEST_F(Speak, FromTheMenuReadsTheDocumentUnfilteredAndWaits) {
  RegisterFilter("Filter", [](const auto&, auto argument) { return *argument; });
  document.text = "Dokument";
  pump.onTurn = [&] { voice.Finish(); };
  speech.SpeakMenu();
  EXPECT_EQ(voice.SpokenText(), " Dokument ");
  EXPECT_FALSE(voice.Speaking());
}

TEST_F(Speak, FromTheToolbarFiltersTheDocumentAndDoesNotWait) {
  RegisterFilter("Filter", [](const auto&, auto argument) { return "gefiltert: " + *argument; });
  document.text = "Dokument";
  speech.SpeakToolbar();
  EXPECT_EQ(voice.SpokenText(), " gefiltert: Dokument ");
  EXPECT_TRUE(voice.Speaking());
}

class Pause : public SpeechFixture {};

TEST_F(Pause, TwiceReturnsToSpeaking) {
  speech.PauseSpeech();
  speech.PauseSpeech();
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"Voice.PauseAudio", "Voice2.PauseAudio",
                                                       "Voice.ResumeAudio", "Voice2.ResumeAudio"}));
}

TEST_F(Pause, ExplainsItselfOnceEver) {
  messageBoxes.onShow = [&] { EXPECT_EQ(settings.Get(setting::ShowPauseMsg), "false"); };
  speech.PauseSpeech();
  speech.PauseSpeech();
  speech.PauseSpeech();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Hinweis");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Information);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Bitte setzen Sie die Sprachausgabe mit einem erneuten Klick auf Pause fort. Ein Klick auf "
            "'Sprechen' hat "
            "zur Folge, dass der Text wieder vom Anfang an vorgelesen wird!");
}

TEST_F(Pause, KeepsQuietForAnyStoredWordButYes) {
  Set(setting::ShowPauseMsg, "Yes");
  speech.PauseSpeech();
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(Pause, IsNotForgottenWhenSpeakStartsAnew) {
  speech.PauseSpeech();
  Spoken("x");
  calls.Clear();
  speech.PauseSpeech();
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"Voice.ResumeAudio", "Voice2.ResumeAudio"}));
}

TEST_F(Pause, IsNotTouchedByStop) {
  speech.PauseSpeech();
  speech.Stop();
  calls.Clear();
  speech.PauseSpeech();
  EXPECT_TRUE(calls.Has("Voice.ResumeAudio"));
}

TEST_F(Pause, IsSaidAsLongAsItLasts) {
  Spoken("x");
  voice2.Finish();
  speech.PauseSpeech();
  EXPECT_EQ(statusBar.notices["reading"], "Angehalten");
  EXPECT_EQ(statusBar.message, "");
  speech.PauseSpeech();
  EXPECT_EQ(statusBar.notices["reading"], "Liest vor …");
}

TEST_F(Pause, IsNotSaidWhereNothingIsRead) {
  speech.PauseSpeech();
  EXPECT_EQ(statusBar.notices["reading"], "");
}

class Stop : public SpeechFixture {};

TEST_F(Stop, IsSaidWhereSomethingWasRead) {
  speech.Stop();
  EXPECT_EQ(statusBar.message, "");
  Spoken("x");
  speech.Stop();
  EXPECT_EQ(statusBar.message, "Beendet");
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(Stop, ResetsTheAudibleInstanceFirst) {
  speech.Stop();
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"Voice.ResetAudio", "Voice2.ResetAudio"}));
}

class ReadFromCursor : public SpeechFixture {};

TEST_F(ReadFromCursor, IncludesTheCharacterLeftOfTheCaret) {
  document.text = "Grüße an alle";
  document.selectionStart = 4;
  speech.ReadFromCursor();
  EXPECT_EQ(voice.SpokenText(), " ße an alle ");
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(ReadFromCursor, AtTheBeginningReadsTheWholeDocumentAndComplains) {
  document.text = "Dokument";
  speech.ReadFromCursor();
  EXPECT_EQ(voice.SpokenText(), " Dokument ");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Bitte platzieren Sie den Cursor im Dokument.");
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Exclamation);
}

TEST_F(ReadFromCursor, DoesNotFilter) {
  RegisterFilter("Filter", [](const auto&, auto) { return "gefiltert"; });
  document.text = "abc";
  document.selectionStart = 1;
  speech.ReadFromCursor();
  EXPECT_EQ(voice.SpokenText(), " abc ");
}

TEST(MapPercent, DoesNotClampThePercentage) {
  EXPECT_EQ(MapPercent(150, 0, 100), 150);
  EXPECT_EQ(MapPercent(-50, 10, 20), 5);
}

TEST(MapPercent, ReportsAnOverflowingSpanAndProduct) {
  EXPECT_THROW((void)MapPercent(1, std::numeric_limits<std::int32_t>::min(), 1), RuntimeError);
  EXPECT_THROW((void)MapPercent(101, 0, 21262215), RuntimeError);
  EXPECT_EQ(MapPercent(100, 0, 21474836), 21474836);
}

TEST_F(Speak, LogsNoTextUnlessThatIsAskedFor) {
  (void)Spoken("Zwetschgenmus");
  EXPECT_TRUE(log.lines.empty());
  Set(setting::LogTexts, "true");  // on is "1" alone
  (void)Spoken("Zwetschgenmus");
  EXPECT_TRUE(log.lines.empty());
  Set(setting::LogTexts, "1");
  (void)Spoken("Zwetschgenmus");
  EXPECT_EQ(log.lines, std::vector<std::string>{"Vorgelesen wird:  Zwetschgenmus "});
}

TEST_F(Speak, HoldsATextUntilItGoesOnOrAnotherBegins) {
  Set(setting::ShowPauseMsg, "false");
  speech.PauseSpeech();
  EXPECT_FALSE(speech.Held());  // there was nothing to hold
  speech.PauseSpeech();
  (void)Spoken("eins");
  speech.PauseSpeech();
  EXPECT_TRUE(speech.Held());
  speech.PauseSpeech();
  EXPECT_FALSE(speech.Held());
  speech.PauseSpeech();
  (void)Spoken("zwei");
  EXPECT_FALSE(speech.Held());
}

}  // namespace
}  // namespace lorelin
