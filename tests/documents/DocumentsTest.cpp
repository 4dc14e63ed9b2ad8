#include "documents/Documents.h"

#include "base/modFile.h"
#include "documents/richTextFile.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class DocumentsTest : public ScriptFixture {
 protected:
  DocumentsTest() {
    documents.SetDefaultExtension(".txt");
    RegisterFilter("E", [this](const std::string& method, std::optional<std::string> argument) {
      hooks.push_back(method + " " + argument.value_or("-"));
      return std::string();
    });
  }
  void Opens(const std::string& name, std::string_view bytes) {
    fileDialogs.answer = folder.File(name);
    WriteFile(*fileDialogs.answer, bytes);
    document.files[*fileDialogs.answer] = WithPlainLineEnds(DecodeText(bytes));
    document.formats[*fileDialogs.answer] = FormatOf(bytes);
    documents.OpenDoc();
  }
  std::string SavedAs(const std::string& name) {
    fileDialogs.answer = folder.File(name);
    documents.SaveDoc();
    return files.files.count(folder.File(name)) != 0 ? files.files[folder.File(name)] : "(fehlt)";
  }
  std::vector<std::string> hooks;
};

TEST_F(DocumentsTest, SetsUpTheDialogs) {
  documents.OpenDoc();
  documents.SaveDoc();
  ASSERT_EQ(fileDialogs.requests.size(), 2U);
  EXPECT_EQ(fileDialogs.requests[0].filter,
            "Textbasierende Dateien (*.txt,*.rtf)|*.txt;*.rtf|Textdateien (*.txt)|*.txt|Wordpad Dateien "
            "(*.rtf)|*.rtf|Alle Dateien (*.*)|*.*");
  EXPECT_EQ(fileDialogs.requests[1].filter,
            "Textdateien (*.txt)|*.txt|Wordpad Dateien (*.rtf)|*.rtf|Alle Dateien (*.*)|*.*");
  EXPECT_EQ(fileDialogs.requests[1].defaultExtension, ".txt");
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_TRUE(hooks.empty());
}

TEST_F(DocumentsTest, OpensAFileAndTellsTheExtensionsBefore) {
  document.text = "alt, nicht gespeichert";
  documents.Changed();
  Opens("Brief.TXT", "Lieber Leser");
  EXPECT_EQ(document.text, "Lieber Leser");
  EXPECT_EQ(documents.Current().path, folder.File("Brief.TXT"));
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(hooks, std::vector<std::string>{"Startup " + folder.File("Brief.TXT")});
  EXPECT_EQ(view.title, "Brief.TXT – Lorelin");
}

