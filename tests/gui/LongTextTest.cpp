#include <gtk/gtk.h>
#include <wx/progdlg.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"
#include "desktop/toolkit/WxEventPump.h"
#include "richtext/rtf.h"
#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

constexpr int kLines = 30000;
constexpr double kHalf = kLines * 8.0;  // pixels; a line is at least 16 high

class LongTextForm : public FormFixture {
 protected:
  LongTextForm() {
    window.Load();
    window.Textmode();
    EXPECT_TRUE(WaitUntil([&] { return Height() > 0; }));
  }
  GtkTextView* View() { return GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(form.Editor().GetHandle()))); }
  // How much of the text is laid out, in pixels.
  double Height() { return gtk_adjustment_get_upper(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(View()))); }
  // All of it; the toolkit lays out some lines at the end before it comes there.
  bool IsLaidOut() {
    GtkTextIter line;
    gtk_text_buffer_get_iter_at_line(gtk_text_view_get_buffer(View()), &line, kLines - 2000);
    gint top = 0;
    gint height = 0;
    gtk_text_view_get_line_yrange(View(), &line, &top, &height);
    return height > 0;
  }
  bool ShowsTheCaret() {
    GtkTextBuffer* const buffer = gtk_text_view_get_buffer(View());
    GtkTextIter caret;
    gtk_text_buffer_get_iter_at_mark(buffer, &caret, gtk_text_buffer_get_insert(buffer));
    GdkRectangle place;
    gtk_text_view_get_iter_location(View(), &caret, &place);
    GdkRectangle visible;
    gtk_text_view_get_visible_rect(View(), &visible);
    return place.y >= visible.y && place.y + place.height <= visible.y + visible.height;
  }
  // Most of it is not laid out yet.
  void BeginALongText() {
    form.Editor().SetText(LongText());
    for (int i = 0; i < 3; ++i) pump.WaitForEvents();
    ASSERT_LT(Height(), kHalf);
  }
  void ExpectTheCaretInTheEnd() {
    ASSERT_TRUE(WaitUntil([&] { return IsLaidOut(); }));
    EXPECT_TRUE(WaitUntil([&] { return ShowsTheCaret(); }));
  }
  static std::string LongText() {
    std::string text;
    for (int line = 0; line < kLines; ++line)
      text += "Zeile " + std::to_string(line) + " eines langen Textes.\n";
    return text;
  }
};

TEST_F(LongTextForm, LetsEverythingElseHappenWhileALongTextIsLaidOut) {
  form.Editor().SetText(LongText());
  for (int i = 0; i < 3; ++i) pump.WaitForEvents();
  EXPECT_LT(Height(), kHalf);
  EXPECT_TRUE(WaitUntil([&] { return Height() > kHalf; }));
}

TEST_F(LongTextForm, StaysAtWorkWhenTheWidthOrTheSizeIsAnotherOne) {
  form.Editor().SetText(LongText());
  ASSERT_TRUE(WaitUntil([&] { return Height() > kHalf; }));
  form.Editor().SetZoom(3);
  for (int i = 0; i < 3; ++i) pump.WaitForEvents();
  const double before = Height();
  EXPECT_TRUE(WaitUntil([&] { return Height() > before * 1.2; }));
}

// The toolkit's own way would have gone to the end, which needs a layout of everything.
TEST_F(LongTextForm, ShowsTheBeginningOfANewTextAtOnce) {
  form.Editor().SetText(LongText());
  EXPECT_EQ(form.Editor().SelectionStart(), 0U);
  for (int i = 0; i < 3; ++i) pump.WaitForEvents();
  EXPECT_LT(Height(), kHalf);
}

TEST_F(LongTextForm, ShowsThePlaceThatWasAskedForBeforeItWasLaidOut) {
  BeginALongText();
  g_signal_emit_by_name(View(), "move-cursor", GTK_MOVEMENT_BUFFER_ENDS, 1, FALSE);
  ExpectTheCaretInTheEnd();
}

