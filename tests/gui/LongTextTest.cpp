#include <gtk/gtk.h>
#include <wx/progdlg.h>

#include <thread>

#include "base/RuntimeError.h"
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
  // How much of the text is laid out, in pixels.
  double Height() {
    GtkWidget* const view = gtk_bin_get_child(GTK_BIN(form.Editor().GetHandle()));
    return gtk_adjustment_get_upper(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view)));
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
  for (int i = 0; i < 3; ++i) pump.RunPendingEvents();
  EXPECT_LT(Height(), kHalf);
  EXPECT_TRUE(WaitUntil([&] { return Height() > kHalf; }));
}

TEST_F(LongTextForm, StaysAtWorkWhenTheWidthOrTheSizeIsAnotherOne) {
  form.Editor().SetText(LongText());
  ASSERT_TRUE(WaitUntil([&] { return Height() > kHalf; }));
  form.Editor().SetZoom(3);
  for (int i = 0; i < 3; ++i) pump.RunPendingEvents();
  const double before = Height();
  EXPECT_TRUE(WaitUntil([&] { return Height() > before * 1.2; }));
}

// The toolkit's own way would have gone to the end, which needs a layout of everything.
TEST_F(LongTextForm, ShowsTheBeginningOfANewTextAtOnce) {
  form.Editor().SetText(LongText());
  EXPECT_EQ(form.Editor().SelectionStart(), 0U);
  for (int i = 0; i < 3; ++i) pump.RunPendingEvents();
  EXPECT_LT(Height(), kHalf);
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