TEST_F(DocumentsTest, AsksBeforeItOpensAnotherKindOfFile) {
  document.text = "alt";
  messageBoxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
  Opens("notizen.log", "Eintrag");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Frage");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Question);
  EXPECT_EQ(messageBoxes.boxes[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die von Ihnen ausgewählte Datei scheint keine darstellbare, textbasierende Datei zu "
            "sein.\n\nMöchten Sie "
            "diese trotzdem öffnen?");
  EXPECT_EQ(document.text, "alt");
  EXPECT_TRUE(hooks.empty());
  documents.OpenDoc();
  EXPECT_EQ(document.text, "Eintrag");
}

// "Speichern unter" would write the text that is shown over a file that is not.
TEST_F(DocumentsTest, KeepsItsPathWhenAFileIsNotOpened) {
  Opens("a.txt", "A");
  messageBoxes.answers = {MessageAnswer::No};
  Opens("notizen.log", "Eintrag");
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
  fileDialogs.answer = folder.File("fehlt.txt");
  documents.OpenDoc();
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
  EXPECT_EQ(document.text, "A");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(DocumentsTest, SavesPlainTextInSingleBytes) {
  document.text = "Grüße\nzwei";
  EXPECT_EQ(SavedAs("a.txt"),
            "Gr\xFC\xDF"
            "e\nzwei");
  EXPECT_EQ(hooks, std::vector<std::string>{"SaveFile " + folder.File("a.txt")});
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
}

TEST_F(DocumentsTest, SavesOtherEndingsAsRichTextWhateverTheirCase) {
  document.text = "Hallo";
  EXPECT_EQ(SavedAs("a.rtf"), "{\\rtf1 Hallo}");
  EXPECT_EQ(SavedAs("Brief.TXT"), "{\\rtf1 Hallo}");
  EXPECT_EQ(SavedAs("a"), "{\\rtf1 Hallo}");
}

TEST_F(DocumentsTest, WritesATextAsItWasRead) {
  Opens("a.txt",
        "Gr\xC3\xBC\xC3\x9F"
        "e\r\nzwei");
  EXPECT_EQ(SavedAs("a.txt"),
            "Gr\xC3\xBC\xC3\x9F"
            "e\r\nzwei");
  Opens("b.txt", "\xEF\xBB\xBFGrüße");
  EXPECT_EQ(SavedAs("b.txt"), "\xEF\xBB\xBFGrüße");
  Opens("c.txt",
        "Gr\xFC\xDF"
        "e");
  EXPECT_EQ(SavedAs("c.txt"),
            "Gr\xFC\xDF"
            "e");
  document.text = "♥";
  EXPECT_EQ(SavedAs("c.txt"), "\xEF\xBB\xBF♥");
}

TEST_F(DocumentsTest, WritesUtf16AsItWasRead) {
  const std::string little(
      "\xFF\xFE"
      "a\0\r\0\n\0e&",
      10);
  const std::string big("\xFE\xFF\0a\0\n&e", 8);
  Opens("a.txt", little);
  EXPECT_EQ(document.text, "a\n♥");
  EXPECT_EQ(SavedAs("a.txt"), std::string("\xFF\xFE"
                                          "a\0\r\0\n\0e&",
                                          10));
  Opens("b.txt", big);
  EXPECT_EQ(document.text, "a\n♥");
  document.text = "♥\na";
  EXPECT_EQ(SavedAs("b.txt"), std::string("\xFE\xFF&e\0\n\0a", 8));
}

// A long one would be read twice, and the second time while the window waits.
TEST_F(DocumentsTest, LeavesTheReadingOfAFileToTheEditor) {
  const std::string path = folder.File("nur im Editor.txt");
  document.files[path] = "für\n";
  document.formats[path] = {.encoding = TextFormat::Encoding::Utf8, .carriageReturns = true};
  documents.Load(path);
  documents.SetPath(path);
  documents.SaveAs();
  EXPECT_EQ(files.files[path], "für\r\n");
}

TEST_F(DocumentsTest, SaysThatAFileIsTooLarge) {
  document.unreadable[folder.File("riesig.txt")] = ErrorNumber::OutOfMemory;
  Opens("riesig.txt", "");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, ErrorText(ErrorNumber::OutOfMemory));
}

TEST_F(DocumentsTest, SaysThatAFileHoldsNoText) {
  Opens("a.txt", "A");
  document.unreadable[folder.File("bild.txt")] = ErrorNumber::InvalidFileFormat;
  Opens("bild.txt", "");
  EXPECT_EQ(document.text, "A");
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die Datei „bild.txt“ enthält keinen Text, den Lorelin anzeigen oder vorlesen könnte.");
}

TEST(ReadRichTextFile, TellsHowTheFileStoresItsText) {
  const TemporaryFolder folder;
  WriteFile(folder.File("a.txt"), "für\r\n");
  const StoredRichText stored = ReadRichTextFile(folder.File("a.txt"));
  EXPECT_EQ(stored.text.text, "für\n");
  EXPECT_EQ(stored.file.format,
            (TextFormat{.encoding = TextFormat::Encoding::Utf8, .carriageReturns = true}));
}

TEST(ReadRichTextFile, RefusesWhatIsNoText) {
  const TemporaryFolder folder;
  WriteFile(folder.File("bild.txt"), std::string_view("GIF\0\1", 5));
  try {
    (void)ReadRichTextFile(folder.File("bild.txt"));
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 321);
  }
  WriteFile(folder.File("wide.txt"), std::string_view("\xFF\xFE"
                                                      "a\0\r\0\n\0",
                                                      8));
  EXPECT_EQ(ReadRichTextFile(folder.File("wide.txt")).text.text, "a\n");
}

TEST_F(DocumentsTest, TellsWhyItCouldNotSave) {
  document.text = "x";
  files.error = ErrorNumber::DiskFull;
  EXPECT_EQ(SavedAs("a.txt"), "(fehlt)");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Während des Speichervorganges ist ein Fehler aufgetreten: Datenträger voll (61)");
  EXPECT_EQ(hooks, std::vector<std::string>{"SaveFile " + folder.File("a.txt")});
}

