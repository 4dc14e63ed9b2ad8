#include "documents/Recovery.h"

#include <future>

#include "app/MainWindow.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class RecoveryTest : public ScriptFixture {
 protected:
  void Type(const std::string& text) {
    document.text = text;
    recovery.Changed();
  }
  void Due() {
    recovery.SnapshotDue();
    recovery.FinishWriting();
  }
  std::vector<std::string> Snapshots() {
    recovery.FinishWriting();
    std::vector<std::string> texts;
    for (const auto& [path, bytes] : files.files) texts.push_back(bytes);
    return texts;
  }
};

TEST_F(RecoveryTest, WritesWhatWasTypedOnceItIsDue) {
  Type("Li");
  Type("Liebe");
  EXPECT_EQ(snapshotsScheduled, 1);
  EXPECT_TRUE(files.files.empty());
  Due();
  ASSERT_EQ(files.files.size(), 1U);
  EXPECT_EQ(files.files.begin()->first, folder.File("recovery/2026-10-03 09-05-07.rtf"));
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 Liebe}"});
}

TEST_F(RecoveryTest, WritesNothingWhileNothingChanges) {
  Due();
  Type("a");
  Due();
  files.files.clear();
  Due();
  EXPECT_TRUE(files.files.empty());
}

TEST_F(RecoveryTest, KeepsOneFileForOneDocument) {
  Type("a");
  Due();
  clock.now.minute = 59;
  Type("ab");
  Due();
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 ab}"});
}

TEST_F(RecoveryTest, ForgetsWhatWasSaved) {
  std::filesystem::create_directories(folder.File("recovery"));
  Type("a");
  Due();
  const std::string file = files.files.begin()->first;
  WriteFile(file, "{\\rtf1 a}");
  fileDialogs.answer = folder.File("a.txt");
  documents.SaveDoc();
  EXPECT_FALSE(std::filesystem::exists(file));
  files.files.clear();
  Due();
  EXPECT_TRUE(files.files.empty());
}

TEST_F(RecoveryTest, SavesTheTextBeforeAnotherOneReplacesIt) {
  Type("nicht gespeichert");
  guarded.SetText("neu");
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 nicht gespeichert}"});
  EXPECT_EQ(document.text, "neu");
}

TEST_F(RecoveryTest, SavesTheTextBeforeAFileReplacesIt) {
  Type("nicht gespeichert");
  document.files[folder.File("b.txt")] = "b";
  WriteFile(folder.File("b.txt"), "b");
  fileDialogs.answer = folder.File("b.txt");
  documents.OpenDoc();
  EXPECT_EQ(document.text, "b");
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 nicht gespeichert}"});
}

TEST_F(RecoveryTest, KeepsTheSnapshotOfADocumentThatCouldNotBeReplaced) {
  Type("bleibt");
  EXPECT_THROW(guarded.LoadFile(folder.File("fehlt.txt")), RuntimeError);
  Type("bleibt hier");
  Due();
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 bleibt hier}"});
  EXPECT_TRUE(recovery.Leftovers().empty());
}

// A script may set a text thousands of times a second.
TEST_F(RecoveryTest, LeavesTextsThatNobodyTyped) {
  for (int i = 0; i < 100; ++i) guarded.SetText(std::to_string(i));
  EXPECT_TRUE(files.files.empty());
}

// Nor does the next one wait until the file of the one before is written, and the file goes again.
TEST_F(RecoveryTest, WaitsForNoFileOfATextThatNobodyTyped) {
  std::filesystem::create_directories(folder.File("recovery"));
  std::promise<void> mayBeWritten;
  files.onReplace = [&, allowed = mayBeWritten.get_future().share()] {
    allowed.wait();
    WriteFile(folder.File("recovery/2026-10-03 09-05-07.rtf"), "{\\rtf1 eins}");
  };
  document.text = "eins";
  recovery.BeforeReplacing();
  recovery.Changed();
  recovery.AfterReplacing(true);
  recovery.SnapshotDue();
  guarded.SetText("zwei");
  EXPECT_EQ(document.text, "zwei");
  mayBeWritten.set_value();
  recovery.FinishWriting();
  EXPECT_EQ(files.files.size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(files.files.begin()->first));
}

TEST_F(RecoveryTest, KeepsNoEmptyText) {
  Type("");
  Due();
  EXPECT_TRUE(files.files.empty());
}

