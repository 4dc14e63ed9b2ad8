// What the main window does beside starting, ending and its commands: recent and dropped files, the editor,
// leftovers of earlier runs, what it remembers and asks.

#include "app/MainWindow.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class Desk : public ScriptFixture {};

TEST_F(Desk, OpensARecentDocument) {
  WriteFile(folder.File("brief.txt"), "Lieber Leser");
  document.files[folder.File("brief.txt")] = "Lieber Leser";
  recent.Add(folder.File("brief.txt"));
  window.Load();
  EXPECT_EQ(view.recentFiles, std::vector<std::string>{folder.File("brief.txt")});
  modules.opening.OpenRecent(0);
  EXPECT_EQ(document.text, "Lieber Leser");
  EXPECT_TRUE(view.editorVisible);
  modules.opening.OpenRecent(7);
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(Desk, ForgetsARecentDocumentThatHasGone) {
  recent.Add(folder.File("fehlt.txt"));
  modules.opening.OpenRecent(0);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die Datei „" + folder.File("fehlt.txt") + "“ kann nicht gelesen werden oder ist nicht mehr da.");
  EXPECT_TRUE(recent.Paths().empty());
}

TEST_F(Desk, AsksBeforeItOpensADroppedFileThatIsNoText) {
  WriteFile(folder.File("bild.png"), "x");
  messageBoxes.answers = {MessageAnswer::No};
  document.text = "bleibt";
  modules.opening.Open(folder.File("bild.png"));
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(document.text, "bleibt");
}

TEST_F(Desk, RunsTheCommandsOfTheEditor) {
  for (const auto* const name :
       {"Undo", "Redo", "SelectAll", "Find", "FindAgain", "Replace", "Larger", "Smaller", "UsualSize"}) {
    window.RunCommand(name);
  }
  EXPECT_EQ(editing.done, (std::vector<std::string>{"Undo", "Redo", "SelectAll", "Search", "SearchAgain",
                                                    "Replace", "Zoom 1", "Zoom 0", "Zoom 0"}));
}

TEST_F(Desk, LeavesTheHiddenDocumentAloneWhileAPageIsShown) {
  document.text = "Hallo";
  document.selectionBytes = 5;
  clipboard.text = "alt";
  editing.showsPage = true;
  for (const auto* const name :
       {"Cut", "Delete", "Insert", "Undo", "Redo", "Replace", "Copy", "SelectAll", "Find", "FindAgain"}) {
    window.RunCommand(name);
  }
  EXPECT_EQ(document.text, "Hallo");
  EXPECT_EQ(clipboard.text, "alt");
  EXPECT_EQ(editing.done, (std::vector<std::string>{"CopyFromPage", "SelectAll", "Search", "SearchAgain"}));
}

TEST_F(Desk, RemembersHowLargeTextsAreShown) {
  window.RunCommand("Larger");
  window.RunCommand("Larger");
  EXPECT_EQ(settings.Get(setting::TextSize), "2");
  editing.done.clear();
  window.Load();
  EXPECT_EQ(editing.done, std::vector<std::string>{"Zoom 2"});
  for (int i = 0; i < 50; ++i) window.RunCommand("Smaller");
  EXPECT_EQ(editing.done.back(), "Zoom -12");
}

TEST_F(Desk, TakesAnySizeThatIsStored) {
  Set(setting::TextSize, "gross");
  window.Load();
  EXPECT_TRUE(editing.done.empty());
  Set(setting::TextSize, "99999");
  modules.textSize.Restore();
  EXPECT_EQ(editing.done, std::vector<std::string>{"Zoom 12"});
}

TEST_F(Desk, EmptiesNoFolderThatATemporaryLinkPointsTo) {
  std::filesystem::create_directory(folder.File("fremd"));
  WriteFile(folder.File("fremd/lied.wav"), "x");
  std::error_code error;
  std::filesystem::create_directory_symlink(folder.File("fremd"), folder.File("temp"), error);
  if (error) GTEST_SKIP() << "no links here: " << error.message();
  fileSearch.names = {"lied.wav"};
  window.Load();
  EXPECT_TRUE(std::filesystem::exists(folder.File("fremd/lied.wav")));
}

TEST_F(Desk, OffersWhatAnEarlierRunLeft) {
  std::filesystem::create_directories(folder.File("recovery"));
  const std::string file = folder.File("recovery/2026-11-21 05-10-33.rtf");
  WriteFile(file, "{\\rtf1 Liebe Oma}");
  document.files[file] = "Liebe Oma";
  recoveryFiles.names.emplace_back("2026-11-21 05-10-33.rtf");
  window.Load();
  EXPECT_TRUE(calls.Has("pane.item Nicht gespeicherte Texte 1100 Liebe Oma (21.11.2026 05:10)"));
  EXPECT_EQ(statusBar.message,
            "Ein nicht gespeicherter Text ist noch da: links unter „Nicht gespeicherte Texte“.");
  taskPane.Click(1100, TaskPaneRequest::Restore);
  EXPECT_EQ(document.text, "Liebe Oma");
  EXPECT_TRUE(view.editorVisible);
  EXPECT_EQ(view.title, "• Lorelin");
  EXPECT_TRUE(recovery.Leftovers().empty());
}

TEST_F(Desk, DiscardsLeftoversOnlyWhenTheUserAgrees) {
  std::filesystem::create_directories(folder.File("recovery"));
  WriteFile(folder.File("recovery/2026-11-21 05-10-33.rtf"), "{\\rtf1 a}");
  recoveryFiles.names.emplace_back("2026-11-21 05-10-33.rtf");
  window.Load();
  messageBoxes.answers = {MessageAnswer::No};
  taskPane.Click(1199, TaskPaneRequest::Restore);
  EXPECT_EQ(recovery.Leftovers().size(), 1U);
  messageBoxes.answers = {MessageAnswer::Yes};
  taskPane.Click(1199, TaskPaneRequest::Restore);
  EXPECT_TRUE(recovery.Leftovers().empty());
}

TEST_F(Desk, KeepsUnsavedTextWhenItCloses) {
  window.Load();
  document.text = "eben noch getippt";
  window.EditorChanged(17);
  window.CloseRequested();
  ASSERT_EQ(files.files.size(), 1U);
  EXPECT_EQ(files.files.begin()->second, "{\\rtf1 eben noch getippt}");
}

TEST_F(Desk, KeepsNothingWhenTheUserEndsWithoutSaving) {
  window.Load();
  document.text = "weg damit";
  window.EditorChanged(9);
  messageBoxes.answers = {MessageAnswer::No};
  window.ExitLo();
  EXPECT_TRUE(files.files.empty());
}

TEST_F(Desk, InvitesToTheSurveyWhenItCloses) {
  window.Load();
  window.CloseRequested();
  EXPECT_EQ(helpDialogs.shown, std::vector<std::string>{"Survey"});
  EXPECT_TRUE(calls.Has("view.end"));
}

TEST_F(Desk, AsksNothingWhenTheSystemEnds) {
  window.Load();
  window.CloseRequested(true);
  EXPECT_TRUE(helpDialogs.shown.empty());
  EXPECT_TRUE(calls.Has("view.end"));
}

TEST_F(Desk, RemembersWhereTheWindowStood) {
  settings.Save(setting::Placement, "10 20 800 600 0 240");
  window.Load();
  EXPECT_EQ(view.placement, "10 20 800 600 0 240");
  view.placement = "1 1 700 500 1 200";
  window.CloseRequested();
  EXPECT_EQ(settings.Get(setting::Placement), "1 1 700 500 1 200");
}

TEST_F(Desk, SwitchesTheTimersWhenSettingsAreApplied) {
  settings.Save(setting::ReadClipboardOnChange, "1");
  modules.timers.FollowSettings();
  EXPECT_TRUE(calls.Has("tmrClipboard on"));
  EXPECT_TRUE(calls.Has("tmrWinTasks off"));
}

TEST_F(Desk, ShowsDialogsAndPagesOfTheHelpMenu) {
  for (const auto* const name : {"Settings", "About", "ShowHelp", "MoreInfo"}) window.RunCommand(name);
  EXPECT_EQ(helpDialogs.shown, (std::vector<std::string>{"Settings", "About"}));
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/hilfe.htm")));
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/About.htm")));
}

TEST_F(Desk, ReadsASpeakLinkAloud) {
  window.Load();
  std::string address = "speak:Guten%20Morgen";
  EXPECT_TRUE(browser.onNavigate(address));
  EXPECT_EQ(document.text, "Guten Morgen");
  EXPECT_NE(voice.SpokenText().find("Guten Morgen"), std::string::npos);
}

TEST_F(Desk, LooksAtTheDesktopOnlyBetweenCallsOfExtensions) {
  window.Load();
  clipboard.text = "neu";
  int called = 0;
  RegisterFilter("F", [&](const std::string& method, std::optional<std::string> text) {
    if (method == "FilterText" && ++called == 1) modules.timers.Ticked(WatchTimer::Clipboard);
    return text.value_or("");
  });
  EXPECT_EQ(extensions.FilterText("x"), "x");
  EXPECT_EQ(called, 1);
  modules.timers.Ticked(WatchTimer::Clipboard);
  EXPECT_NE(voice.SpokenText().find("neu"), std::string::npos);
}

}  // namespace
}  // namespace lorelin
