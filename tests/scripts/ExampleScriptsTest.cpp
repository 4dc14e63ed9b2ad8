#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "base/textEncoding.h"
#include "scripts/scriptChecker.h"
#include "scripts/scriptLanguage.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

std::vector<std::string> Examples() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_EXAMPLES))
    names.push_back(entry.path().string());
  return names;
}

TEST(ExampleScripts, AreAtLeastEight) {
  EXPECT_GE(Examples().size(), 8U);
}

TEST(ExampleScripts, AreFreeOfErrors) {
  for (const std::string& name : Examples()) {
    for (const ScriptFinding& finding : CheckScript(DecodeText(ReadFile(name)))) {
      EXPECT_EQ(finding.kind, FindingKind::Hint) << name << ":" << finding.line << " " << finding.message;
    }
  }
}

TEST(ExampleScripts, AreStoredInSingleBytes) {
  for (const std::string& name : Examples()) {
    const std::string bytes = ReadFile(name);
    EXPECT_EQ(EncodeText(DecodeText(bytes)), bytes) << name;
  }
}

TEST(ExampleScripts, SayInTheirFirstLineWhatTheyAre) {
  for (const std::string& name : Examples()) EXPECT_TRUE(ReadFile(name).starts_with("# ")) << name;
}

// Each example is run with the world that it speaks of, and has to do what it says of itself.
class Example : public ScriptFixture {
 protected:
  static constexpr int kSpeechSeconds = 6;  // that every text takes

  struct Heard {
    std::string time;
    std::string text;
    bool operator==(const Heard&) const = default;
  };

  Example() {
    Set(setting::SpellOut, "0");  // the texts as they are written
    pump.onTurn = [this] { Turn(); };
    messageBoxes.onShow = [this] {
      said.push_back(messageBoxes.boxes.back().title + ": " + messageBoxes.boxes.back().text);
      if (endAtBox) interpreter.Cancel();
    };
    SetClock(11, 58, 30);
  }

  void SetClock(int hour, int minute, int second) {
    clock.now = {.year = 2026, .month = 12, .day = 24, .hour = hour, .minute = minute, .second = second};
  }

  // Runs the example until it ends, or until Escape after so many seconds.
  void Run(const std::string& name, int seconds = 1000000) {
    WriteScript("beispiel.vts", ReadFile(std::string(LORELIN_EXAMPLES) + "/" + name + ".vts"));
    RunAdapted(seconds);
  }
  // The example as its reader is told to adapt it.
  void RunWith(const std::string& name, std::string_view from, std::string_view to) {
    std::string script = DecodeText(ReadFile(std::string(LORELIN_EXAMPLES) + "/" + name + ".vts"));
    ReplaceAll(script, from, to);
    WriteScript("beispiel.vts", script);
    RunAdapted(1000000);
  }

  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const Heard& one : heard) texts.push_back(one.text);
    return texts;
  }

  std::vector<Heard> heard;
  std::vector<std::string> said;
  bool endAtBox = false;

 private:
  void RunAdapted(int seconds) {
    escapeAt_ = seconds;
    interpreter.SetCurrentScriptFile("beispiel.vts");
    interpreter.ExecuteSkript(1);
    NoteSpoken();
    EXPECT_EQ(statusBar.message, "Ausführung des Taskscripts beendet.");
  }

  // A quarter of a second goes by.
  void Turn() {
    NoteSpoken();
    if (++turns_ % 4 != 0) return;
    Tick();
    if (voice.Speaking() && ++spokenFor_ >= kSpeechSeconds) voice.Finish();
    if (turns_ / 4 < escapeAt_) return;
    speech.Stop();
    interpreter.Cancel();
  }

  void Tick() {
    if (++clock.now.second < 60) return;
    clock.now.second = 0;
    if (++clock.now.minute < 60) return;
    clock.now.minute = 0;
    clock.now.hour = (clock.now.hour + 1) % 24;
  }

  void NoteSpoken() {
    const auto& entries = calls.Entries();
    const auto spoken = static_cast<std::size_t>(std::count(entries.begin(), entries.end(), "Voice.Speak"));
    if (spoken == spoken_) return;
    spoken_ = spoken;
    spokenFor_ = 0;
    heard.push_back({FormatTimeOfDay(clock.now) + ":" + std::to_string(clock.now.second),
                     std::string(WithoutBlanks(voice.SpokenText()))});
  }

  int turns_ = 0;
  int escapeAt_ = 0;
  int spokenFor_ = 0;
  std::size_t spoken_ = 0;
};

