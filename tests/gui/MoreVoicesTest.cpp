#include <wx/choice.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <filesystem>

#include "base/modFile.h"
#include "tests/gui/FormFixture.h"
#include "tests/gui/findControl.h"
#include "tests/support/FakeVoicePorts.h"
#include "voices/keptVoice.h"

namespace lorelin {
namespace {

constexpr const char* kName = "de_DE-probe-medium";
constexpr const char* kOffered = "Deutsch – probe (mittel)";

// Finds what lies in the folder.
class FolderVoices final : public NaturalVoices {
 public:
  explicit FolderVoices(std::string folder) : folder_(std::move(folder)) {}
  std::string Obstacle() const override { return obstacle; }
  bool Supported() const override { return supported; }
  std::string OwnFolder() const override { return folder_; }
  std::vector<InstalledVoice> Installed() const override {
    if (!FileExists(folder_ + "/" + kName + ".onnx")) return {};
    return {{kName, folder_, {kOffered}, "de-de", "medium", true}};
  }
  std::string Problem(std::string_view) const override { return {}; }
  std::string obstacle;
  bool supported = true;

 private:
  std::string folder_;
};

class MoreVoicesForm : public FormFixture {
 protected:
  MoreVoicesForm() {
    const std::string path = "de/probe/" + std::string(kName) + ".onnx";
    const auto columns = [](const std::string& bytes) {
      return "\t" + std::to_string(bytes.size()) + "\t" + FakeChecksums::Of(bytes);
    };
    WriteFile(folder.File("liste.tsv"),
              std::string(kName) + "\tde_DE\tprobe\tmedium\t1\t" + path + columns(model) + columns("{}") +
                  "\nfr_FR-autre-high\tfr_FR\tautre\thigh\t1\tfr/autre/fr_FR-autre-high.onnx" + columns("x") +
                  columns("{}") + "\n");
    settings.Save(setting::VoiceCatalogue, folder.File("liste.tsv"));
    settings.Save(setting::VoiceAddress, "https://stimmen.example/");
    downloads.files["https://stimmen.example/" + path] = model;
    downloads.files["https://stimmen.example/" + path + ".json"] = "{}";
    downloads.files["https://stimmen.example/de/probe/MODEL_CARD"] = "* License: CC0\n";
    voice.voices = {{"Deutsch"}, {"Deutsch (weiblich)", 1031, 2}, {"Englisch (USA)", 1033}};
    library = std::make_unique<VoiceLibrary>(
        VoiceLibrary::Parts{downloads, checksums, archives, natural, realFiles, settings, clock, log});
    voiceDialogs.SetParent(&form);
    voiceDialogs.OfferMore({.list = {*library, messageBoxes, pump},
                            .renew = [this] { Renew(); },
                            .chosen = [this] { ++chosen; }});
    window.Load();
  }

  // As the engine lists them: natural ones behind the others.
  void Renew() {
    ++renewed;
    voice.voices.resize(3);
    if (!natural.Installed().empty()) voice.voices.push_back({kOffered});
    KeepVoice(settings, voice);
  }
  void InVoiceDialog(const std::function<void(wxDialog&)>& act) {
    InDialog([&] { PressTask("Stimme wählen"); }, "frmVoice", act);
  }
  void InList(const std::function<void(wxDialog&)>& act) {
    InVoiceDialog([&](wxDialog& dialog) {
      InDialog([&] { PressButton(dialog, "Weitere Stimmen …"); }, "frmMoreVoices", act);
      PressButton(dialog, "Abbrechen");
    });
  }
  void Fetch(wxDialog& list, const char* answer) {
    InDialog([&] { PressButton(list, "Herunterladen"); }, "frmLicence",
             [&](wxDialog& licence) {
               EXPECT_EQ(FromWx(FindControl<wxTextCtrl>(licence, "txtCard").GetValue()), "* License: CC0\n");
               licence.EndModal(std::string(answer) == "Einverstanden" ? wxID_OK : wxID_CANCEL);
             });
  }
  static std::string Label(wxWindow& dialog, const char* name) {
    return FromWx(FindControl<wxStaticText>(dialog, name).GetLabel());
  }
  static std::string Cell(wxDialog& list, unsigned row, unsigned column) {
    return FromWx(FindControl<wxDataViewListCtrl>(list, "lstVoices").GetTextValue(row, column));
  }
  static void Close(wxDialog& list) { list.Close(); }
  std::string File(const std::string& ending) { return natural.OwnFolder() + "/" + kName + ending; }

