#include "app/pronunciationCommands.h"

#include "base/text.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class PronunciationCommands : public ScriptFixture {
 protected:
  PronunciationCommands() { modules.window.Load(); }
};

TEST_F(PronunciationCommands, TheMenuShowsAndSwitchesTheSpellingOut) {
  EXPECT_TRUE(view.checks["mnuSpellOut"]);
  modules.window.RunCommand("SwitchSpelling");
  EXPECT_FALSE(view.checks["mnuSpellOut"]);
  EXPECT_EQ(settings.Get(setting::SpellOut), "0");
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt 5 kg. ");
  modules.window.RunCommand("SwitchSpelling");
  EXPECT_TRUE(view.checks["mnuSpellOut"]);
  EXPECT_EQ(Spoken("Er wiegt 5 kg."), " Er wiegt fünf Kilogramm. ");
}

TEST_F(PronunciationCommands, AskAboutTheSelectedWord) {
  document.text = "Die VBG zahlt.";
  document.selectionStart = 4;
  document.selectionBytes = 4;
  modules.window.RunCommand("ChangePronunciation");
  modules.window.RunCommand("ShowPronunciations");
  EXPECT_EQ(pronunciationDialogs.asked, std::vector<std::string>{"VBG"});
  EXPECT_EQ(pronunciationDialogs.shown, 1);
}

TEST(WordMeant, IsTheWordAtTheCaretWhenNothingIsSelected) {
  EXPECT_EQ(WordMeant(" Straße \nB", "", 0), "Straße");
  EXPECT_EQ(WordMeant("", "Über „Größe“ nach", 0), "Über");
  EXPECT_EQ(WordMeant("", "Über „Größe“ nach", 8), "Größe");
  EXPECT_EQ(WordMeant("", "Über „Größe“ nach", 11), "Größe");
  EXPECT_EQ(WordMeant("", "Über „Größe“ nach", 5), "");
  EXPECT_EQ(WordMeant("", "Über „Größe“ nach", 99), "nach");
  EXPECT_EQ(WordMeant("", "", 0), "");
}

constexpr std::string_view kLetter =
    "Sehr geehrte Frau Dr. Huber,\n\nIhr Bescheid vom 3.5.2024 ist da. Bis zum 14. Juni sind 1.250,50 € zu "
    "zahlen, "
    "d. h. ca. 5 % mehr als 2023. Bei Fragen: Mo.–Fr. von 9–17 Uhr, Tel. 0664 1234567.\n";

// What a German voice is given by each way of reading a text aloud.
class EveryWayOfReading : public PronunciationCommands {
 protected:
  EveryWayOfReading() {
    document.text = kLetter;
    pump.onTurn = [this] {
      if (!voice.AwaitsMore()) voice.Finish();
    };
  }
  void Expect(const char* way) {
    EXPECT_EQ(WithoutBlanks(voice.SpokenText()), WithoutBlanks(SpellOut(kLetter).text)) << way;
    EXPECT_EQ(voice2.SpokenText(), voice.SpokenText()) << way;
    voice.Speak("");
    voice2.Speak("");
  }
};

TEST_F(EveryWayOfReading, GivesTheEngineTheSameSpokenText) {
  ASSERT_NE(SpellOut(kLetter).text.find("vierzehnten Juni"), std::string::npos);
  modules.window.RunCommand("Speak");
  Expect("F5");
  modules.window.ToolbarClicked("Sprechen");
  Expect("toolbar");
  document.selectionStart = 1;
  modules.window.RunCommand("ReadFromCursor");
  Expect("F7");
  clipboard.text = kLetter;
  modules.monitor.LookAtClipboard();
  Expect("clipboard");
  std::string text(kLetter);
  std::string none;
  modules.interpreter.ExecuteCommand("Sprechen", text, none, 0);
  Expect("script, Sprechen");
  text = kLetter;
  modules.interpreter.ExecuteCommand("Sprechen2", text, none, 0);
  Expect("script, Sprechen2");
}

}  // namespace
}  // namespace lorelin