class FullDisk : public RecoveryTest {
 protected:
  FullDisk() {
    files.error = ErrorNumber::DiskFull;
    Type("Brief");
    Due();
    WriteFile(folder.File("b.txt"), "b");
    document.files[folder.File("b.txt")] = "b";
  }
  bool Opens(MessageAnswer answer) {
    messageBoxes.answers = {answer};
    return documents.OpenPath(folder.File("b.txt"));
  }
};

TEST_F(FullDisk, IsToldOnceAndStaysInTheStatusBar) {
  statusBar.SetMessage("etwas anderes");
  const std::string notice =
      "Ihr Text ist nicht gegen Verlust gesichert: Datenträger voll. Bitte speichern Sie ihn.";
  EXPECT_EQ(statusBar.notices["recovery"], notice);
  Due();
  Type("Brief, weiter");
  Due();
  EXPECT_EQ(statusBar.notices["recovery"], notice);
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(FullDisk, IsTriedAgainWhileTheTextIsUnsaved) {
  Due();
  EXPECT_GE(snapshotsScheduled, 3);
  files.error.reset();
  Due();
  EXPECT_EQ(Snapshots(), std::vector<std::string>{"{\\rtf1 Brief}"});
  EXPECT_TRUE(statusBar.notices.empty());
}

TEST_F(FullDisk, IsForgottenOnceTheTextIsSaved) {
  files.error.reset();
  fileDialogs.answer = folder.File("a.txt");
  documents.SaveDoc();
  EXPECT_TRUE(statusBar.notices.empty());
}

TEST_F(FullDisk, IsAskedAboutBeforeTheTextIsReplaced) {
  EXPECT_FALSE(Opens(MessageAnswer::No));
  EXPECT_EQ(document.text, "Brief");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(
      messageBoxes.boxes[0].text,
      "Ihr nicht gespeicherter Text konnte nicht gesichert werden: Datenträger voll.\n\nMöchten Sie ihn "
      "trotzdem verwerfen?");
  EXPECT_TRUE(Opens(MessageAnswer::Yes));
  EXPECT_EQ(document.text, "b");
}

TEST_F(FullDisk, LeavesNoEmptyEntry) {
  EXPECT_TRUE(Opens(MessageAnswer::Yes));
  EXPECT_TRUE(recovery.Leftovers().empty());
  EXPECT_TRUE(statusBar.notices.empty());
}

TEST_F(FullDisk, AsksNothingWhenTheDiskHasRoomAgain) {
  files.error.reset();
  EXPECT_TRUE(Opens(MessageAnswer::No));
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(recovery.Leftovers().size(), 1U);
}

TEST_F(FullDisk, AsksNoSecondTimeAboutATextThatIsNotWanted) {
  messageBoxes.answers = {MessageAnswer::No};
  documents.NewDoc();
  EXPECT_EQ(document.text, "");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(FullDisk, IsAskedAboutBeforeTheWindowCloses) {
  messageBoxes.answers = {MessageAnswer::No};
  window.CloseRequested();
  EXPECT_FALSE(calls.Has("view.end"));
  window.CloseRequested(true);
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_TRUE(calls.Has("view.end"));
}

TEST_F(FullDisk, KeepsWhatWasWrittenBefore) {
  files.error.reset();
  Due();
  files.error = ErrorNumber::DiskFull;
  Type("Brief, weiter");
  EXPECT_TRUE(Opens(MessageAnswer::Yes));
  EXPECT_EQ(recovery.Leftovers().size(), 1U);
}

TEST_F(FullDisk, LetsTextsGoThatNobodyTyped) {
  EXPECT_TRUE(Opens(MessageAnswer::Yes));
  messageBoxes.boxes.clear();
  guarded.SetText("von einem Skript");
  guarded.SetText("noch einer");
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

class Leftovers : public RecoveryTest {
 protected:
  Leftovers() { std::filesystem::create_directories(folder.File("recovery")); }
  void Leave(const std::string& name, const std::string& text) {
    WriteFile(folder.File("recovery/" + name), "{\\rtf1 " + text + "}");
    document.files[folder.File("recovery/" + name)] = text;
    recoveryFiles.names.push_back(name);
  }
};

TEST_F(Leftovers, ComeWithBeginningAndTimeTheNewestFirst) {
  Leave("2026-11-20 07-30-00.rtf", "Alt");
  Leave("2026-11-21 05-10-33.rtf", "Liebe Oma,\\par heute schreibe ich dir endlich den langen Brief.");
  recovery.Start();
  ASSERT_EQ(recovery.Leftovers().size(), 2U);
  EXPECT_EQ(recovery.Leftovers()[0].beginning, "Liebe Oma, heute schreibe ich dir endlic…");
  EXPECT_EQ(recovery.Leftovers()[0].time, "21.11.2026 05:10");
  EXPECT_EQ(recovery.Leftovers()[1].beginning, "Alt");
}

TEST_F(Leftovers, AreAtMostFive) {
  for (int i = 0; i < 7; ++i) Leave("2026-11-2" + std::to_string(i) + " 07-30-00.rtf", std::to_string(i));
  recovery.Start();
  ASSERT_EQ(recovery.Leftovers().size(), Recovery::kMostLeftovers);
  EXPECT_EQ(recovery.Leftovers().back().beginning, "2");
  EXPECT_FALSE(std::filesystem::exists(folder.File("recovery/2026-11-21 07-30-00.rtf")));
}

TEST_F(Leftovers, BecomeTheDocumentUnderTheirOwnName) {
  Leave("2026-11-21 05-10-33.rtf", "Brief");
  recovery.Start();
  const std::string file = recovery.Leftovers()[0].file;
  documents.Restore(file);
  recovery.Adopt(file);
  EXPECT_TRUE(recovery.Leftovers().empty());
  EXPECT_TRUE(documents.Modified());
  EXPECT_TRUE(documents.Current().path.empty());
  Type("Brief, weiter");
  Due();
  EXPECT_EQ(files.files[file], "{\\rtf1 Brief, weiter}");
}

TEST_F(Leftovers, AreThereUntilTheRestoredTextIsSaved) {
  Leave("2026-11-21 05-10-33.rtf", "Brief");
  recovery.Start();
  const std::string file = recovery.Leftovers()[0].file;
  documents.Restore(file);
  recovery.Adopt(file);
  EXPECT_TRUE(std::filesystem::exists(file));
  fileDialogs.answer = folder.File("brief.txt");
  documents.SaveDoc();
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Leftovers, CanBeDiscarded) {
  Leave("2026-11-21 05-10-33.rtf", "Brief");
  recovery.Start();
  recovery.DiscardLeftovers();
  EXPECT_TRUE(recovery.Leftovers().empty());
  EXPECT_FALSE(std::filesystem::exists(folder.File("recovery/2026-11-21 05-10-33.rtf")));
}

TEST_F(Leftovers, AreNotTheUnfinishedFilesOfAKilledRun) {
  WriteFile(folder.File("recovery/.lorelin-a1B2c3"), "{\\rtf1 hal");
  Leave("2026-11-21 05-10-33.rtf", "Brief");
  recovery.Start();
  EXPECT_FALSE(std::filesystem::exists(folder.File("recovery/.lorelin-a1B2c3")));
  EXPECT_TRUE(std::filesystem::exists(folder.File("recovery/2026-11-21 05-10-33.rtf")));
}

TEST_F(Leftovers, SurviveADamagedFile) {
  WriteFile(folder.File("recovery/2026-11-21 05-10-33.rtf"), std::string("\0\1{{{", 5));
  recoveryFiles.names.emplace_back("2026-11-21 05-10-33.rtf");
  recoveryFiles.names.emplace_back("nicht da.rtf");
  recovery.Start();
  EXPECT_LE(recovery.Leftovers().size(), 2U);
}

class RecentFilesTest : public ScriptFixture {};

TEST_F(RecentFilesTest, HasTheLatestFirstAndEachOnce) {
  recent.Add("/a.txt");
  recent.Add("/b.txt");
  recent.Add("/a.txt");
  EXPECT_EQ(recent.Paths(), (std::vector<std::string>{"/a.txt", "/b.txt"}));
  EXPECT_EQ(view.recentFiles, recent.Paths());
}

TEST_F(RecentFilesTest, KeepsNine) {
  for (int i = 0; i < 12; ++i) recent.Add("/" + std::to_string(i));
  EXPECT_EQ(recent.Paths().size(), 9U);
  EXPECT_EQ(recent.Paths().front(), "/11");
  EXPECT_EQ(RecentFiles(settings).Paths(), recent.Paths());
}

TEST_F(RecentFilesTest, ForgetsOne) {
  recent.Add("/a.txt");
  recent.Add("/b.txt");
  recent.Remove("/b.txt");
  EXPECT_EQ(recent.Paths(), std::vector<std::string>{"/a.txt"});
}

}  // namespace
}  // namespace lorelin
