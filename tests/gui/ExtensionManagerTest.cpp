#include "desktop/frmXMGR.h"

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
    automation.objects["org.test.Gut"] = [](const std::string&, std::optional<std::string>) { return ""; };
    window = new FrmXMGR({.registrations = registrations,
                          .automation = automation,
                          .messageBoxes = messageBoxes,
                          .shipped = {}});
    window->Show();
  }
  ~ExtensionManager() override { window->Destroy(); }
  wxDataViewListCtrl& List() { return FindControl<wxDataViewListCtrl>(*window, "lstExtensions"); }
  std::string Cell(unsigned row, unsigned column) { return FromWx(List().GetTextValue(row, column)); }
  void Press(const std::string& caption) { PressButton(*window->GetChildren().front(), caption); }

  FakeRegistry registry;
  FakeFileWriter files;
  ClsRegistryAccess access{registry, files};
  Registrations registrations{access};
  FakeAutomation automation;
  FakeMessageBoxes messageBoxes;
  FrmXMGR* window = nullptr;
};

TEST_F(ExtensionManager, ListsTheRegistrations) {
  ASSERT_EQ(List().GetItemCount(), 2);
  EXPECT_EQ(Cell(0, 1), "Gut");
  EXPECT_EQ(Cell(0, 2), "org.test.Gut");
  EXPECT_TRUE(List().GetToggleValue(0, 0));
}

TEST_F(ExtensionManager, ShowsWhichObjectsCanBeCreated) {
  Press("Prüfen");
  EXPECT_EQ(Cell(0, 3), "bereit");
  EXPECT_TRUE(Cell(1, 3).starts_with("lässt sich nicht erstellen: ")) << Cell(1, 3);
}

TEST_F(ExtensionManager, SwitchesOneOff) {
  List().SetToggleValue(false, 0, 0);
  wxDataViewEvent event(wxEVT_DATAVIEW_ITEM_VALUE_CHANGED, &List(), List().GetColumn(0), List().RowToItem(0));
  List().ProcessWindowEvent(event);
  EXPECT_EQ(registrations.List()[0].active, "false");
}

TEST_F(ExtensionManager, RemovesTheSelectedOneWhenTheUserAgrees) {
  List().SelectRow(0);
  wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &List(), List().RowToItem(0));
  List().ProcessWindowEvent(event);
  messageBoxes.answers = {MessageAnswer::No, MessageAnswer::Yes};
  Press("Entfernen");
  EXPECT_EQ(registrations.List().size(), 2U);
  Press("Entfernen");
  EXPECT_EQ(registrations.List().size(), 1U);
  EXPECT_EQ(List().GetItemCount(), 1);
}

}  // namespace
}  // namespace lorelin
