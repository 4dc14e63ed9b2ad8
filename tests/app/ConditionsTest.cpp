#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class Conditions : public ScriptFixture {
 protected:
  bool Possible(std::string_view command) { return modules.commands.IsPossible(command).value_or(true); }
};

TEST_F(Conditions, OfferToStopWhatSpeaksOrIsRendered) {
  EXPECT_FALSE(Possible("Stop"));
  document.text = "Guten Tag";
  window.RunCommand("SpeakDocument");
  EXPECT_TRUE(Possible("Stop"));
  voice.Finish();
  EXPECT_TRUE(Possible("Stop"));
  voice2.Finish();
  EXPECT_FALSE(Possible("Stop"));
}

TEST_F(Conditions, OfferThePauseWhileSpeakingAndUntilItIsTakenBack) {
  EXPECT_FALSE(Possible("Pause"));
  document.text = "Guten Tag";
  window.RunCommand("SpeakDocument");
  EXPECT_TRUE(Possible("Pause"));
  window.RunCommand("Pause");
  window.RunCommand("Stop");
  EXPECT_TRUE(Possible("Pause"));
  window.RunCommand("Pause");
  EXPECT_FALSE(Possible("Pause"));
}

TEST_F(Conditions, OfferWhatCanBeTakenBackAndRepeated) {
  EXPECT_FALSE(Possible("Undo"));
  EXPECT_FALSE(Possible("Redo"));
  editing.canUndo = true;
  EXPECT_TRUE(Possible("Undo"));
  EXPECT_FALSE(Possible("Redo"));
  editing.canRedo = true;
  EXPECT_TRUE(Possible("Redo"));
}

TEST_F(Conditions, OfferNoChangeOfATextThatIsOutOfSight) {
  editing.canUndo = true;
  editing.canRedo = true;
  for (const auto* const command : {"Cut", "Insert", "Delete", "Replace", "Undo", "Redo"}) {
    editing.showsPage = false;
    EXPECT_TRUE(Possible(command)) << command;
    editing.showsPage = true;
    EXPECT_FALSE(Possible(command)) << command;
  }
}

TEST_F(Conditions, LeaveWhatServesThePageToo) {
  editing.showsPage = true;
  for (const auto* const command : {"Copy", "SelectAll", "Find", "FindAgain"})
    EXPECT_TRUE(Possible(command)) << command;
}

TEST_F(Conditions, LeaveEveryOtherCommandAlone) {
  EXPECT_EQ(modules.commands.IsPossible("Speak"), std::nullopt);
  EXPECT_EQ(modules.commands.IsPossible("Nichts"), std::nullopt);
}

class ReadingTheSelection : public Conditions {};

TEST_F(ReadingTheSelection, SpeaksItAsTheToolbarSpeaksTheDocument) {
  document.text = "Guten Tag, Welt";
  document.selectionStart = 6;
  document.selectionBytes = 3;
  editing.hasSelection = true;
  EXPECT_TRUE(Possible("ReadSelection"));
  window.RunCommand("ReadSelection");
  EXPECT_EQ(voice.SpokenText(), " Tag ");
  EXPECT_EQ(voice2.SpokenText(), " Tag ");
}

TEST_F(ReadingTheSelection, GivesItToTheExtensions) {
  RegisterFilter("Filter", [](const auto&, auto argument) { return "<" + *argument + ">"; });
  document.text = "Guten Tag";
  document.selectionBytes = 5;
  window.RunCommand("ReadSelection");
  EXPECT_EQ(voice.SpokenText(), " <Guten> ");
}

TEST_F(ReadingTheSelection, NeverReadsTheWholeDocumentInstead) {
  document.text = "Guten Tag";
  EXPECT_FALSE(Possible("ReadSelection"));
  window.RunCommand("ReadSelection");
  EXPECT_FALSE(calls.Has("Voice.Speak"));
}

class Pages : public ScriptFixture {};

TEST_F(Pages, TakeTheFocusWhenTheyAreAskedFor) {
  for (const auto* const command : {"ShowHelp", "MoreInfo", "InteractiveMode"}) {
    calls.Clear();
    window.RunCommand(command);
    EXPECT_TRUE(calls.Has("browser.focus")) << command;
  }
}

TEST_F(Pages, LeaveTheFocusAloneAtTheStart) {
  window.Load();
  EXPECT_FALSE(calls.Has("browser.focus"));
}

}  // namespace
}  // namespace lorelin