TEST_F(LongTextForm, ShowsWhatWasFoundBeforeItWasLaidOut) {
  BeginALongText();
  ASSERT_TRUE(form.Editor().FindNext("Zeile 25000 ", true, false));
  ExpectTheCaretInTheEnd();
}

TEST_F(LongTextForm, ShowsAChapterBeforeItIsLaidOut) {
  BeginALongText();
  form.Editor().Marks().PlaceCaret(500000);
  ExpectTheCaretInTheEnd();
}

TEST_F(LongTextForm, TellsOfANewTextOnce) {
  int told = 0;
  form.Editor().SetText("alt");
  form.Editor().Bind(wxEVT_TEXT, [&](wxCommandEvent& event) {
    ++told;
    event.Skip();
  });
  form.Editor().SetText("neu");
  WriteFile(folder.File("a.txt"), "geladen");
  form.Editor().LoadFile(folder.File("a.txt"));
  form.Editor().SetText("");
  EXPECT_EQ(told, 3);
}

// As a screen reader hears it: what was put in and taken out, in characters.
TEST_F(LongTextForm, TellsAScreenReaderOfALoadedTextInOnePiece) {
  struct Heard {
    std::vector<std::pair<int, int>> inserted;
    int deleted = 0;
  } heard;
  form.Editor().SetText("alter Text");
  std::string text = "Grüße\n";
  while (text.size() < (5U << 20)) text += text;
  WriteFile(folder.File("a.txt"), text);
  AtkObject* const accessible = gtk_widget_get_accessible(GTK_WIDGET(View()));
  const gulong insertion = g_signal_connect(accessible, "text-changed::insert",
                                            G_CALLBACK(+[](AtkObject*, int begin, int length, gpointer data) {
                                              static_cast<Heard*>(data)->inserted.emplace_back(begin, length);
                                            }),
                                            &heard);
  const gulong deletion = g_signal_connect(accessible, "text-changed::delete",
                                           G_CALLBACK(+[](AtkObject*, int, int length, gpointer data) {
                                             static_cast<Heard*>(data)->deleted += length;
                                           }),
                                           &heard);
  form.Editor().LoadFile(folder.File("a.txt"));
  const auto length = static_cast<int>(CharacterCount(text));
  EXPECT_EQ(heard.inserted, (std::vector<std::pair<int, int>>{{10, length}}));
  EXPECT_EQ(heard.deleted, 10);
  form.Editor().WriteText("x");
  EXPECT_EQ(heard.inserted.back(), (std::pair<int, int>{0, 1}));
  g_signal_handler_disconnect(accessible, insertion);
  g_signal_handler_disconnect(accessible, deletion);
}

TEST_F(LongTextForm, ReplacesManyPlacesAndTellsOfThemOnce) {
  form.Editor().SetText(LongText());
  int told = 0;
  form.Editor().Bind(wxEVT_TEXT, [&](wxCommandEvent&) { ++told; });
  EXPECT_EQ(form.Editor().ReplaceAllPlaces("Zeile", "Reihe", true), kLines);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(form.Editor().Text().substr(0, 8), "Reihe 0 ");
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), LongText());
}

TEST_F(LongTextForm, GivesASnapshotOfTheMomentThatCanBeWrittenElsewhere) {
  form.Editor().SetText("früher");
  const auto snapshot = form.Editor().RichTextLater();
  form.Editor().SetText("später");
  std::string rtf;
  std::thread([&] { rtf = snapshot(); }).join();
  EXPECT_EQ(ReadRtf(rtf).text, "früher");
}

TEST_F(LongTextForm, KeepsTheTextOfAVeryLongFile) {
  std::string text;
  while (text.size() < 17 << 20) text += "Größe: ♥ 𝄞, Übung macht den Meister.\n";
  WriteFile(folder.File("lang.txt"), text);
  form.Editor().LoadFile(folder.File("lang.txt"));
  EXPECT_EQ(form.Editor().Text(), text);
}

