#include "desktop/frmXMGR.h"

#include <wx/app.h>
#include <wx/combobox.h>
#include <wx/dialog.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include "tests/gui/findControl.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class ExtensionManager : public testing::Test {
 protected:
  ExtensionManager() {
    (void)registrations.Add("Gut", "org.test.Gut");
    (void)registrations.Add("Schlecht", "org.test.Schlecht");
    (void)registrations.Add("Still", "org.test.Still");
    (void)registrations.SetActive("Still", false);
    for (const auto* const name : {"org.test.Gut", "org.test.Still", "org.test.Bei"}) {
      automation.objects[name] = [](const std::string&, std::optional<std::string>) { return ""; };
    }
    window = new FrmXMGR(
        {.registrations = registrations,
         .automation = automation,
         .messageBoxes = messageBoxes,
         .shipped = {{.name = "Beigabe", .objectName = "org.test.Bei", .install = [this] { ++installed; }}}});
    window->Show();
  }
  ~ExtensionManager() override { window->Destroy(); }
  wxDataViewListCtrl& List() { return FindControl<wxDataViewListCtrl>(*window, "lstExtensions"); }
  std::string Cell(unsigned row, unsigned column) { return FromWx(List().GetTextValue(row, column)); }
  void Toggle(unsigned row, bool on) {
    List().SetToggleValue(on, row, 0);
    wxDataViewEvent event(wxEVT_DATAVIEW_ITEM_VALUE_CHANGED, &List(), List().GetColumn(0),
                          List().RowToItem(static_cast<int>(row)));
    List().ProcessWindowEvent(event);
    wxTheApp->ProcessPendingEvents();
  }
  void Select(unsigned row) {
    List().SelectRow(row);
    wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &List(), List().RowToItem(static_cast<int>(row)));
    List().ProcessWindowEvent(event);
  }
  // Types into the dialog for a new extension each time it is shown, and closes it as told.
  void InAddDialog(const std::vector<std::function<int(wxWindow& name, wxWindow& object)>>& rounds) {
    std::size_t round = 0;
    const std::size_t before = messageBoxes.boxes.size();
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      auto* const dialog = dynamic_cast<wxDialog*>(wxWindow::FindWindowByName("frmAddExtension"));
      if (dialog == nullptr || !dialog->IsModal() || round == rounds.size()) return;
      // A dialog that has been ended may still be modal; the next round begins behind the refusal of this
      // one.
      if (messageBoxes.boxes.size() != before + round) return;
      const auto& act = rounds[round++];
      dialog->EndModal(
          act(FindControl<wxWindow>(*dialog, "txtName"), FindControl<wxWindow>(*dialog, "cmbObjectName")));
    });
    timer.Start(10);
    Press("Hinzufügen …");
    EXPECT_EQ(round, rounds.size());
  }
  void Press(const std::string& caption) { PressButton(*window->GetChildren().front(), caption); }

  FakeRegistry registry;
  FakeFileWriter files;
  ClsRegistryAccess access{registry, files};
  Registrations registrations{access};
  FakeAutomation automation;
  FakeMessageBoxes messageBoxes;
  FrmXMGR* window = nullptr;
  int installed = 0;
};

TEST_F(ExtensionManager, ListsTheRegistrationsAndWhatCameWithTheProgram) {
  ASSERT_EQ(List().GetItemCount(), 4);
  EXPECT_EQ(Cell(0, 1), "Gut");
  EXPECT_EQ(Cell(0, 2), "org.test.Gut");
  EXPECT_TRUE(List().GetToggleValue(0, 0));
  EXPECT_FALSE(List().GetToggleValue(2, 0));
  EXPECT_EQ(Cell(3, 1), "Beigabe");
  EXPECT_FALSE(List().GetToggleValue(3, 0));
  EXPECT_EQ(Cell(3, 3), "mitgeliefert, ausgeschaltet");
}

