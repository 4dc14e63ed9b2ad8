#include <wx/accel.h>
#include <wx/uiaction.h>

#include <memory>

#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

// Every key that a menu shows does what it says, wherever the focus is.
class MenuKeys : public FormFixture {
 protected:
  MenuKeys() {
    document.SetText("Hallo Welt");
    window.Load();
    for (const Menu& menu : MainMenus()) {
      for (const MenuEntry& entry : menu.entries) {
        if (!HasKey(entry)) continue;
        modules.commands.Add(entry.command, [this, &entry] { reached = entry.command; });
        modules.commands.AddCondition(entry.command, [] { return true; });
      }
    }
    EXPECT_TRUE(WaitUntil([this] { return form.IsActive(); }));
  }
  static bool HasKey(const MenuEntry& entry) { return !entry.shortcut.empty() && !entry.keyOfControl; }

  static void Press(const MenuEntry& entry) {
    const std::unique_ptr<wxAcceleratorEntry> key(wxAcceleratorEntry::Create("\t" + ToWx(entry.shortcut)));
    ASSERT_NE(key, nullptr) << entry.shortcut;
    const bool plus = key->GetKeyCode() == '+';  // stands above "=" on the virtual screen's keyboard
    wxUIActionSimulator simulator;
    simulator.Char(plus ? '=' : key->GetKeyCode(), key->GetFlags() | (plus ? wxMOD_SHIFT : 0));
  }
  void ExpectEveryKeyWith(wxWindow& focused, std::string_view own = "") {
    focused.SetFocus();
    for (int i = 0; i < 10; ++i) pump.WaitForEvents();
    for (const Menu& menu : MainMenus()) {
      for (const MenuEntry& entry : menu.entries) {
        if (HasKey(entry) && entry.command != own) ExpectKey(entry);
      }
    }
  }
  void ExpectKey(const MenuEntry& entry) {
    reached.clear();
    Press(entry);
    EXPECT_TRUE(WaitUntil([this] { return !reached.empty(); })) << entry.shortcut;
    EXPECT_EQ(reached, entry.command) << entry.shortcut;
  }

  std::string reached;
};

TEST_F(MenuKeys, WorkInTheEditor) {
  window.Textmode();
  ExpectEveryKeyWith(form.Editor());
  EXPECT_EQ(form.Editor().Text(), "Hallo Welt");
}

TEST_F(MenuKeys, WorkInAPage) {
  window.InteractiveMode();
  ExpectEveryKeyWith(form.Browser(), "SelectAll");  // which the page does by itself
}

TEST_F(MenuKeys, WorkInTheTaskPane) {
  window.Textmode();
  for (wxWindow* const child : form.Tasks().GetChildren()) {
    if (child->AcceptsFocus() && child->IsShown()) return ExpectEveryKeyWith(*child);
  }
  FAIL() << "nothing takes the focus";
}

}  // namespace
}  // namespace lorelin
