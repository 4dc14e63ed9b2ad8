#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/uiaction.h>

#include "desktop/frmTaskEditor.h"
#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

class TaskEditorForm : public FormFixture {
 protected:
  TaskEditorForm() { editor->Open(); }
  ~TaskEditorForm() override { editor->Destroy(); }

  template <typename Control>
  Control& Find(wxWindow& in, const char* name) {
    auto* const found = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &in));
    if (found == nullptr) throw std::logic_error(name);
    return *found;
  }
  wxTextCtrl& Name() { return Find<wxTextCtrl>(*editor, "txtSkriptname"); }
  wxTextCtrl& Text() { return Find<wxTextCtrl>(*editor, "rtfSkript"); }
  wxTextCtrl& Parameter(int number) {
    return Find<wxTextCtrl>(editor->Picker(), number == 1 ? "txtParameter" : "txtParameter2");
  }
  std::string Label(const char* name) {
    return FromWx(Find<wxStaticText>(editor->Picker(), name).GetLabelText());
  }
  void ChooseCommand(const char* command) {
    auto& combo = Find<wxChoice>(editor->Picker(), "cmbCommand");
    combo.SetStringSelection(ToWx(command));
    wxCommandEvent event(wxEVT_CHOICE, combo.GetId());
    combo.ProcessWindowEvent(event);
  }
  void Press(wxWindow& in, const std::string& label) {
    for (wxWindow* const child : in.GetChildren()) {
      if (auto* const button = dynamic_cast<wxButton*>(child);
          button != nullptr && FromWx(button->GetLabelText()) == label) {
        wxCommandEvent event(wxEVT_BUTTON, button->GetId());
        button->ProcessWindowEvent(event);
        return;
      }
      Press(*child, label);
    }
  }

  FakeFileDialogs dialogs;
  int saves = 0;
  int helps = 0;
  FrmTaskEditor* editor = new FrmTaskEditor(&form, {.fileDialogs = dialogs,
                                                    .files = files,
                                                    .messageBoxes = messageBoxes,
                                                    .programFolder = folder.Path(),
                                                    .scriptsChanged = [this] { ++saves; },
                                                    .showHelp = [this] { ++helps; }});
};

TEST_F(TaskEditorForm, HasItsCaptionAndItsButtons) {
  EXPECT_EQ(FromWx(editor->GetTitle()), "Taskscript Editor");
  Press(*editor, "Neues Taskscript");
  EXPECT_EQ(dialogs.requests.size(), 0U);
  Press(*editor, "Taskscript öffnen");
  EXPECT_EQ(dialogs.requests.size(), 1U);
  Press(*editor, "Taskscript speichern");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);  // there is no name
  Press(*editor, "Hilfe");
  EXPECT_EQ(helps, 1);
}

TEST_F(TaskEditorForm, SavesWhatStandsInIt) {
  Name().SetValue(ToWx("Größe"));
  Text().SetValue(ToWx("Sprechen2(ä);\nStopp();"));
  Press(*editor, "Taskscript speichern");
  EXPECT_EQ(files.files[folder.File("scripts/Größe.vts")], "Sprechen2(\xE4);\r\nStopp();");
  EXPECT_EQ(saves, 1);
}

TEST_F(TaskEditorForm, ShowsAnOpenedScriptWithItsEnding) {
  WriteFile(folder.File("Uhr.vts"), "Sprechen2(\xFC);\r\n");
  dialogs.answer = folder.File("Uhr.vts");
  Press(*editor, "Taskscript öffnen");
  EXPECT_EQ(FromWx(Text().GetValue()), "Sprechen2(ü);\n");
  EXPECT_EQ(FromWx(Name().GetValue()), "Uhr.vts");
}

TEST_F(TaskEditorForm, TellsUnderWhichNameAnOpenedScriptIsSaved) {
  auto& hint = Find<wxStaticText>(*editor, "lblNameHint");
  EXPECT_FALSE(hint.IsShown());
  Name().SetValue("Uhr.vts");
  EXPECT_TRUE(hint.IsShown());
  EXPECT_NE(FromWx(hint.GetLabel()).find("„Uhr.vts.vts“"), std::string::npos);
  Name().SetValue("Uhr");
  EXPECT_FALSE(hint.IsShown());
}

TEST_F(TaskEditorForm, TakesChangesBackAndRepeatsThem) {
  const auto command = [&](int id) {
    wxCommandEvent event(wxEVT_MENU, id);
    editor->ProcessWindowEvent(event);
    return FromWx(Text().GetValue());
  };
  WriteFile(folder.File("Uhr.vts"), "Sprechen();");
  dialogs.answer = folder.File("Uhr.vts");
  Press(*editor, "Taskscript öffnen");
  Text().AppendText("\nStopp();");
  EXPECT_EQ(command(wxID_UNDO), "Sprechen();");
  EXPECT_EQ(command(wxID_REDO), "Sprechen();\nStopp();");
}