TEST_F(Example, AuswahlVorlesenReadsTheSelectionAndLeavesTheText) {
  document.text = "Ein Text, z. B. dieser.";
  document.selectionBytes = 8;
  Run("Auswahl vorlesen");
  EXPECT_EQ(Texts(), std::vector<std::string>{"Ein Text"});
  EXPECT_EQ(document.text, "Ein Text, z. B. dieser.");
}

TEST_F(Example, AuswahlVorlesenEndsSilentlyWithoutASelection) {
  document.text = "Ein Text";
  Run("Auswahl vorlesen");
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Itself);
}

TEST_F(Example, ErinnerungSpeaksAtItsTimeAndLeavesTheTextThatIsBeingTyped) {
  document.text = "Gerade getippt";
  Run("Erinnerung");
  EXPECT_EQ(heard, (std::vector<Heard>{{"12:00:0", "Es ist zwölf Uhr. Zeit für eine Pause."}}));
  EXPECT_EQ(said, std::vector<std::string>{"Lorelin: Es ist zwölf Uhr. Zeit für eine Pause."});
  EXPECT_EQ(document.text, "Gerade getippt");
  EXPECT_EQ(statusBar.messages[1], "Die Erinnerung ist auf 12:00:00 gestellt.");
}

TEST_F(Example, GrussZumGeburtstagCongratulatesOnTheDayOnly) {
  document.text = "Text";
  Run("Gruß zum Geburtstag");
  EXPECT_EQ(Texts(), std::vector<std::string>{
                         "Herzlichen Glückwunsch zum Geburtstag, liebe Anna! Heute ist der 24.12.2026."});
  EXPECT_EQ(document.text, "Text");
}

TEST_F(Example, GrussZumGeburtstagIsSilentOnOtherDays) {
  clock.now.day = 23;
  Run("Gruß zum Geburtstag");
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Itself);
}

TEST_F(Example, LangsamUndDeutlichStoresItsValuesAndReads) {
  document.text = "Text";
  Run("Langsam und deutlich");
  EXPECT_EQ(Texts(), std::vector<std::string>{"Text"});
  EXPECT_EQ(settings.Get(setting::Speed), "15");
  EXPECT_EQ(settings.Get(setting::Pitch), "50");
  EXPECT_EQ(settings.Get(setting::Volume), "100");
  EXPECT_EQ(voice.Speed(), 15);
}

TEST_F(Example, LeselisteSaysThatItIsEmptyAndLeavesTheText) {
  document.text = "Gerade getippt";
  Run("Leseliste");
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(heard[0].text.starts_with("Ihre Leseliste ist noch leer."));
  EXPECT_EQ(document.text, "Gerade getippt");
}

TEST_F(Example, LeselisteReadsItsFilesAndGoesOnBehindOneThatIsMissing) {
  document.files[folder.Path() + "/Texte/Kapitel 2.txt"] = "Zweites Kapitel";
  RunWith("Leseliste", "\r\n# ", "\r\n");
  EXPECT_EQ(Texts().back(), "Zweites Kapitel");
  EXPECT_EQ(heard[heard.size() - 2].text, "Diese Datei fehlt.");
  ASSERT_EQ(said.size(), 1U);
  EXPECT_NE(said[0].find("Datei nicht gefunden"), std::string::npos);
}

TEST_F(Example, LesepauseReadsWaitsTenMinutesAndReadsAgain) {
  document.text = "Text";
  SetClock(11, 0, 0);
  Run("Lesepause", 650);
  ASSERT_EQ(heard.size(), 2U);
  EXPECT_EQ(heard[0].time, "11:00:0");
  EXPECT_EQ(heard[1].time, "11:10:6");
  EXPECT_EQ(said,
            std::vector<std::string>{"Lorelin: Die Pause ist um. Nach OK wird noch einmal vorgelesen."});
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
}

