#include "scripts/interpreter.h"

#include <new>

#include "scripts/scriptLanguage.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

constexpr const char* kScriptEnded = "Ausführung des Taskscripts beendet.";

class InterpreterTest : public ScriptFixture {
 protected:
  InterpreterTest() {
    fileSearch.names = {"a.vts", "b.vts"};
    pump.onTurn = [this] { GoOn(); };
  }
  void Run(std::string_view script, const std::string& name = "a.vts") {
    WriteScript(name, script);
    interpreter.SetCurrentScriptFile(name);
    interpreter.ExecuteSkript(name == "a.vts" ? 1 : 2);
  }
  // Half a second a turn; `atTurn` can do something in one of them.
  void GoOn() {
    if (++turns_ % 2 == 0 && ++clock.now.second == 60) clock.now.second = 0;
    clock.steady += std::chrono::milliseconds(500);
    if (const auto found = atTurn.find(turns_); found != atTurn.end()) found->second();
    if (turns_ > 1000) throw std::logic_error("the script waits for ever");
  }
  std::map<int, std::function<void()>> atTurn;

 private:
  int turns_ = 0;
};

TEST_F(InterpreterTest, TellsHowToEndItAndThatItEnded) {
  Run("# nichts\r\n\r\n");
  EXPECT_EQ(
      statusBar.messages,
      (std::vector<std::string>{"Drücken Sie ESC um die Ausführung von 'a.vts' zu beenden.", kScriptEnded}));
}

TEST_F(InterpreterTest, LeavesTheStatusBarWhenScriptsAreForbidden) {
  Set(setting::VTSAllow, "0");
  Run("Meldung(nie);");
  EXPECT_TRUE(statusBar.messages.empty());
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Warnung");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Forbidden);
}

TEST_F(InterpreterTest, RunsForEveryOtherValueOfTheSwitch) {
  Set(setting::VTSAllow, "nein");
  Run("Meldung(doch);");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "doch");
}

TEST_F(InterpreterTest, NeedsExactlyOneForAPermission) {
  Set(setting::VTSAllowRead, "true");
  document.files["brief.txt"] = "Lieber Leser";
  Run("Laden(brief.txt);");
  EXPECT_EQ(document.text, "");
}

TEST_F(InterpreterTest, ThrowsWhenTheScriptCannotBeRead) {
  interpreter.SetCurrentScriptFile("fehlt.vts");
  EXPECT_THROW(interpreter.ExecuteSkript(1), RuntimeError);
  EXPECT_FALSE(interpreter.ScriptRunning());
  EXPECT_TRUE(statusBar.messages.empty());
}

TEST_F(InterpreterTest, ReadsWindows1252AndUtf8) {
  Run("Meldung(Gr\xFC\xDF"
      "e);");
  Run("Meldung(Grüße);");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Grüße");
  EXPECT_EQ(messageBoxes.boxes[1].text, "Grüße");
}

TEST_F(InterpreterTest, RunsWhileItsFlagIsSet) {
  bool running = false;
  messageBoxes.onShow = [&] { running = interpreter.ScriptRunning(); };
  Run("Meldung(x);");
  EXPECT_TRUE(running);
  EXPECT_FALSE(interpreter.ScriptRunning());
}

TEST_F(InterpreterTest, ReadsTheFileAnewToRepeat) {
  messageBoxes.onShow = [&] { WriteScript("a.vts", "Meldung(zwei);"); };
  Run("Meldung(eins);\r\nWiederholen();\r\nMeldung(nie);");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[1].text, "zwei");
  EXPECT_EQ(statusBar.messages.back(), kScriptEnded);
}

TEST_F(InterpreterTest, AsksForThePermissionAnewToRepeat) {
  messageBoxes.onShow = [&] { Set(setting::VTSAllow, "0"); };
  Run("Meldung(eins);\r\nWiederholen();");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[1].title, "Warnung");
  EXPECT_EQ(statusBar.messages.back(), kScriptEnded);
}

TEST_F(InterpreterTest, TakesAFileThatIsGoneForAFailureOfTheRepetition) {
  messageBoxes.onShow = [&] { std::filesystem::remove(folder.File("scripts/a.vts")); };
  Run("Meldung(eins);\r\nWiederholen();");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[1].title, "Fehler");
  EXPECT_EQ(messageBoxes.boxes[1].buttons, MessageButtons::YesNo);
  EXPECT_EQ(messageBoxes.boxes[1].icon, MessageIcon::Critical);
  EXPECT_EQ(statusBar.messages.back(), kScriptEnded);
}

