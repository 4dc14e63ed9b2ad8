#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "base/paths.h"
#include "desktop/frmSoundExports.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"
#include "tests/support/FakeSoundRendering.h"

namespace lorelin {
namespace {

// Sound files out of the real window.
class SoundExportForm : public FormFixture {
 protected:
  SoundExportForm() {
    window.Load();
    exportSound = [this] { exports.Ask(); };
    showExports = [this] { exports.Show(); };
    document.SetText("Eins ist da.\nZwei ist da.");
    info.chapters = {{"Eins", 1, 0}, {"Zwei", 1, 13}};
  }

  void Asking(const std::function<void(wxDialog&)>& act) {
    InDialog([this] { Choose("Datei", "Als Tondatei exportieren …"); }, "frmSoundExport", act);
  }
  wxDialog& Queue() {
    auto* const shown = dynamic_cast<wxDialog*>(wxWindow::FindWindowByName("frmExportQueue"));
    if (shown == nullptr) throw std::runtime_error("no queue");
    return *shown;
  }
  std::string State(unsigned int row) {
    return FromWx(FindControl<wxDataViewListCtrl>(Queue(), "lstFiles").GetTextValue(row, 1));
  }
  static void Select(wxDialog& dialog, const char* name, int entry) {
    auto& choice = FindControl<wxChoice>(dialog, name);
    choice.SetSelection(entry);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    event.SetEventObject(&choice);
    choice.ProcessWindowEvent(event);
  }
  void InFolder(wxDialog& dialog) {
    FindControl<wxTextCtrl>(dialog, "txtFolder").ChangeValue(ToWx(folder.File("musik")));
  }