  const std::string model = "das ist das ganze Modell der Stimme";
  FakeResumingDownloader downloads;
  FakeChecksums checksums;
  FakeVoiceArchives archives;
  FakeFileWriter realFiles;
  FolderVoices natural{folder.File("stimmen")};
  std::unique_ptr<VoiceLibrary> library;
  int renewed = 0;
  int chosen = 0;
};

TEST_F(MoreVoicesForm, ListsWhatThereIsToGet) {
  InList([&](wxDialog& list) {
    EXPECT_EQ(FindControl<wxDataViewListCtrl>(list, "lstVoices").GetItemCount(), 2);
    EXPECT_EQ(Cell(list, 0, 0), "Deutsch");
    EXPECT_EQ(Cell(list, 0, 1), "probe");
    EXPECT_EQ(Cell(list, 0, 2), "mittel");
    EXPECT_EQ(Cell(list, 0, 6), "herunterladbar");
    EXPECT_NE(Label(list, "lblHint").find("Empfohlen"), std::string::npos);
    FindControl<wxTextCtrl>(list, "txtFilter").SetValue("franz");
    EXPECT_EQ(Cell(list, 0, 1), "autre");
    EXPECT_NE(Label(list, "lblHint").find("länger"), std::string::npos);
    FindControl<wxTextCtrl>(list, "txtFilter").SetValue("klingonisch");
    EXPECT_EQ(Label(list, "lblHint"), "Keine Stimme passt dazu.");
    Close(list);
  });
  EXPECT_EQ(renewed, 0);
}

TEST_F(MoreVoicesForm, AFetchedVoiceIsInTheDialogAndProposedThere) {
  InVoiceDialog([&](wxDialog& dialog) {
    EXPECT_FALSE(FindControl<wxStaticText>(dialog, "lblProposal").IsShown());
    InDialog([&] { PressButton(dialog, "Weitere Stimmen …"); }, "frmMoreVoices",
             [&](wxDialog& list) {
               Fetch(list, "Einverstanden");
               EXPECT_EQ(Label(list, "lblStatus"), "Die Stimme „Deutsch – probe (mittel)“ ist installiert.");
               EXPECT_EQ(Cell(list, 0, 6), "installiert");
               EXPECT_EQ(Cell(list, 0, 5), "CC0");
               Close(list);
             });
    EXPECT_EQ(renewed, 1);
    auto& voices = FindControl<wxChoice>(dialog, "cmbVoice");
    EXPECT_EQ(voices.GetCount(), 4U);
    EXPECT_EQ(voices.GetSelection(), 1) << "nothing is switched by itself";
    EXPECT_EQ(Label(dialog, "lblProposal"), "Vorschlag: „Deutsch – probe (mittel)“ klingt natürlicher.");
    PressButton(dialog, "Vorschlag wählen");
    EXPECT_EQ(voices.GetSelection(), 3);
    PressButton(dialog, "OK");
  });
  EXPECT_EQ(settings.Get(setting::Voice), "3");
  EXPECT_EQ(chosen, 1);
  EXPECT_EQ(ReadFile(File(".onnx")), model);
}

TEST_F(MoreVoicesForm, GroupsAndListShowTheSameVoice) {
  std::filesystem::create_directories(natural.OwnFolder());
  WriteFile(File(".onnx"), "x");
  Renew();
  InVoiceDialog([&](wxDialog& dialog) {
    auto& voices = FindControl<wxChoice>(dialog, "cmbVoice");
    auto& groups = FindControl<wxDataViewTreeCtrl>(dialog, "lstGroups");
    const wxDataViewItem first = groups.GetNthChild(wxDataViewItem(nullptr), 0);
    EXPECT_EQ(FromWx(groups.GetItemText(first)), "Natürliche Stimmen: Deutsch");
    EXPECT_EQ(FromWx(groups.GetItemText(groups.GetSelection())), "Deutsch (weiblich)");
    const wxDataViewItem probe = groups.GetNthChild(first, 0);
    groups.Select(probe);
    wxDataViewEvent selected(wxEVT_DATAVIEW_SELECTION_CHANGED, &groups, probe);
    groups.ProcessWindowEvent(selected);
    EXPECT_EQ(voices.GetSelection(), 3);
    voices.SetSelection(0);
    wxCommandEvent chosenEvent(wxEVT_CHOICE, voices.GetId());
    voices.ProcessWindowEvent(chosenEvent);
    EXPECT_EQ(FromWx(groups.GetItemText(groups.GetSelection())), "Deutsch");
    PressButton(dialog, "Abbrechen");
  });
}

TEST_F(MoreVoicesForm, NothingIsFetchedWithoutConsent) {
  InList([&](wxDialog& list) {
    Fetch(list, "Abbrechen");
    EXPECT_NE(Label(list, "lblStatus").find("Abgebrochen"), std::string::npos);
    Close(list);
  });
  EXPECT_EQ(downloads.asked.size(), 1U) << "the card";
  EXPECT_FALSE(FileExists(File(".onnx.part")));
}

TEST_F(MoreVoicesForm, CanBeCancelledAndGoesOn) {
  InList([&](wxDialog& list) {
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      if (FileExists(File(".onnx.part"))) PressButton(list, "Abbrechen");
    });
    timer.Start(1);
    downloads.portion = 1;
    Fetch(list, "Einverstanden");
    timer.Stop();
    EXPECT_NE(Label(list, "lblStatus").find("Abgebrochen"), std::string::npos);
    EXPECT_EQ(Cell(list, 0, 6).substr(0, 10), "angefangen");
    EXPECT_FALSE(FileExists(File(".onnx")));
    downloads.portion = 100;
    Fetch(list, "Einverstanden");
    EXPECT_EQ(Cell(list, 0, 6), "installiert");
    Close(list);
  });
  EXPECT_GT(downloads.resumedAt.back(), 0U);
}

