#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/stattext.h>
#include <wx/uiaction.h>

#include "base/modFile.h"
#include "richtext/rtf.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"

namespace lorelin {
namespace {

class DocumentEditorForm : public FormFixture {
 protected:
  DocumentEditorForm() {
    Set("Erster Absatz.\nZweiter.");
    window.Load();
    window.Textmode();
  }
  WxDocumentEditor& Editor() { return form.Editor(); }
  // How large the text is shown, in units of the system.
  int TextSize() {
#ifdef __WXMSW__
    const long second = static_cast<long>(Text().find("Zweiter"));
    return Editor().PositionToCoords(second).y - Editor().PositionToCoords(0).y;
#else
    return Editor().GetFont().GetPointSize();
#endif
  }
  std::string Text() {
    return form.Editor().Text();
  }
  void Set(const std::string& text) {
    form.Editor().SetText(text);
  }
  std::string Rtf(const std::string& body) {
    WriteFile(folder.File("x.rtf"),
              "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Arial;}{\\f1 Courier "
              "New;}}{\\colortbl;\\red200\\green0\\blue0;}" +
                  body + "}");
    return folder.File("x.rtf");
  }
};

TEST_F(DocumentEditorForm, GivesBackTheFormatsThatItShows) {
  const std::string path = Rtf(
      "\\b fett \\b0\\i schr\\'e4g \\i0\\ul unten \\ulnone\\strike durch \\strike0\\cf1 rot \\cf0\\f1\\fs36 "
      "gro\\'df \\plain 10 \\u8364? \\u9829?\\par\\pard\\qc Mitte\\par\\pard\\li720\\fi-360 Einzug\\par "
      "x{\\super "
      "2}{\\sub 3}");
  const RichText before = ReadRtf(ReadFileBytes(path));
  Editor().LoadFile(path);
  EXPECT_EQ(Text(), before.text);
  const RichText after = ReadRtf(Editor().RichText());
  EXPECT_EQ(after.text, before.text);
#ifdef __WXMSW__
  // RichEdit gives every run a font and a size of its own; what was chosen has to be there still.
  const auto formatOf = [](const RichText& text, std::string_view word) {
    std::size_t place = text.text.find(word);
    for (const TextRun& run : text.runs) {
      if (place < run.bytes) return run.format;
      place -= run.bytes;
    }
    return CharacterFormat{};
  };
  EXPECT_TRUE(formatOf(after, "fett").bold);
  EXPECT_TRUE(formatOf(after, "schräg").italic);
  EXPECT_TRUE(formatOf(after, "unten").underline);
  EXPECT_TRUE(formatOf(after, "durch").strikeThrough);
  EXPECT_EQ(formatOf(after, "rot").foreground, 0xC80000);
  EXPECT_EQ(formatOf(after, "groß").halfPoints, 36);
  EXPECT_EQ(after.fonts.at(formatOf(after, "groß").font), "Courier New");
  EXPECT_FALSE(formatOf(after, "10").bold);
#else
  EXPECT_EQ(after.runs, before.runs);
  EXPECT_EQ(after.paragraphs, before.paragraphs);
  EXPECT_EQ(after.fonts, before.fonts);
#endif
}

TEST_F(DocumentEditorForm, GivesTheTextAsRtfThatEveryProgramReads) {
  Set("Grüße – 10 € ♥");
  const std::string rtf = Editor().RichText();
  EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi"));
  EXPECT_EQ(ReadRtf(rtf).text, "Grüße – 10 € ♥");
}

TEST_F(DocumentEditorForm, GivesTypedTextTheFormatAround) {
  Editor().LoadFile(Rtf("\\b fett\\b0  normal"));
  Editor().SetInsertionPoint(2);
  Editor().WriteText("XY");
  const RichText after = ReadRtf(Editor().RichText());
  EXPECT_EQ(after.text, "feXYtt normal");
  ASSERT_FALSE(after.runs.empty());
  EXPECT_TRUE(after.runs.front().format.bold);
  EXPECT_EQ(after.runs.front().bytes, 6U);
}

TEST_F(DocumentEditorForm, CountsCharactersOutsideTheBasicPlaneOnce) {
  Set("a😀b♥");
  EXPECT_EQ(Panel(0), "4 Zeichen.");
}

TEST_F(DocumentEditorForm, KeepsGreetingsInEveryFormat) {
  const std::string greeting = "Grüße – 10 € ♥";
  WriteFile(folder.File("utf8.txt"), greeting);
  Editor().LoadFile(folder.File("utf8.txt"));
  EXPECT_EQ(Text(), greeting);
  WriteFile(folder.File("g.rtf"), Editor().RichText());
  Set("");
  Editor().LoadFile(folder.File("g.rtf"));
  EXPECT_EQ(Text(), greeting);
}

TEST_F(DocumentEditorForm, TakesBackAndRepeatsFromTheMenu) {
  Editor().SetInsertionPointEnd();
  Editor().WriteText(" Dritter");
  Choose("Bearbeiten", "Rückgängig");
  EXPECT_EQ(Text(), "Erster Absatz.\nZweiter.");
  Choose("Bearbeiten", "Wiederherstellen");
  EXPECT_EQ(Text(), "Erster Absatz.\nZweiter. Dritter");
}

TEST_F(DocumentEditorForm, TakesBackWhatTheProgramReplaced) {
  document.SetText("ganz anders");
  Choose("Bearbeiten", "Rückgängig");
  EXPECT_EQ(Text(), "Erster Absatz.\nZweiter.");
}

TEST_F(DocumentEditorForm, TakesNothingBackBeyondALoadedFile) {
  Editor().LoadFile(Rtf("geladen"));
  Choose("Bearbeiten", "Rückgängig");
  EXPECT_EQ(Text(), "geladen");
}

TEST_F(DocumentEditorForm, MarksEverything) {
  Choose("Bearbeiten", "Alles markieren");
  EXPECT_EQ(Editor().SelectedText(), Text());
}

TEST_F(DocumentEditorForm, ZoomsAndComesBack) {
  const int usual = TextSize();
  Choose("Ansicht", "Schrift größer");
  Choose("Ansicht", "Schrift größer");
  EXPECT_GT(TextSize(), usual);
  Choose("Ansicht", "Schrift normal");
  EXPECT_EQ(TextSize(), usual);
  Choose("Ansicht", "Schrift kleiner");
  EXPECT_LT(TextSize(), usual);
}

TEST_F(DocumentEditorForm, ZoomIsNoChange) {
  documents.Load(Rtf("\\b fett\\b0  normal"));
  const std::string before = Editor().RichText();
  files.files.clear();
  Choose("Ansicht", "Schrift größer");
  recovery.SnapshotDue();
  recovery.FinishWriting();
  EXPECT_FALSE(documents.Modified());
  EXPECT_EQ(FromWx(form.GetTitle()), "x.rtf – Lorelin");
  EXPECT_TRUE(files.files.empty());
  EXPECT_EQ(ReadRtf(Editor().RichText()).runs, ReadRtf(before).runs);
  Choose("Bearbeiten", "Rückgängig");
  EXPECT_EQ(Text(), "fett normal");
}

TEST_F(DocumentEditorForm, MarksAChangedDocumentInTheTitle) {
  WriteFile(folder.File("brief.txt"), "Lieber Leser");
  fileDialogs.answer = folder.File("brief.txt");
  Choose("Datei", "Öffnen");
  EXPECT_EQ(FromWx(form.GetTitle()), "brief.txt – Lorelin");
  Editor().WriteText("x");
  EXPECT_EQ(FromWx(form.GetTitle()), "• brief.txt – Lorelin");
  Choose("Datei", "Speichern unter");
  EXPECT_EQ(FromWx(form.GetTitle()), "brief.txt – Lorelin");
}

TEST_F(DocumentEditorForm, OffersRecentFilesInTheMenu) {
  WriteFile(folder.File("brief & co.txt"), "Lieber Leser");
  fileDialogs.answer = folder.File("brief & co.txt");
  Choose("Datei", "Öffnen");
  const int id = form.GetMenuBar()->FindMenuItem("Datei", "Zuletzt verwendet");
  const wxMenu& recentMenu = *form.GetMenuBar()->FindItem(id)->GetSubMenu();
  ASSERT_EQ(recentMenu.GetMenuItemCount(), 1U);
  EXPECT_EQ(FromWx(recentMenu.FindItemByPosition(0)->GetItemLabelText()),
            "1 brief & co.txt – " + folder.Path());
}

TEST_F(DocumentEditorForm, WritesASnapshotBySixSeconds) {
  Editor().WriteText("getippt ");
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(WaitUntil([this] {
    recovery.FinishWriting();
    return !files.files.empty();
  }));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(7));
  EXPECT_EQ(ReadRtf(files.files.begin()->second).text, Text());
}

class SearchForm : public DocumentEditorForm {
 protected:
  wxWindow& Dialog() { return *wxWindow::FindWindowByName("frmFind", &form); }
  void Search(const std::string& text) {
    Choose("Bearbeiten", "Suchen …");
    FindControl<wxTextCtrl>(Dialog(), "txtWanted").SetValue(ToWx(text));
  }
  std::string Result() { return FromWx(FindControl<wxStaticText>(Dialog(), "lblResult").GetLabel()); }
};

TEST_F(SearchForm, GoesFromPlaceToPlaceAndRoundTheEnd) {
  Set("Ära, ära und ÄRA");
  Editor().SetInsertionPoint(0);
  Search("ära");
  for (const long place : {0L, 5L, 13L, 0L}) {
    PressButton(Dialog(), "Weitersuchen");
    EXPECT_EQ(Editor().SelectionStart(), static_cast<std::size_t>(place));
  }
  PressButton(Dialog(), "Rückwärts");
  EXPECT_EQ(Editor().SelectionStart(), 13U);
}

TEST_F(SearchForm, HeedsTheCaseWhenItShould) {
  Set("Ära, ära und ÄRA");
  Editor().SetInsertionPoint(0);
  Search("ära");
  static_cast<wxCheckBox*>(
      wxWindow::FindWindowByLabel(ToWx("&Groß- und Kleinschreibung beachten"), &Dialog()))
      ->SetValue(true);
  PressButton(Dialog(), "Weitersuchen");
  EXPECT_EQ(Editor().SelectionStart(), 5U);
}

TEST_F(SearchForm, SaysThatThereIsNothing) {
  Search("Giraffe");
  PressButton(Dialog(), "Weitersuchen");
  EXPECT_EQ(Result(), "Nicht gefunden.");
  Search("");
  PressButton(Dialog(), "Weitersuchen");
  EXPECT_EQ(Result(), "Nicht gefunden.");
}

TEST_F(SearchForm, TakesTheSelectedWord) {
  Editor().SetSelection(0, 6);
  Choose("Bearbeiten", "Suchen …");
  EXPECT_EQ(FromWx(FindControl<wxTextCtrl>(Dialog(), "txtWanted").GetValue()), "Erster");
}

TEST_F(SearchForm, ReplacesOneAfterTheOther) {
  Set("a b a b a");
  Editor().SetInsertionPoint(0);
  Choose("Bearbeiten", "Ersetzen …");
  FindControl<wxTextCtrl>(Dialog(), "txtWanted").SetValue("a");
  FindControl<wxTextCtrl>(Dialog(), "txtReplacement").SetValue("xx");
  PressButton(Dialog(), "Ersetzen");  // goes to the first
  PressButton(Dialog(), "Ersetzen");
  EXPECT_EQ(Text(), "xx b a b a");
}

TEST_F(SearchForm, ReplacesAllAndTakesAllBackAtOnce) {
  Set("a b a b a");
  Choose("Bearbeiten", "Ersetzen …");
  FindControl<wxTextCtrl>(Dialog(), "txtWanted").SetValue("a");
  FindControl<wxTextCtrl>(Dialog(), "txtReplacement").SetValue("aa");
  PressButton(Dialog(), "Alle ersetzen");
  EXPECT_EQ(Text(), "aa b aa b aa");
  EXPECT_EQ(Result(), "3 Stellen ersetzt.");
  Choose("Bearbeiten", "Rückgängig");
  EXPECT_EQ(Text(), "a b a b a");
}

TEST_F(SearchForm, SearchesAgainOrAsks) {
  Choose("Bearbeiten", "Weitersuchen");
  EXPECT_TRUE(Dialog().IsShown());
  FindControl<wxTextCtrl>(Dialog(), "txtWanted").SetValue("Zweiter");
  Dialog().Hide();
  Choose("Bearbeiten", "Weitersuchen");
  EXPECT_FALSE(Dialog().IsShown());
  EXPECT_EQ(Editor().SelectedText(), "Zweiter");
}

}  // namespace
}  // namespace lorelin