TEST_F(DocumentsTest, KeepsSilentAboutRichTextAndKnownPaths) {
  files.error = ErrorNumber::DiskFull;
  document.text = "x";
  (void)SavedAs("a.rtf");
  documents.SaveAs();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(DocumentsTest, WritesPlainTextUnderTheKnownPathWithoutADialog) {
  Opens("a.rtf", "{\\rtf1 x}");
  document.text = "nur Text";
  fileDialogs.requests.clear();
  hooks.clear();
  documents.SaveAs();
  EXPECT_TRUE(fileDialogs.requests.empty());
  EXPECT_TRUE(hooks.empty());
  EXPECT_EQ(files.files[folder.File("a.rtf")], "nur Text");
}

TEST_F(DocumentsTest, AsksForANameWhenThereIsNone) {
  document.text = "x";
  fileDialogs.answer = folder.File("neu.txt");
  documents.SaveAs();
  EXPECT_EQ(fileDialogs.requests.size(), 1U);
  EXPECT_EQ(files.files[folder.File("neu.txt")], "x");
}

TEST_F(DocumentsTest, AsksNothingForANewDocumentInPlaceOfAnEmptyOne) {
  documents.NewDoc();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(hooks, std::vector<std::string>{"NewFile -"});
}

TEST_F(DocumentsTest, KeepsTheTextWhenItWasSavedForANewOne) {
  document.text = "Hallo";
  fileDialogs.answer = folder.File("a.txt");
  documents.NewDoc();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].buttons, MessageButtons::YesNoCancel);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Möchten Sie das aktuelle Dokument speichern bevor Sie ein neues anlegen?");
  EXPECT_EQ(document.text, "Hallo");
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
  EXPECT_EQ(hooks, (std::vector<std::string>{"SaveFile " + folder.File("a.txt"), "NewFile -"}));
}

TEST_F(DocumentsTest, EmptiesTheDocumentForANewOne) {
  Opens("a.txt", "Hallo");
  hooks.clear();
  messageBoxes.answers = {MessageAnswer::Cancel, MessageAnswer::No};
  documents.NewDoc();
  EXPECT_EQ(document.text, "Hallo");
  EXPECT_TRUE(hooks.empty());
  documents.NewDoc();
  EXPECT_EQ(document.text, "");
  EXPECT_EQ(documents.Current().path, "");
  EXPECT_EQ(hooks, std::vector<std::string>{"NewFile -"});
  EXPECT_EQ(view.title, "Lorelin");
}

TEST_F(DocumentsTest, AsksBeforeTheEndEvenForAnEmptyDocument) {
  messageBoxes.answers = {MessageAnswer::Cancel, MessageAnswer::No, MessageAnswer::Yes, MessageAnswer::Yes};
  EXPECT_FALSE(documents.MayExit());
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Möchten Sie das aktuelle Dokument speichern bevor Sie Lorelin beenden?");
  EXPECT_TRUE(documents.MayExit());
  EXPECT_FALSE(documents.MayExit());  // the dialog was cancelled
  fileDialogs.answer = folder.File("a.txt");
  EXPECT_TRUE(documents.MayExit());
}

TEST_F(DocumentsTest, ClaimsNoFileThatWasNotWritten) {
  Opens("a.txt", "A");
  document.text = "B";
  documents.Changed();
  files.error = ErrorNumber::DiskFull;
  (void)SavedAs("b.txt");
  (void)SavedAs("b.rtf");
  EXPECT_EQ(documents.Current().path, folder.File("a.txt"));
  EXPECT_EQ(view.title, "• a.txt – Lorelin");
  EXPECT_EQ(statusBar.message, "„b.rtf“ wurde nicht gespeichert: Datenträger voll");
  documents.SaveAs();
  EXPECT_EQ(statusBar.message, "„a.txt“ wurde nicht gespeichert: Datenträger voll");
  files.error.reset();
  documents.SaveAs();
  EXPECT_EQ(statusBar.message, "Gespeichert: a.txt");
  EXPECT_EQ(view.title, "a.txt – Lorelin");
}

class OtherText : public DocumentsTest {
 protected:
  OtherText() {
    Opens("brief.txt", "Liebe Oma");
    guarded.SetText("Guten Morgen");
    documents.Changed();
  }
};

TEST_F(OtherText, IsNotCalledByTheFilesName) {
  EXPECT_EQ(view.title, "• Lorelin");
  EXPECT_EQ(documents.Current().path, folder.File("brief.txt"));
}

TEST_F(OtherText, OverwritesNoFileWithoutAQuestion) {
  messageBoxes.answers = {MessageAnswer::Cancel, MessageAnswer::No, MessageAnswer::Yes};
  documents.SaveAs();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die Datei „brief.txt“ enthält einen anderen Text als den, der hier steht.");
  EXPECT_EQ(messageBoxes.choicesOffered[0], "&Überschreiben|Speichern &unter …|&Abbrechen");
  EXPECT_TRUE(files.files.empty());
  fileDialogs.answer = std::nullopt;
  documents.SaveAs();
  EXPECT_TRUE(files.files.empty());
  documents.SaveAs();
  EXPECT_EQ(files.files[folder.File("brief.txt")], "Guten Morgen");
  EXPECT_EQ(view.title, "brief.txt – Lorelin");
  documents.SaveAs();
  EXPECT_EQ(messageBoxes.boxes.size(), 3U);
}

TEST_F(OtherText, GetsItsOwnNameWhenItIsSavedUnderOne) {
  messageBoxes.answers = {MessageAnswer::No};
  fileDialogs.answer = folder.File("morgen.txt");
  documents.SaveAs();
  EXPECT_EQ(files.files[folder.File("morgen.txt")], "Guten Morgen");
  EXPECT_EQ(documents.Current().path, folder.File("morgen.txt"));
}

