#include "scripts/TaskEditor.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

struct FakeTaskEditorView final : TaskEditorView {
  std::string ScriptName() override { return name; }
  void SetScriptName(std::string_view newName) override { name = newName; }
  std::string ScriptText() override { return text; }
  void SetScriptText(std::string_view newText) override { text = newText; }
  void AppendText(std::string_view more) override { text += more; }
  void ShowNameHint(std::string_view newHint) override { hint = newHint; }
  std::string name;
  std::string text;
  std::string hint;
};

class TaskEditorTest : public testing::Test {
 protected:
  std::string Written(const std::string& name) {
    const auto found = files.files.find(folder.File("scripts/" + name));
    return found != files.files.end() ? found->second : "(fehlt)";
  }

  TemporaryFolder folder;
  FakeTaskEditorView view;
  FakeFileDialogs dialogs;
  FakeFileWriter files;
  FakeMessageBoxes boxes;
  int changes = 0;
  TaskEditor editor{{.view = view,
                     .fileDialogs = dialogs,
                     .files = files,
                     .messageBoxes = boxes,
                     .programFolder = folder.Path(),
                     .scriptsChanged = [this] { ++changes; }}};
};

TEST_F(TaskEditorTest, WritesTheScriptUnderItsNameInSingleBytes) {
  view.name = "Grüße";
  view.text = "Sprechen2(Grüße);\nStopp();\n";
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(Written("Grüße.vts"),
            "Sprechen2(Gr\xFC\xDF"
            "e);\r\nStopp();\r\n");
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TaskEditorTest, LosesNoCharacterThatHasNoSingleByte) {
  view.name = "a";
  view.text = "♥";
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(Written("a.vts"), "\xEF\xBB\xBF♥");
}

TEST_F(TaskEditorTest, AsksForAName) {
  for (const auto* const name : {"", "  "}) {
    view.name = name;
    EXPECT_FALSE(editor.Save());
  }
  EXPECT_EQ(boxes.boxes.size(), 2U);
  EXPECT_EQ(boxes.boxes[0].title, "Fehler");
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(changes, 0);
}

TEST_F(TaskEditorTest, WritesNowhereElse) {
  for (const auto* const name : {"../a", "a\\b", "/tmp/x", "a\tb"}) {
    view.name = name;
    EXPECT_FALSE(editor.Save()) << name;
  }
  EXPECT_TRUE(files.files.empty());
}

TEST_F(TaskEditorTest, TellsWhyItCouldNotWriteAndKeepsTheText) {
  view.name = "a";
  view.text = "Stopp();";
  files.error = ErrorNumber::DiskFull;
  EXPECT_FALSE(editor.Save());
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text, "Das Taskscript konnte nicht gespeichert werden: Datenträger voll (61)");
  EXPECT_EQ(view.text, "Stopp();");
  EXPECT_EQ(changes, 0);
}

TEST_F(TaskEditorTest, OpensAScriptAndKeepsItsEndingInTheName) {
  WriteFile(folder.File("Uhr.vts"),
            "Sprechen2(Gr\xFC\xDF"
            "e);\r\nText(a);\nText(b);");
  dialogs.answer = folder.File("Uhr.vts");
  editor.Open();
  EXPECT_EQ(view.text, "Sprechen2(Grüße);\nText(a);\nText(b);");
  EXPECT_EQ(view.name, "Uhr.vts");
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(Written("Uhr.vts.vts"),
            "Sprechen2(Gr\xFC\xDF"
            "e);\r\nText(a);\r\nText(b);");
}

TEST_F(TaskEditorTest, BeginsInTheScriptFolderOnce) {
  editor.Open();
  editor.Open();
  ASSERT_EQ(dialogs.requests.size(), 2U);
  EXPECT_EQ(dialogs.requests[0].folder, folder.File("scripts"));
  EXPECT_EQ(dialogs.requests[0].filter, "Voice Taskscripts (*.vts)|*.vts");
  EXPECT_EQ(dialogs.requests[1].folder, "");
}