TEST_F(InterpreterTest, RepeatsUntilItIsCancelled) {
  atTurn[20] = [&] { interpreter.Cancel(); };
  Run("Wenn(a,a);\r\nWiederholen();");
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
  EXPECT_EQ(statusBar.messages.size(), 11U);  // a hint for each round, and the end
  EXPECT_EQ(statusBar.messages.back(), kScriptEnded);
}

TEST_F(InterpreterTest, RepeatsNothingButARepetitionUntilItIsCancelled) {
  clock.step = std::chrono::milliseconds(100);
  atTurn[7] = [&] {
    EXPECT_TRUE(interpreter.ScriptRunning());
    interpreter.Cancel();
  };
  Run("Wiederholen();");
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
}

TEST_F(InterpreterTest, EndsWithoutAQuestionWhenEscapeMakesACommandGiveUp) {
  document.text = "alt";
  document.givenUp = true;
  atTurn[1] = [&] { interpreter.Cancel(); };
  Run("Dokument(neu,0);\r\nText(danach);");
  EXPECT_EQ(document.text, "alt");
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(statusBar.messages.back(), kScriptEnded);
}

TEST_F(InterpreterTest, AsksWhetherToGoOnWhenSomethingElseMadeACommandGiveUp) {
  document.givenUp = true;
  Run("Dokument(neu,0);");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(InterpreterTest, LetsEventsInBetweenCommandsThatDoNotWait) {
  clock.step = std::chrono::milliseconds(100);
  atTurn[2] = [&] { interpreter.Cancel(); };
  Run("Text(eins);\r\nText(zwei);");
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
  EXPECT_EQ(statusBar.messages.size(), 3U);
}

// The time comes while no script runs: it goes by.
TEST_F(InterpreterTest, KeepsWaitingForATimeAfterEscape) {
  clock.now.minute = 0;
  clock.now.second = 0;
  atTurn[4] = [&] { interpreter.Cancel(); };
  bool stillWaiting = false;
  atTurn[60] = [&] {
    stillWaiting = true;
    throw std::logic_error("enough");
  };
  Run("WartenBis(09:00:10);");
  EXPECT_TRUE(stillWaiting);
}

TEST_F(InterpreterTest, RunsASecondScriptInsideAWaitThatEscapeDidNotEnd) {
  atTurn[2] = [&] { interpreter.Cancel(); };
  atTurn[4] = [&] { Run("Meldung(innen);", "b.vts"); };
  atTurn[8] = [&] { throw std::logic_error("enough"); };
  Run("WartenBis(23:00:00);\r\nMeldung(nie);");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "innen");
  EXPECT_EQ(messageBoxes.boxes[1].title, "Fehler");  // the test's own way out
}

TEST_F(InterpreterTest, StopsOnlyWhatIsHeard) {
  Run("Stopp();");
  EXPECT_TRUE(calls.Has("Voice.ResetAudio"));
  EXPECT_FALSE(calls.Has("Voice2.ResetAudio"));
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Itself);
}

TEST_F(InterpreterTest, LeavesTheWaveFileAloneWhenItSpeaksTheDocument) {
  document.text = "Text";
  pump.onTurn = [&] { voice.Finish(); };
  Run("Exportieren(aus.wav);\r\nSprechen();");
  EXPECT_EQ(voice2.renderedTo, "aus.wav");
}

TEST_F(InterpreterTest, KeepsTheFileThatItNamedFromWhatIsSpokenLater) {
  pump.onTurn = [&] { voice2.Finish(), voice.Finish(); };
  document.text = "Text";
  Run("Exportieren(aus.wav);\r\nSprechen();");
  Run("Sprechen();", "b.vts");
  EXPECT_EQ(voice2.renderedTo, speech.TempWavPath());
}

TEST_F(InterpreterTest, TellsThatAnExportFailed) {
  pump.onTurn = [&] { voice2.Finish({.complete = false, .reason = "Kein Platz."}), voice.Finish(); };
  document.text = "Text";
  Run("Exportieren(aus.wav);\r\nSprechen();");
  EXPECT_EQ(statusBar.message, kScriptEnded);
  EXPECT_EQ(statusBar.notices["reading"], "„aus.wav“ wurde nicht gespeichert.");
  EXPECT_EQ(runLog.lines[2], "a.vts: Exportieren misslang 1-mal");
}