// The toolkit lays out a whole paragraph at once, and beyond some length draws nonsense.
class LongParagraphForm : public LongTextForm {
 protected:
  GtkTextBuffer* Buffer() {
    return gtk_text_view_get_buffer(GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(form.Editor().GetHandle()))));
  }
  static std::string Paragraph() {
    std::string text;
    while (text.size() < 1'000'000) text += "Größe und Übung „macht“ den Meister. ";
    return text + "Ende.";
  }
  static std::string Fetched(GdkAtom which) {
    std::string text;
    bool answered = false;
    std::pair<std::string*, bool*> result(&text, &answered);
    gtk_clipboard_request_text(
        gtk_clipboard_get(which),
        [](GtkClipboard*, const gchar* found, gpointer data) {
          const auto& [target, done] = *static_cast<std::pair<std::string*, bool*>*>(data);
          if (found != nullptr) *target = found;
          *done = true;
        },
        &result);
    while (!answered) gtk_main_iteration_do(TRUE);
    return text;
  }
};

TEST_F(LongParagraphForm, ShowsAVeryLongParagraphInManyLines) {
  form.Editor().SetText(Paragraph());
  EXPECT_GT(gtk_text_buffer_get_line_count(Buffer()), 100);
  EXPECT_TRUE(WaitUntil([&] { return Height() > 20000; }));
}

TEST_F(LongParagraphForm, ChangesNothingInAVeryLongParagraph) {
  form.Editor().SetText(Paragraph());
  EXPECT_EQ(form.Editor().Text(), Paragraph());
  EXPECT_EQ(form.Editor().CharacterCount(), CharacterCount(Paragraph()));
  EXPECT_EQ(ReadRtf(form.Editor().RichText()).text, Paragraph());
  form.Editor().SelectAll();
  EXPECT_EQ(form.Editor().SelectedText(), Paragraph());
}

TEST_F(LongParagraphForm, CopiesAVeryLongParagraphAsItIs) {
  form.Editor().SetText(Paragraph());
  form.Editor().SelectAll();
  form.Editor().Copy();
  EXPECT_EQ(Fetched(GDK_SELECTION_CLIPBOARD), Paragraph());
  EXPECT_EQ(Fetched(GDK_SELECTION_PRIMARY), Paragraph());
  form.Editor().Cut();
  EXPECT_EQ(form.Editor().Text(), "");
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), Paragraph());
  EXPECT_GT(gtk_text_buffer_get_line_count(Buffer()), 100);
}

TEST_F(LongParagraphForm, FindsAndReplacesAcrossThePiecesOfAParagraph) {
  form.Editor().SetText(Paragraph());
  const std::string text = Paragraph();
  std::size_t expected = 0;
  for (std::size_t at = text.find(". Größe"); at != std::string::npos; at = text.find(". Größe", at + 1))
    ++expected;
  EXPECT_EQ(form.Editor().ReplaceAllPlaces(". Größe", "! Größe", true), static_cast<int>(expected));
  EXPECT_EQ(form.Editor().Text().find(". Größe"), std::string::npos);
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), Paragraph());
}

TEST_F(LongParagraphForm, KeepsTheFormatsOfParagraphsThatAreShownInPieces) {
  std::string rtf = R"({\rtf1\ansi\pard\qc Mitte\par\pard\ql )";
  for (int i = 0; i < 20000; ++i) rtf += "Wort ";
  rtf += R"(\par\pard\qr Rechts\par})";
  WriteFile(folder.File("lang.rtf"), rtf);
  form.Editor().LoadFile(folder.File("lang.rtf"));
  const RichText content = ReadRtf(form.Editor().RichText());
  EXPECT_EQ(content.text, ReadRtf(rtf).text);
  EXPECT_EQ(content.paragraphs, ReadRtf(rtf).paragraphs);
}