TEST_F(TaskEditorForm, TellsAParameterOfKindNichtsForPause) {
  ChooseCommand("Pause");
  EXPECT_TRUE(Parameter(1).IsEnabled());
  EXPECT_FALSE(Parameter(2).IsEnabled());
  EXPECT_EQ(Label("lblCommandBold"), "Pause");
  EXPECT_EQ(Label("lblParameter"), "(Nichts als Parameter);");
  EXPECT_EQ(Label("lblDesc"), "Pausiert die Sprachausgabe.");
}

TEST_F(TaskEditorForm, GreysFieldsThatACommandDoesNotNeed) {
  ChooseCommand("Ersetzen");
  EXPECT_TRUE(Parameter(1).IsEnabled());
  EXPECT_TRUE(Parameter(2).IsEnabled());
  EXPECT_EQ(FromWx(Parameter(1).GetValue()), "");
  ChooseCommand("Stopp");
  for (const int number : {1, 2}) {
    EXPECT_FALSE(Parameter(number).IsEnabled());
    EXPECT_EQ(FromWx(Parameter(number).GetValue()), "(nicht benötigt)");
  }
  EXPECT_EQ(Label("lblParameter"), "();");
}

TEST_F(TaskEditorForm, ChecksANumberAndInsertsTheLine) {
  ChooseCommand("Warten");
  Parameter(1).SetValue("abc");
  Press(editor->Picker(), "Einfügen");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Skriptfehler:\n\nDer Befehl Warten(); erwartet als Parameter folgenden Typ: Zahl");
  EXPECT_EQ(FromWx(Text().GetValue()), "");
  Parameter(1).SetValue("10");
  Press(editor->Picker(), "Einfügen");
  EXPECT_EQ(FromWx(Text().GetValue()), "\nWarten(10);");
}

TEST_F(TaskEditorForm, PlacesTheHintRightBehindTheCommand) {
  editor->Picker().Show();
  ChooseCommand("Geschwindigkeit");
  const wxRect command = Find<wxStaticText>(editor->Picker(), "lblCommandBold").GetRect();
  const wxRect hint = Find<wxStaticText>(editor->Picker(), "lblParameter").GetRect();
  EXPECT_LE(std::abs(hint.x - command.GetRight()), 2);
  EXPECT_EQ(hint.y, command.y);
}

TEST_F(TaskEditorForm, TellsTheIndexWithF5) {
  editor->Picker().Show();
  ChooseCommand("Wenn");
  wxKeyEvent event(wxEVT_CHAR_HOOK);
  event.m_keyCode = WXK_F5;
  editor->Picker().ProcessWindowEvent(event);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "19");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::None);
}

TEST_F(TaskEditorForm, ListsWhatIsDoubtfulAndGoesThere) {
  auto& list = Find<wxListBox>(*editor, "findings");
  EXPECT_EQ(FromWx(list.GetString(0)), "Keine Auffälligkeiten.");
  Text().SetValue("Sprechen();\nWarten(x);");
  ASSERT_TRUE(
      WaitUntil([&] { return FromWx(list.GetString(0)).starts_with("Zeile 2: „x“ ist keine Zahl"); }));
  list.SetSelection(0);
  wxCommandEvent event(wxEVT_LISTBOX_DCLICK, list.GetId());
  list.ProcessWindowEvent(event);
  long column = -1;
  long line = -1;
  Text().PositionToXY(Text().GetInsertionPoint(), &column, &line);
  EXPECT_EQ(line, 1);
  EXPECT_EQ(column, 0);
}

TEST_F(TaskEditorForm, ColoursCommandsAndComments) {
  Text().SetValue("# K\nStopp();");
  wxTextAttr comment;
  wxTextAttr command;
  EXPECT_TRUE(WaitUntil([&] {
    Text().GetStyle(1, comment);
    Text().GetStyle(5, command);
    return comment.GetTextColour() != command.GetTextColour();
  }));
}

TEST_F(TaskEditorForm, AsksBeforeItCloses) {
  Text().SetValue("Stopp();");
  messageBoxes.answers = {MessageAnswer::Cancel, MessageAnswer::No};
  editor->Close();
  EXPECT_TRUE(editor->IsShown());
  EXPECT_FALSE(messageBoxes.boxes.empty());
  editor->Close();
  EXPECT_FALSE(editor->IsShown());
}

}  // namespace
}  // namespace lorelin