TEST_F(InterpreterTest, ShowsItsHintAsLongAsItRuns) {
  std::string during;
  atTurn[2] = [&] { during = statusBar.notices["reading"]; };
  Run("Text(etwas anderes);\r\nWarten(3);");
  EXPECT_EQ(during, "ESC beendet „a.vts“");
  EXPECT_EQ(statusBar.notices["reading"], "");
}

TEST_F(InterpreterTest, SaysWhatEscapeDoesToAWaitForATime) {
  std::string message;
  std::string standing;
  atTurn[2] = [&] { interpreter.Cancel(); };
  atTurn[3] = [&] {
    message = statusBar.message;
    standing = statusBar.notices["reading"];
    throw std::logic_error("enough");
  };
  Run("WartenBis(23:00:00);");
  EXPECT_EQ(message, "Das Warten bis 23:00:00 ist abgebrochen. Das Taskscript führt nichts mehr aus.");
  EXPECT_EQ(standing, "");
}

TEST_F(InterpreterTest, PassesSpokenTextsThroughTheFilter) {
  RegisterFilter("F", [](const std::string&, std::optional<std::string> text) { return *text + "!"; });
  Run("Sprechen2(Hallo);");
  EXPECT_EQ(voice.SpokenText(), " Hallo! ");
}

TEST_F(InterpreterTest, TogglesThePause) {
  Run("Sprechen2(Hallo);\r\nPause(gleich);");
  EXPECT_TRUE(calls.Has("Voice.PauseAudio"));
}

TEST_F(InterpreterTest, ReadsTheClipboardForEveryCommandWhetherItsVariableOccursOrNot) {
  struct Broken final : Clipboard {
    std::string Text() override { throw RuntimeError(ErrorNumber::InvalidCall); }
    void SetText(std::string_view) override {}
  } broken;
  Interpreter other({speech, document, statusBar, messageBoxes, broken, pump, clock, fileSearch, launcher,
                     downloader, settings, runLog, folder.File("scripts"),
                     [](std::int32_t) { return "a.vts"; }});
  WriteScript("a.vts", "Text(nie);");
  other.SetCurrentScriptFile("a.vts");
  other.ExecuteSkript(1);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(other.LastErrors(), 1);
}

TEST_F(InterpreterTest, AsksWhenThereIsNotEnoughMemory) {
  struct Full final : Clipboard {
    std::string Text() override { throw std::bad_alloc(); }
    void SetText(std::string_view) override {}
  } full;
  Interpreter other({speech, document, statusBar, messageBoxes, full, pump, clock, fileSearch, launcher,
                     downloader, settings, runLog, folder.File("scripts"),
                     [](std::int32_t) { return "a.vts"; }});
  WriteScript("a.vts", "Text(eins);\r\nText(zwei);");
  other.SetCurrentScriptFile("a.vts");
  messageBoxes.answers = {MessageAnswer::No};
  other.ExecuteSkript(1);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("Nicht genügend Speicher"), std::string::npos);
  EXPECT_EQ(other.LastEnd(), ScriptEnd::AfterError);
}

TEST_F(InterpreterTest, TellsThatAProgramCannotBeStarted) {
  launcher.error = ErrorNumber::FileNotFound;
  messageBoxes.answers = {MessageAnswer::Yes};
  Run("Ausführen(gibtesnicht);\r\nMeldung(weiter);");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("Datei nicht gefunden"), std::string::npos);
}

TEST_F(InterpreterTest, CarriesOutSingleCommandsWithTheirParametersExpandedInPlace) {
  std::string first = "$Datum";
  std::string second = "a%KOMMA%b";
  interpreter.ExecuteCommand(" Text ", first, second, 7);
  EXPECT_EQ(first, "03.10.2026");
  EXPECT_EQ(second, "a,b");
  EXPECT_EQ(statusBar.message, "03.10.2026");
}

TEST_F(InterpreterTest, NotesWhatItCarriedOutInTheRunLog) {
  Run("Text($Datum);\r\nUnbekannt(1);\r\nErsetzen(a,b);\r\nStopp();");
  EXPECT_EQ(runLog.lines,
            (std::vector<std::string>{"a.vts: Text(10 Zeichen)", "a.vts: Ersetzen(1 Zeichen, 1 Zeichen)",
                                      "a.vts: Stopp()", "a.vts: durch das Skript beendet"}));
}