TEST_F(LongParagraphForm, ChangesNothingInAParagraphWithoutBlanks) {
  std::string text;
  while (text.size() < 200'000) text += "abcü";
  form.Editor().SetText(text);
  EXPECT_GT(gtk_text_buffer_get_line_count(Buffer()), 20);
  EXPECT_EQ(form.Editor().Text(), text);
  EXPECT_EQ(form.Editor().CharacterCount(), CharacterCount(text));
  EXPECT_EQ(ReadRtf(form.Editor().RichText()).text, text);
  form.Editor().SelectAll();
  form.Editor().Copy();
  EXPECT_EQ(Fetched(GDK_SELECTION_CLIPBOARD), text);
  form.Editor().Cut();
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), text);
}

TEST_F(LongParagraphForm, TakesForeignLineEndsForLineEnds) {
  form.Editor().SetText("");
  form.Editor().WriteText("eins\r\nzwei");
  EXPECT_EQ(form.Editor().Text(), "eins\nzwei");
}

// Many a script makes a text grow and grow.
class ReplacedLongText : public LongTextForm {
 protected:
  ReplacedLongText() { form.Editor().SetText("Der alte Text."); }
  ~ReplacedLongText() override {
    while (GdkEvent* const event = gdk_display_get_event(gdk_display_get_default())) gdk_event_free(event);
  }
  static void PressEscape() {
    GdkEvent* const event = gdk_event_new(GDK_KEY_PRESS);
    event->key.keyval = GDK_KEY_Escape;
    gdk_display_put_event(gdk_display_get_default(), event);
    gdk_event_free(event);
  }
  static std::string Text() {
    std::string text;
    while (text.size() < 5 << 20) text += "Größe: ♥ 𝄞, Übung macht den Meister.\n";
    return text;
  }
};

TEST_F(ReplacedLongText, CanBeTakenBackAndRepeated) {
  form.Editor().SetText(Text());
  EXPECT_EQ(form.Editor().Text(), Text());
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), "Der alte Text.");
  form.Editor().Redo();
  EXPECT_EQ(form.Editor().Text(), Text());
}

TEST_F(ReplacedLongText, HasPlainLineEndsAndWholeParagraphs) {
  std::string text = Text();
  text.replace(1 << 20, 1, "x\r\ny\rz");
  std::string paragraph;
  while (paragraph.size() < 3 << 20) paragraph += "Größe und Übung „macht“ den Meister. ";
  form.Editor().SetText(text + paragraph);
  EXPECT_EQ(form.Editor().Text(), WithPlainLineEnds(text + paragraph));
}

TEST_F(ReplacedLongText, StaysAsItWasWhenEscapeIsPressedMeanwhile) {
  PressEscape();
  EXPECT_THROW(form.Editor().SetText(Text()), RuntimeError);
  EXPECT_EQ(form.Editor().Text(), "Der alte Text.");
  EXPECT_TRUE(WxEventPump::EscapeIsWaiting());
  form.Editor().Undo();
  EXPECT_EQ(form.Editor().Text(), "");
}

// As a click on "Cancel" in the window that shows how far the loading is.
TEST_F(LongTextForm, KeepsTheOldTextWhenLoadingIsCancelled) {
  WriteFile(folder.File("lang.txt"), std::string(40 << 20, 'x').replace(100, 1, "\n"));
  form.Editor().SetText("Der alte Text.");
  wxTimer timer;
  timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) {
    for (wxWindow* const top : wxTopLevelWindows) {
      if (auto* const dialog = dynamic_cast<wxGenericProgressDialog*>(top); dialog != nullptr) {
        wxCommandEvent cancel(wxEVT_BUTTON, wxID_CANCEL);
        dialog->ProcessWindowEvent(cancel);
      }
    }
  });
  timer.Start(1);
  EXPECT_THROW(form.Editor().LoadFile(folder.File("lang.txt")), RuntimeError);
  EXPECT_EQ(form.Editor().Text(), "Der alte Text.");
}

}  // namespace
}  // namespace lorelin