TEST_F(DocumentsTest, KnowsTheTextAgainThatAScriptOnlyRevised) {
  Opens("brief.txt", "Liebe Oma");
  guarded.Revise("Liebe Tante");
  documents.SaveAs();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(files.files[folder.File("brief.txt")], "Liebe Tante");
}

TEST_F(DocumentsTest, WritesToAPathWhereNothingCouldBeLost) {
  documents.SetPath(folder.File("neu.txt"));
  document.text = "x";
  documents.SaveAs();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(files.files[folder.File("neu.txt")], "x");
}

class ChangedByOthers : public DocumentsTest {
 protected:
  ChangedByOthers() {
    Opens("brief.txt", "Liebe Oma");
    Others("Liebe Oma, Zusatz");
    messageBoxes.boxes.clear();
  }
  void Others(const std::string& text) {
    WriteFile(folder.File("brief.txt"), text);
    document.files[folder.File("brief.txt")] = text;
  }
};

TEST_F(ChangedByOthers, IsNoticedOnSavingAndCanBeLoaded) {
  messageBoxes.answers = {MessageAnswer::Yes};
  documents.SaveAs();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die Datei „brief.txt“ wurde inzwischen von einem anderen Programm geändert.");
  EXPECT_EQ(messageBoxes.choicesOffered[0], "&Neu laden|&Trotzdem speichern|Speichern &unter …");
  EXPECT_EQ(document.text, "Liebe Oma, Zusatz");
  EXPECT_TRUE(files.files.empty());
}

TEST_F(ChangedByOthers, IsOverwrittenWhenTheUserWants) {
  messageBoxes.answers = {MessageAnswer::No};
  documents.SaveAs();
  EXPECT_EQ(files.files[folder.File("brief.txt")], "Liebe Oma");
}

TEST_F(ChangedByOthers, StaysWhenTheTextIsSavedUnderAnotherName) {
  messageBoxes.answers = {MessageAnswer::Cancel};
  fileDialogs.answer = folder.File("kopie.txt");
  documents.SaveAs();
  EXPECT_EQ(files.files[folder.File("kopie.txt")], "Liebe Oma");
  EXPECT_EQ(files.files.count(folder.File("brief.txt")), 0U);
}

TEST_F(ChangedByOthers, IsNoticedOnceWhenTheUserComesBack) {
  messageBoxes.answers = {MessageAnswer::No};
  documents.LookAtFile();
  documents.LookAtFile();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Die Datei „brief.txt“ wurde von einem anderen Programm geändert.\n\nMöchten Sie sie neu laden?");
  EXPECT_EQ(document.text, "Liebe Oma");
  Others("Liebe Oma, noch ein Zusatz");
  documents.LookAtFile();
  EXPECT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(document.text, "Liebe Oma, noch ein Zusatz");
  EXPECT_FALSE(documents.Modified());
}

TEST_F(ChangedByOthers, LeavesWhatWasTypedToTheRecovery) {
  document.text = "Liebe Oma, getippt";
  window.EditorChanged(18);
  documents.LookAtFile();
  EXPECT_NE(messageBoxes.boxes[0].text.find("Ihre Änderungen bleiben"), std::string::npos);
  EXPECT_EQ(document.text, "Liebe Oma, Zusatz");
  ASSERT_EQ(recovery.Leftovers().size(), 1U);
}

TEST_F(ChangedByOthers, IsNoConcernOnceTheFileHasGone) {
  std::filesystem::remove(folder.File("brief.txt"));
  documents.LookAtFile();
  documents.SaveAs();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(files.files[folder.File("brief.txt")], "Liebe Oma");
}

TEST_F(DocumentsTest, ShowsChangesInTheTitle) {
  documents.Changed();
  EXPECT_EQ(view.title, "• Lorelin");
  (void)SavedAs("a.txt");
  EXPECT_EQ(view.title, "a.txt – Lorelin");
  documents.Changed();
  EXPECT_EQ(view.title, "• a.txt – Lorelin");
}

TEST(WriteTextFile, AnswersWith53WhenThereWasNoOldFile) {
  const TemporaryFolder folder;
  FakeFileWriter files;
  FakeEventPump pump;
  EXPECT_EQ(WriteTextFile(folder.File("neu.txt"), "x", files, pump), 53);
  WriteFile(folder.File("alt.txt"), "");
  EXPECT_EQ(WriteTextFile(folder.File("alt.txt"), "x", files, pump), 0);
  EXPECT_EQ(pump.turns, 2);
  files.error = ErrorNumber::PermissionDenied;
  EXPECT_EQ(WriteTextFile(folder.File("alt.txt"), "x", files, pump), 70);
}

}  // namespace
}  // namespace lorelin
