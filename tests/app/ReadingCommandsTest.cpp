#include "app/readingCommands.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class ReadingCommands : public ScriptFixture {
 protected:
  void Read(std::string_view text) {
    document.text = text;
    window.RunCommand("SpeakDocument");
  }
  void Hear(std::string_view word) {
    const std::string& text = voice.SpokenText();
    const std::size_t begin = CountCharacters(std::string_view(text).substr(0, text.find(word)));
    voice.Hear({begin, begin + CountCharacters(word)});
  }
  bool IsPossible(std::string_view command) { return modules.commands.IsPossible(command).value_or(true); }
};

TEST_F(ReadingCommands, AreOfferedWhileTheyCanDoSomething) {
  EXPECT_FALSE(IsPossible("SentenceOn"));
  Read("Eins. Zwei.");
  Hear("Eins");
  for (const auto* const command :
       {"SentenceBack", "SentenceOn", "RepeatSentence", "ParagraphBack", "ParagraphOn", "ReturnToVoice"}) {
    EXPECT_TRUE(IsPossible(command)) << command;
  }
  window.RunCommand("Stop");
  EXPECT_FALSE(IsPossible("SentenceOn"));
}

TEST_F(ReadingCommands, FollowNothingWhereNothingCanBeShown) {
  marks.canShow = false;
  EXPECT_FALSE(IsPossible("FollowWord"));
  marks.canShow = true;
  EXPECT_TRUE(IsPossible("FollowWord"));
}

TEST_F(ReadingCommands, ShowInTheMenuWhatIsFollowed) {
  window.Load();
  EXPECT_TRUE(view.checks["mnuFollowBoth"]);
  window.RunCommand("FollowSentence");
  EXPECT_TRUE(view.checks["mnuFollowSentence"]);
  EXPECT_FALSE(view.checks["mnuFollowBoth"]);
  EXPECT_EQ(settings.Get(setting::FollowMode), "Sentence");
}

TEST_F(ReadingCommands, MoveTheVoice) {
  Read("Eins. Zwei.");
  Hear("Eins");
  window.RunCommand("SentenceOn");
  EXPECT_EQ(voice.SpokenText(), "Zwei. ");
  EXPECT_EQ(voice2.SpokenText(), " Eins. Zwei. ");
}

TEST_F(ReadingCommands, LeaveTheCaretWhereTheVoiceWas) {
  Read("Eins. Zwei.");
  Hear("Zwei");
  window.RunCommand("Stop");
  EXPECT_EQ(marks.caret, std::optional<std::size_t>(6));
}

TEST_F(ReadingCommands, ReadFasterAndSlowerFromTheSentenceOn) {
  Read("Eins. Zwei.");
  Hear("Zwei");
  window.RunCommand("Faster");
  EXPECT_EQ(settings.Get(setting::Speed), "35");
  EXPECT_EQ(voice.Speed(), 35);
  EXPECT_EQ(voice.SpokenText(), "Zwei. ");
  EXPECT_EQ(statusBar.Message(), "Geschwindigkeit: 35 %");
  window.RunCommand("Slower");
  window.RunCommand("Slower");
  EXPECT_EQ(voice.Speed(), 15);
}

TEST_F(ReadingCommands, KeepTheSpeedInItsRange) {
  Set(setting::Speed, "95");
  window.RunCommand("Faster");
  EXPECT_EQ(settings.Get(setting::Speed), "100");
  Set(setting::Speed, "5");
  window.RunCommand("Slower");
  EXPECT_EQ(settings.Get(setting::Speed), "0");
  EXPECT_FALSE(calls.Has("Voice.Speak"));
}

TEST_F(ReadingCommands, ReadFromTheWordAtTheCaret) {
  document.text = "Schöne grüne Äpfel.";
  document.selectionStart = 10;
  window.RunCommand("ReadFromHere");
  EXPECT_EQ(voice.SpokenText(), " grüne Äpfel. ");
  document.selectionStart = 0;
  window.RunCommand("ReadFromHere");
  EXPECT_EQ(voice.SpokenText(), " Schöne grüne Äpfel. ");
}

TEST_F(ReadingCommands, ReadNothingOfTheDocumentWhileAPageIsShown) {
  editing.showsPage = true;
  document.text = "Eins";
  window.RunCommand("ReadFromHere");
  EXPECT_FALSE(calls.Has("Voice.Speak"));
  EXPECT_FALSE(IsPossible("ReadFromHere"));
}

}  // namespace
}  // namespace lorelin