TEST_F(MoreVoicesForm, TellsWhatWentWrong) {
  downloads.files["https://stimmen.example/de/probe/" + std::string(kName) + ".onnx"] =
      "falsch ist das Modell dieser Stimme";
  InList([&](wxDialog& list) {
    Fetch(list, "Einverstanden");
    EXPECT_NE(Label(list, "lblStatus").find("Prüfsumme falsch"), std::string::npos);
    Close(list);
  });
  EXPECT_EQ(renewed, 0);
}

TEST_F(MoreVoicesForm, ARemovedVoiceIsNotReadWithAnyMore) {
  std::filesystem::create_directories(natural.OwnFolder());
  WriteFile(File(".onnx"), "x");
  Renew();
  StoreVoice(settings, 3, kOffered);
  InVoiceDialog([&](wxDialog& dialog) {
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cmbVoice").GetSelection(), 3);
    InDialog([&] { PressButton(dialog, "Weitere Stimmen …"); }, "frmMoreVoices",
             [&](wxDialog& list) {
               messageBoxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
               PressButton(list, "Entfernen");
               EXPECT_TRUE(FileExists(File(".onnx")));
               PressButton(list, "Entfernen");
               EXPECT_FALSE(FileExists(File(".onnx")));
               EXPECT_EQ(Label(list, "lblStatus"), "Die Stimme ist entfernt.");
               Close(list);
             });
    EXPECT_EQ(FindControl<wxChoice>(dialog, "cmbVoice").GetSelection(), 1);
    PressButton(dialog, "Abbrechen");
  });
  EXPECT_EQ(settings.Get(setting::Voice), "1");
}

TEST_F(MoreVoicesForm, SaysWhatIsLacking) {
  natural.obstacle = "Damit natürliche Stimmen sprechen, fehlt noch etwas.";
  natural.supported = false;
  InList([&](wxDialog& list) {
    EXPECT_EQ(Label(list, "lblHint").substr(0, 30), natural.obstacle.substr(0, 30));
    for (wxWindow* const child : list.GetChildren()) {
      if (FromWx(wxControl::RemoveMnemonics(child->GetLabel())) == "Herunterladen") {
        EXPECT_FALSE(child->IsEnabled());
      }
    }
    Close(list);
  });
}

}  // namespace
}  // namespace lorelin
