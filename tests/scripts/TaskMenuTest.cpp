#include "scripts/TaskMenu.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

using TaskMenuTest = ScriptFixture;

TEST_F(TaskMenuTest, ListsTheScriptsBehindTheItemThatCreatesOne) {
  fileSearch.names = {"b.vts", "a.vts"};
  tasks.AddUserdefinedScripts();
  EXPECT_EQ(calls.Entries(),
            (std::vector<std::string>{"pane.group Tasks", "pane.item Tasks 1000 Taskscript erstellen",
                                      "pane.item Tasks 999 ----------", "pane.item Tasks 1 b",
                                      "pane.item Tasks 2 a"}));
  EXPECT_EQ(fileSearch.patterns, std::vector<std::string>{folder.File("scripts/*.*")});
}

TEST_F(TaskMenuTest, HoldsOnlyItsTwoItemsWithoutScripts) {
  tasks.AddUserdefinedScripts();
  EXPECT_EQ(calls.Entries().size(), 3U);
}

TEST_F(TaskMenuTest, KeepsTheEndingWhenItIsSwitchedOn) {
  fileSearch.names = {"a.vts", "b.vts.vts", "C.VTS"};
  Set(setting::ShowVTS, "1");
  tasks.AddUserdefinedScripts();
  EXPECT_TRUE(calls.Has("pane.item Tasks 1 a.vts"));
  EXPECT_TRUE(calls.Has("pane.item Tasks 2 b.vts"));
  EXPECT_TRUE(calls.Has("pane.item Tasks 3 C.VTS"));
  calls.Clear();
  Set(setting::ShowVTS, "true");
  tasks.AddUserdefinedScripts();
  EXPECT_TRUE(calls.Has("pane.item Tasks 1 a"));
  EXPECT_TRUE(calls.Has("pane.item Tasks 2 b"));
}

TEST_F(TaskMenuTest, ListsScriptsWhoseEndingIsInCapitals) {
  fileSearch.names = {"a.txt", "GROSS.VTS", "vts"};
  tasks.AddUserdefinedScripts();
  EXPECT_EQ(calls.Entries().size(), 4U);
  EXPECT_TRUE(calls.Has("pane.item Tasks 1 GROSS"));
  EXPECT_EQ(tasks.GetSelectedItem(1), "GROSS.VTS");
}

TEST_F(TaskMenuTest, RunsTheScriptWhoseNameWasClickedWhenTheFolderHasChanged) {
  fileSearch.names = {"b.vts", "c.vts"};
  WriteScript("b.vts", "Meldung(aus b);");
  WriteScript("c.vts", "Meldung(aus c);");
  tasks.AddUserdefinedScripts();
  calls.Clear();
  fileSearch.names = {"a.vts", "b.vts", "c.vts"};
  tasks.Clicked(1);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "aus b");
  EXPECT_EQ(statusBar.messages[0], "Drücken Sie ESC um die Ausführung von 'b.vts' zu beenden.");
  EXPECT_TRUE(calls.Has("pane.item Tasks 3 c"));
  fileSearch.names = {"c.vts"};
  tasks.Clicked(3);
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes[1].text, "aus c");
}

TEST_F(TaskMenuTest, RunsNoOtherScriptInsteadOfOneThatIsGone) {
  fileSearch.names = {"a.vts", "b.vts"};
  WriteScript("b.vts", "Meldung(aus b);");
  tasks.AddUserdefinedScripts();
  fileSearch.names = {"b.vts"};
  tasks.Clicked(1);
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_TRUE(view.browserVisible);  // the error page
}

TEST_F(TaskMenuTest, FollowsItsFolder) {
  fileSearch.names = {"a.vts"};
  tasks.AddUserdefinedScripts();
  calls.Clear();
  tasks.FollowFolder();
  EXPECT_TRUE(calls.Entries().empty());
  fileSearch.names = {"a.vts", "b.vts"};
  tasks.FollowFolder();
  EXPECT_TRUE(calls.Has("pane.item Tasks 2 b"));
}

TEST_F(TaskMenuTest, TurnsANumberBackIntoAFile) {
  fileSearch.names = {"a.vts", "b.vts"};
  EXPECT_EQ(tasks.GetSelectedItem(1), "a.vts");
  EXPECT_EQ(tasks.GetSelectedItem(2), "b.vts");
  EXPECT_EQ(tasks.GetSelectedItem(0), "a.vts");
  EXPECT_EQ(tasks.GetSelectedItem(-7), "a.vts");
  EXPECT_EQ(tasks.GetSelectedItem(3), "");
}

TEST_F(TaskMenuTest, RunsTheScriptAndTellsTheExtensionsFirst) {
  fileSearch.names = {"a.vts", "b.vts"};
  WriteScript("b.vts", "Meldung(aus b);");
  std::vector<std::string> told;
  RegisterFilter("E", [&](const std::string& method, std::optional<std::string> argument) {
    told.push_back(method + " " + argument.value_or(""));
    EXPECT_TRUE(messageBoxes.boxes.empty());
    return std::string();
  });
  tasks.Clicked(2);
  EXPECT_EQ(told, std::vector<std::string>{"TaskScript b.vts"});
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "aus b");
  EXPECT_EQ(statusBar.messages[0], "Drücken Sie ESC um die Ausführung von 'b.vts' zu beenden.");
}

TEST_F(TaskMenuTest, RefusesASecondScript) {
  fileSearch.names = {"a.vts"};
  WriteScript("a.vts", "Meldung(läuft);\r\nMeldung(läuft noch);");
  bool again = false;
  messageBoxes.onShow = [&] {
    if (std::exchange(again, true)) return;
    tasks.Clicked(1);
  };
  tasks.Clicked(1);
  ASSERT_EQ(messageBoxes.boxes.size(), 3U);
  EXPECT_EQ(messageBoxes.boxes[1].title, "Konflikt");
  EXPECT_EQ(messageBoxes.boxes[1].icon, MessageIcon::Exclamation);
  EXPECT_EQ(messageBoxes.boxes[1].text,
            "Es läuft bereits ein Taskscript. Bitte warten Sie bis dieses seine Aufgabe(n) erfüllt hat oder "
            "brechen Sie "
            "es mit ESC ab!");
  EXPECT_EQ(messageBoxes.boxes[2].text, "läuft noch");
}

TEST_F(TaskMenuTest, OpensTheEditor) {
  tasks.Clicked(1000);
  EXPECT_EQ(editorsOpened, 1);
}

TEST_F(TaskMenuTest, DoesNothingForOtherNumbersOfAHundredAndMore) {
  fileSearch.names = std::vector<std::string>(200, "a.vts");
  WriteScript("a.vts", "Meldung(nie);");
  for (const auto number : {100, 102, 999, 1001, 1002}) tasks.Clicked(number);
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(editorsOpened, 0);
  tasks.Clicked(99);
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(TaskMenuTest, ShowsAPageForAScriptThatIsGone) {
  WriteScript("anderes.txt", "");
  std::filesystem::create_directories(folder.File("hypertext"));
  WriteFile(folder.File("hypertext/err.html"), "<h1>%MOREINFO</h1>");
  tasks.Clicked(1);
  EXPECT_EQ(files.files[folder.File("hypertext/err2.html")],
            "<h1><p><p>Fehlernummer: 75<br>Fehlerbeschreibung: Fehler beim Zugriff auf Pfad/Datei</h1>");
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/err2.html")));
  EXPECT_TRUE(view.browserVisible);
  EXPECT_FALSE(view.editorVisible);
}

}  // namespace
}  // namespace lorelin