  FakeSoundRendering rendering;
  DocumentInfo info;
  SoundExport::Parts parts{.document = document,
                           .preparation = {.settings = settings,
                                           .extensions = extensions,
                                           .pronunciations = spoken.pronunciations,
                                           .clock = clock},
                           .rendering = rendering,
                           .files = files,
                           .messageBoxes = messageBoxes,
                           .info = [this] { return info; },
                           .name = [] { return std::string("brief"); }};
  FrmSoundExports exports{form, parts, [this](const std::string& text) { form.SetMessage(text); }};
};

TEST_F(SoundExportForm, MakesOneFileAndSaysSo) {
  Asking([this](wxDialog& dialog) {
    EXPECT_EQ(FromWx(FindControl<wxTextCtrl>(dialog, "txtTitle").GetValue()), "brief");
    InFolder(dialog);
    FindControl<wxTextCtrl>(dialog, "txtAuthor").ChangeValue("Jemand");
    PressButton(dialog, "Exportieren");
  });
  ASSERT_TRUE(WaitUntil([this] { return State(0) == "fertig"; }));
  const auto made = rendering.Files();
  ASSERT_EQ(made.size(), 1U);
  EXPECT_EQ(made.begin()->first, folder.File("musik/brief.mp3"));
  EXPECT_EQ(made.begin()->second.tags.author, "Jemand");
  EXPECT_EQ(made.begin()->second.tags.chapters.size(), 2U);
  EXPECT_TRUE(WaitUntil([this] { return form.Message() == "1 von 1 Datei fertig."; })) << form.Message();
  EXPECT_EQ(FromWx(FindControl<wxStaticText>(Queue(), "lblState").GetLabel()), "1 von 1 Datei fertig.");
}

TEST_F(SoundExportForm, MakesAFileForEachChapterWithSubtitles) {
  Asking([this](wxDialog& dialog) {
    auto& chapters = FindControl<wxCheckBox>(dialog, "chkChapters");
    EXPECT_TRUE(chapters.IsEnabled());
    EXPECT_EQ(FromWx(wxControl::RemoveMnemonics(chapters.GetLabel())),
              "Eine Datei für jedes Kapitel (2 Dateien)");
    chapters.SetValue(true);
    Select(dialog, "cboFormat", 1);
    Select(dialog, "cboSubtitles", 3);
    InFolder(dialog);
    PressButton(dialog, "Exportieren");
  });
  ASSERT_TRUE(WaitUntil([this] { return State(0) == "fertig" && State(1) == "fertig"; }));
  EXPECT_EQ(rendering.Files().count(folder.File("musik/02 Zwei.opus")), 1U);
  const auto wanted = NativePath(folder.File("musik/02 Zwei.vtt"));  // either separator will do
  EXPECT_TRUE(
      std::ranges::any_of(files.files, [&](const auto& file) { return NativePath(file.first) == wanted; }));
}

TEST_F(SoundExportForm, OffersNoFilesForChaptersWhereThereAreNone) {
  info.chapters.clear();
  Asking([](wxDialog& dialog) {
    EXPECT_FALSE(FindControl<wxCheckBox>(dialog, "chkChapters").IsEnabled());
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_TRUE(rendering.Files().empty());
}

TEST_F(SoundExportForm, TellsTheSizeOfEveryQuality) {
  Asking([](wxDialog& dialog) {
    auto& quality = FindControl<wxChoice>(dialog, "cboQuality");
    EXPECT_EQ(quality.GetCount(), 3U);
    EXPECT_EQ(FromWx(quality.GetStringSelection()).substr(0, 14), "mittel, etwa 0");
    quality.SetSelection(2);
    Select(dialog, "cboFormat", 1);
    EXPECT_EQ(quality.GetSelection(), 2);
    Select(dialog, "cboFormat", 3);
    EXPECT_FALSE(quality.IsEnabled());
    PressButton(dialog, "Abbrechen");
  });
}

TEST_F(SoundExportForm, CancelsWhatIsSelectedAndWhatIsLeft) {
  rendering.holds = true;
  Asking([this](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkChapters").SetValue(true);
    InFolder(dialog);
    PressButton(dialog, "Exportieren");
  });
  FindControl<wxDataViewListCtrl>(Queue(), "lstFiles").SelectRow(1);
  PressButton(Queue(), "Auswahl abbrechen");
  ASSERT_TRUE(WaitUntil([this] { return State(1) == "abgebrochen"; }));
  EXPECT_NE(State(0), "abgebrochen");
  PressButton(Queue(), "Alle abbrechen");
  ASSERT_TRUE(WaitUntil([this] { return State(0) == "abgebrochen"; }));
  EXPECT_TRUE(WaitUntil([this] { return form.Message() == "0 von 2 Dateien fertig."; })) << form.Message();
}

TEST_F(SoundExportForm, GoesOnWhenItsWindowIsClosed) {
  rendering.holds = true;
  Asking([this](wxDialog& dialog) {
    InFolder(dialog);
    PressButton(dialog, "Exportieren");
  });
  ASSERT_TRUE(WaitUntil([this] { return Queue().IsShown(); }));
  PressButton(Queue(), "Schließen");
  EXPECT_FALSE(Queue().IsShown());
  Choose("Datei", "Tondateien in Arbeit …");
  EXPECT_TRUE(Queue().IsShown());
  EXPECT_EQ(State(0), "0 %");
}

TEST_F(SoundExportForm, SaysWhyThereIsNothingToExport) {
  document.SetText("");
  Choose("Datei", "Als Tondatei exportieren …");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Das Dokument ist leer: Es gibt nichts zu exportieren.");
}

TEST_F(SoundExportForm, RemembersWhatWasChosen) {
  Asking([this](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkChapters").SetValue(true);
    Select(dialog, "cboFormat", 1);
    Select(dialog, "cboQuality", 2);
    Select(dialog, "cboSubtitles", 3);
    InFolder(dialog);
    PressButton(dialog, "Exportieren");
  });
  ASSERT_TRUE(WaitUntil([this] { return State(0) == "fertig"; }));
  FrmSoundExports later(form, parts, [](const std::string&) {});
  exportSound = [&later] { later.Ask(); };
  Asking([this](wxDialog& dialog) {
    EXPECT_TRUE(FindControl<wxCheckBox>(dialog, "chkChapters").GetValue());
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cboFormat").GetSelection(), 1);
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cboQuality").GetSelection(), 2);
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cboSubtitles").GetSelection(), 3);
    EXPECT_EQ(FromWx(FindControl<wxTextCtrl>(dialog, "txtFolder").GetValue()), folder.File("musik"));
    PressButton(dialog, "Abbrechen");
  });
}

TEST_F(SoundExportForm, MakesABookWithItsSound) {
  rendering.writesFiles = true;
  Asking([this](wxDialog& dialog) {
    FindControl<wxCheckBox>(dialog, "chkChapters").SetValue(true);
    Select(dialog, "cboFormat", 5);
    EXPECT_EQ(FromWx(FindControl<wxChoice>(dialog, "cboFormat").GetStringSelection()),
              "EPUB mit Ton, zum Mitlesen");
    EXPECT_FALSE(FindControl<wxCheckBox>(dialog, "chkChapters").IsEnabled());
    EXPECT_FALSE(FindControl<wxChoice>(dialog, "cboSubtitles").IsEnabled());
    InFolder(dialog);
    PressButton(dialog, "Exportieren");
  });
  ASSERT_TRUE(WaitUntil([this] { return State(0) == "fertig"; })) << State(0);
  const auto wanted = NativePath(folder.File("musik/brief.epub"));  // either separator will do
  EXPECT_TRUE(
      std::ranges::any_of(files.files, [&](const auto& file) { return NativePath(file.first) == wanted; }));
}

// Told of every row that a list gets.
class RowWatcher final : public wxDataViewModelNotifier {
 public:
  explicit RowWatcher(std::function<void()> added) : added_(std::move(added)) {}
  bool ItemAdded(const wxDataViewItem&, const wxDataViewItem&) override {
    added_();
    return true;
  }
  bool ItemDeleted(const wxDataViewItem&, const wxDataViewItem&) override { return true; }
  bool ItemChanged(const wxDataViewItem&) override { return true; }
  bool ValueChanged(const wxDataViewItem&, unsigned int) override { return true; }
  bool Cleared() override { return true; }
  void Resort() override {}

 private:
  std::function<void()> added_;
};

TEST_F(SoundExportForm, ShowsTheEndThatComesWhileItLooks) {
  rendering.holds = true;
  ExportQueue queue(rendering, files, clock, 1);
  std::string told;
  FrmExportQueue shown(&form, queue, [&](const std::string& text) { told = text; });
  auto& list = FindControl<wxDataViewListCtrl>(shown, "lstFiles");
  list.GetModel()->AddNotifier(new RowWatcher([&] {
    queue.CancelAll();
    while (queue.Busy()) std::this_thread::yield();
  }));
  const auto text = std::make_shared<ExportText>(
      ExportText{.written = "Eins.", .spoken = TracedText("Eins.", 0), .info = {}});
  queue.Add(std::vector<PlannedFile>{PlanOneFile(text, {}, "eins.mp3")}, std::make_shared<ExportVoice>());
  shown.Open(true);
  EXPECT_TRUE(WaitUntil([&] { return FromWx(list.GetTextValue(0, 1)) == "abgebrochen"; }));
  EXPECT_EQ(told, "0 von 1 Datei fertig.");
}

}  // namespace
}  // namespace lorelin