TEST_F(TaskEditorTest, LeavesEverythingWhenTheDialogIsCancelled) {
  view.name = "a";
  view.text = "Stopp();";
  boxes.answers = {MessageAnswer::No};
  editor.Open();
  EXPECT_EQ(view.name, "a");
  EXPECT_EQ(view.text, "Stopp();");
}

TEST_F(TaskEditorTest, TellsWhyItCouldNotOpen) {
  dialogs.answer = folder.File("fehlt.vts");
  editor.Open();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text, "Das Taskscript konnte nicht geöffnet werden: Datei nicht gefunden (53)");
  EXPECT_EQ(view.name, "");
}

TEST_F(TaskEditorTest, EmptiesTheText) {
  view.text = "Stopp();";
  editor.Discard();
  editor.New();
  EXPECT_EQ(view.text, "");
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TaskEditorTest, BeginsWithoutANameSoThatNothingIsReplaced) {
  view.name = "a";
  view.text = "Stopp();";
  EXPECT_TRUE(editor.Save());
  editor.New();
  EXPECT_EQ(view.name, "");
}

TEST_F(TaskEditorTest, AsksBeforeItReplacesAnotherScript) {
  std::filesystem::create_directories(folder.File("scripts"));
  WriteFile(folder.File("scripts/a.vts"), "Stopp();");
  view.name = "a";
  view.text = "neu";
  boxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
  EXPECT_FALSE(editor.Save());
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text, "Ein Taskscript „a“ gibt es schon. Soll es ersetzt werden?");
  EXPECT_EQ(boxes.boxes[0].title, "Frage");
  EXPECT_EQ(boxes.boxes[0].icon, MessageIcon::Question);
  EXPECT_EQ(Written("a.vts"), "(fehlt)");
  EXPECT_TRUE(editor.Save());
  EXPECT_EQ(Written("a.vts"), "neu");
}

TEST_F(TaskEditorTest, ReplacesTheScriptThatItWroteOrOpenedWithoutAQuestion) {
  std::filesystem::create_directories(folder.File("scripts"));
  WriteFile(folder.File("scripts/a.vts"), "Stopp();");
  dialogs.answer = folder.File("scripts/a.vts");
  editor.Open();
  view.name = "a";
  EXPECT_TRUE(editor.Save());
  EXPECT_TRUE(editor.Save());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TaskEditorTest, TellsThatAnEndingInTheNameMakesASecondFile) {
  view.name = "Leseliste.vts";
  editor.NameChanged();
  EXPECT_EQ(
      view.hint,
      "Gespeichert wird „Leseliste.vts.vts“, neben dem geöffneten Taskscript. Ohne „.vts“ im Namen wird "
      "dieses selbst ersetzt.");
  view.name = "Leseliste";
  editor.NameChanged();
  EXPECT_EQ(view.hint, "");
}

TEST_F(TaskEditorTest, AsksBeforeItLosesChanges) {
  view.name = "a";
  view.text = "Stopp();";
  boxes.answers = {MessageAnswer::Cancel, MessageAnswer::Yes};
  editor.New();
  EXPECT_EQ(view.text, "Stopp();");
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].title, "Frage");
  EXPECT_EQ(boxes.boxes[0].buttons, MessageButtons::YesNoCancel);
  editor.New();
  EXPECT_EQ(view.text, "");
  EXPECT_EQ(Written("a.vts"), "Stopp();");
  view.text = "neu";
  boxes.answers = {MessageAnswer::No};
  EXPECT_TRUE(editor.MayDiscard());
}

TEST_F(TaskEditorTest, KeepsChangesThatCouldNotBeSaved) {
  view.text = "Stopp();";
  boxes.answers = {MessageAnswer::Yes, MessageAnswer::Ok};
  EXPECT_FALSE(editor.MayDiscard());
}

TEST_F(TaskEditorTest, AppendsALineBehindALineBreak) {
  editor.Append("Warten(10);");
  EXPECT_EQ(view.text, "\nWarten(10);");
  editor.Append("Stopp();");
  EXPECT_EQ(view.text, "\nWarten(10);\nStopp();");
}

}  // namespace
}  // namespace lorelin