TEST_F(InterpreterTest, KeepsContentsOutOfTheRunLog) {
  clipboard.text = "Passwort-Ä";
  Run("Text($Zwischenablage);\r\nSprechen2($Zwischenablage);");
  ASSERT_EQ(runLog.lines.size(), 3U);
  EXPECT_EQ(runLog.lines[0], "a.vts: Text(10 Zeichen)");
  EXPECT_EQ(runLog.lines[1], "a.vts: Sprechen2(10 Zeichen)");
}

TEST_F(InterpreterTest, NotesWhatWasNotAllowed) {
  Set(setting::VTSAllowRead, "0");
  Set(setting::VTSAllowDownload, "0");
  Run("Laden(a.txt);\r\nLöschen(a.txt);\r\nAusführen(a);\r\nDownload(http://a.de/,b);");
  EXPECT_EQ(runLog.lines,
            (std::vector<std::string>{
                "a.vts: Laden(5 Zeichen): nicht erlaubt", "a.vts: Löschen(5 Zeichen): nicht erlaubt",
                "a.vts: Ausführen(1 Zeichen): nicht erlaubt",
                "a.vts: Download(12 Zeichen, 1 Zeichen): nicht erlaubt", "a.vts: zu Ende"}));
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(InterpreterTest, NotesADownloadThatFailedAndGoesOn) {
  downloader.failure = "HTTP 404";
  Run("Download(http://a.de/,b);\r\nMeldung(weiter);");
  EXPECT_EQ(runLog.lines[1], "a.vts: Download fehlgeschlagen: HTTP 404");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "weiter");
}

TEST_F(InterpreterTest, TakesATildeForTheUsersFolder) {
  document.files[folder.Path() + "/a.txt"] = "Text";
  std::string exported;  // the target is the script's only while it runs
  messageBoxes.onShow = [&] { exported = voice2.WaveFile(); };
  Run("Laden(~/a.txt);\r\nExportieren(~\\a.wav);\r\nDownload(http://a.de/,~/b.txt);\r\nMeldung(x);");
  EXPECT_EQ(document.text, "Text");
  EXPECT_EQ(exported, folder.Path() + "\\a.wav");
  ASSERT_EQ(downloader.fetched.size(), 1U);
  EXPECT_EQ(downloader.fetched[0].second, folder.Path() + "/b.txt");
  Run("Exportieren(a~/b.wav);\r\nMeldung(x);");
  EXPECT_EQ(exported, "a~/b.wav");
}

// Every round doubles the document, and would do so until the memory is full.
TEST_F(InterpreterTest, LetsNoTextOutgrowItsLimit) {
  document.text = "x";
  messageBoxes.answers = {MessageAnswer::No};
  Run("Dokument($Text$Text,0);\r\nWiederholen();");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_NE(messageBoxes.boxes[0].text.find("Nicht genügend Zeichenfolgenspeicher (14)"), std::string::npos)
      << messageBoxes.boxes[0].text;
  EXPECT_EQ(document.text.size(), kMostTextBytes);
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::AfterError);
}

TEST_F(InterpreterTest, LetsNoCommandMakeTheDocumentTooLarge) {
  const std::string large((40 << 20), 'x');
  for (const auto* const script : {"Dokument($Text,1);", "Ersetzen(x,xx);", "Ersetzen(x,$Text);"}) {
    document.text = large;
    messageBoxes.boxes.clear();
    Run(script);
    ASSERT_EQ(messageBoxes.boxes.size(), 1U) << script;
    EXPECT_EQ(document.text.size(), large.size()) << script;
  }
}

TEST(SplitCommandLine, PartsAtBlanksOutsideOfQuotes) {
  using Arguments = std::vector<std::string>;
  EXPECT_EQ(SplitCommandLine(""), Arguments{});
  EXPECT_EQ(SplitCommandLine("  a  b\tc "), (Arguments{"a", "b", "c"}));
  EXPECT_EQ(SplitCommandLine("\"C:\\Meine Programme\\x.exe\" /t \"a b\"c"),
            (Arguments{"C:\\Meine Programme\\x.exe", "/t", "a bc"}));
  EXPECT_EQ(SplitCommandLine("a \"\" b"), (Arguments{"a", "", "b"}));
  EXPECT_EQ(SplitCommandLine("a \"offen b"), (Arguments{"a", "offen b"}));
}

}  // namespace
}  // namespace lorelin