TEST_F(Example, SprechendeUhrSpeaksAtEveryFullMinuteAndLeavesTheText) {
  document.text = "Gerade getippt";
  Run("Sprechende Uhr", 5 * 60);
  EXPECT_EQ(heard, (std::vector<Heard>{{"11:59:0", "Es ist 11:59 Uhr am 24.12.2026."},
                                       {"12:00:0", "Es ist 12:00 Uhr am 24.12.2026."},
                                       {"12:01:0", "Es ist 12:01 Uhr am 24.12.2026."},
                                       {"12:02:0", "Es ist 12:02 Uhr am 24.12.2026."},
                                       {"12:03:0", "Es ist 12:03 Uhr am 24.12.2026."}}));
  EXPECT_EQ(document.text, "Gerade getippt");
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
}

TEST_F(Example, TextAufraeumenWritesAbbreviationsOut) {
  document.text = "Nr. 5,  d. h. z. B. oder z.B. dies - u. a. usw. bzw.";
  Run("Text aufräumen");
  EXPECT_EQ(document.text,
            "Nummer 5, das heißt zum Beispiel oder zum Beispiel dies – unter anderem und so weiter "
            "beziehungsweise");
  EXPECT_EQ(said, std::vector<std::string>{"Lorelin: Der Text ist aufgeräumt."});
}

TEST_F(Example, TextAusDemNetzReadsWhatItLoadedAndDeletesIt) {
  const std::string file = folder.Path() + "/lorelin-nachrichten.txt";
  document.files[file] = "Nachrichten";
  fileSearch.names = {"lorelin-nachrichten.txt"};
  WriteFile(file, "");
  Run("Text aus dem Netz");
  ASSERT_EQ(downloader.fetched.size(), 1U);
  EXPECT_EQ(downloader.fetched[0].second, file);
  EXPECT_EQ(Texts(), std::vector<std::string>{"Nachrichten"});
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Example, TextAusDemNetzTellsThatTheFileIsMissing) {
  messageBoxes.answers = {MessageAnswer::No};
  Run("Text aus dem Netz");
  ASSERT_EQ(said.size(), 1U);
  EXPECT_NE(said[0].find("Datei nicht gefunden"), std::string::npos);
  EXPECT_TRUE(heard.empty());
}

TEST_F(Example, VokabelnAsksLeavesTimeAndAnswers) {
  SetClock(11, 0, 0);
  Run("Vokabeln");
  EXPECT_EQ(heard, (std::vector<Heard>{{"11:00:0", "Was heißt Haus auf Englisch?"},
                                       {"11:00:6", "house"},
                                       {"11:00:9", "Was heißt Baum auf Englisch?"},
                                       {"11:00:15", "tree"},
                                       {"11:00:18", "Das waren alle Vokabeln."}}));
}

TEST_F(Example, ZwischenablageAlsWavReadsTheClipboardIntoAFileOfTheUsersFolder) {
  clipboard.text = "kopiert";
  std::string target;
  messageBoxes.onShow = [&] { target = voice2.WaveFile(); };
  Run("Zwischenablage als WAV");
  EXPECT_EQ(Texts(), std::vector<std::string>{"kopiert"});
  EXPECT_EQ(document.text, "kopiert");
  EXPECT_EQ(target, folder.Path() + "/Zwischenablage.wav");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(Example, ZwischenablageAlsWavEndsAtOnceWithoutACopiedText) {
  document.text = "Text";
  Run("Zwischenablage als WAV");
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(document.text, "Text");
}

// What would be read nowhere, or act other than it looks.
TEST(ExampleScripts, GiveNoHintsButThoseThatExplainTheirConditions) {
  for (const std::string& name : Examples()) {
    for (const ScriptFinding& finding : CheckScript(DecodeText(ReadFile(name)))) {
      EXPECT_NE(finding.message.find("macht nur weiter"), std::string::npos)
          << name << " " << finding.message;
    }
  }
}

}  // namespace
}  // namespace lorelin