TEST_F(ExtensionManager, ShowsWhichObjectsCanBeCreated) {
  Press("Prüfen");
  EXPECT_EQ(Cell(0, 3), "bereit");
  EXPECT_TRUE(Cell(1, 3).starts_with("lässt sich nicht erstellen: ")) << Cell(1, 3);
}

TEST_F(ExtensionManager, StartsNothingThatIsOff) {
  window->Check();
  EXPECT_EQ(automation.created, (std::vector<std::string>{"org.test.Gut", "org.test.Schlecht"}));
  EXPECT_EQ(Cell(2, 3), "ausgeschaltet");
}

TEST_F(ExtensionManager, ChecksTheSelectedOneEvenWhenItIsOff) {
  Select(2);
  Press("Prüfen");
  EXPECT_EQ(automation.created, std::vector<std::string>{"org.test.Still"});
  EXPECT_EQ(Cell(2, 3), "ausgeschaltet; bereit");
}

TEST_F(ExtensionManager, ShowsWhatIsCalledBySomeHooksOnlyAsOn) {
  const auto set = [&](const std::string& active) {
    access.WriteString(std::string(kExtensionRoot) + "\\Gut", "Active", active);
    Toggle(2, false);
    return Cell(0, 3);
  };
  EXPECT_EQ(set("True"), "nur als Filter; noch nicht geprüft");
  EXPECT_TRUE(List().GetToggleValue(0, 0));
  EXPECT_EQ(set("untrue"), "nur beim Export; noch nicht geprüft");
  EXPECT_EQ(set(" true "), "nur als Filter und beim Export; noch nicht geprüft");
  EXPECT_EQ(set("1"), "ausgeschaltet");
  EXPECT_FALSE(List().GetToggleValue(0, 0));
}

TEST_F(ExtensionManager, SwitchesOneOff) {
  Toggle(0, false);
  EXPECT_EQ(registrations.List()[0].active, "false");
}

TEST_F(ExtensionManager, SwitchesOnWhatCameWithTheProgram) {
  Toggle(3, true);
  EXPECT_EQ(installed, 1);
  ASSERT_EQ(List().GetItemCount(), 4);
  EXPECT_EQ(registrations.List()[0].name, "Beigabe");
  EXPECT_EQ(registrations.List()[0].active, "true");
}

TEST_F(ExtensionManager, KeepsWhatWasTypedWhenItIsRefusedAndWhatWasFoundWhenOneIsAdded) {
  window->Check();
  InAddDialog({[](wxWindow& name, wxWindow& object) {
                 dynamic_cast<wxTextCtrl&>(name).SetValue("Gut");
                 dynamic_cast<wxComboBox&>(object).SetValue("org.test.Neu");
                 return wxID_OK;
               },
               [](wxWindow& name, wxWindow& object) {
                 EXPECT_EQ(dynamic_cast<wxComboBox&>(object).GetValue(), "org.test.Neu");
                 EXPECT_EQ(dynamic_cast<wxTextCtrl&>(name).GetValue(), "Gut");
                 dynamic_cast<wxTextCtrl&>(name).SetValue("Neu");
                 return wxID_OK;
               }});
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
  ASSERT_EQ(List().GetItemCount(), 5);
  EXPECT_EQ(Cell(0, 3), "bereit");
  EXPECT_EQ(Cell(1, 1), "Neu");
  EXPECT_EQ(Cell(1, 3), "noch nicht geprüft");
}

TEST_F(ExtensionManager, RemovesTheSelectedOneWhenTheUserAgrees) {
  Select(0);
  messageBoxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
  Press("Entfernen");
  EXPECT_EQ(registrations.List().size(), 3U);
  Press("Entfernen");
  EXPECT_EQ(registrations.List().size(), 2U);
  EXPECT_EQ(List().GetItemCount(), 3);
}

}  // namespace
}  // namespace lorelin
