#include "desktop/MainMenu.h"

#include <utility>

#include "desktop/toolkit/menuKeys.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

wxString Label(const MenuEntry& entry) {
  wxString label = ToWx(entry.caption);
  if (!entry.shortcut.empty() && !entry.keyOfControl) label += "\t" + ToWx(entry.shortcut);
  return label;
}

// The two modes show which of them is on, a switch whether it is.
wxItemKind KindOf(const MenuEntry& entry) {
  if (entry.name == "mnuSpellOut") return wxITEM_CHECK;
  if (entry.radio) return wxITEM_RADIO;
  return entry.name == "mnuTextmode" || entry.name == "mnuInternet" ? wxITEM_RADIO : wxITEM_NORMAL;
}

}  // namespace

MainMenu::MainMenu(wxFrame& frame, Commands commands) : frame_(frame), commands_(std::move(commands)) {
  auto* const bar = new wxMenuBar;
  for (const Menu& menu : MainMenus()) {
    auto* const entries = new wxMenu;
    wxMenu* within = entries;
    std::string_view caption;
    for (const MenuEntry& entry : menu.entries) {
      if (entry.submenu != caption) {
        caption = entry.submenu;
        within = caption.empty() ? entries : new wxMenu;
        if (within != entries) entries->AppendSubMenu(within, ToWx(caption));
      }
      AddEntry(*within, entry);
    }
    bar->Append(entries, ToWx(menu.caption));
  }
  frame_.SetMenuBar(bar);
}

void MainMenu::AddEntry(wxMenu& menu, const MenuEntry& entry) {
  if (entry.command.empty()) {
    menu.AppendSeparator();
  } else if (entry.name == "mnuRecent") {
    recent_ = new wxMenu;
    menu.AppendSubMenu(recent_, ToWx(entry.caption));
  } else {
    const int id = wxWindow::NewControlId();
    ids_.emplace(entry.name, id);
    AppendTo(menu, entry, id);
    frame_.Bind(
        wxEVT_MENU, [this, command = entry.command](wxCommandEvent&) { commands_.run(command); }, id);
    Bind(id, entry.command);
  }
}

void MainMenu::AppendTo(wxMenu& menu, const MenuEntry& entry, int id) {
  auto* const item = new wxMenuItem(&menu, id, Label(entry), wxEmptyString, KindOf(entry));
  if (!entry.secondShortcut.empty()) {
    const std::unique_ptr<wxAcceleratorEntry> second(
        wxAcceleratorEntry::Create("\t" + ToWx(entry.secondShortcut)));
    if (second != nullptr) item->AddExtraAccel(*second);
  }
  menu.Append(item);
  if (entry.keyOfControl) ShowKey(*item, entry.shortcut);
}

void MainMenu::Bind(int id, std::string_view command) {
  frame_.Bind(
      wxEVT_UPDATE_UI,
      [this, command](wxUpdateUIEvent& event) {
        if (const auto possible = commands_.possible(command)) event.Enable(*possible);
      },
      id);
}

void MainMenu::Check(std::string_view name, bool checked) {
  if (const auto found = ids_.find(name); found != ids_.end())
    frame_.GetMenuBar()->Check(found->second, checked);
}

void MainMenu::Enable(std::string_view command, bool enabled) {
  for (const Menu& menu : MainMenus()) {
    for (const MenuEntry& entry : menu.entries) {
      const auto found = ids_.find(entry.name);
      if (entry.command == command && found != ids_.end())
        frame_.GetMenuBar()->Enable(found->second, enabled);
    }
  }
}

std::unique_ptr<wxMenu> MainMenu::ForEditor() {
  auto menu = std::make_unique<wxMenu>();
  for (const MenuEntry& entry : EditorMenu()) {
    if (entry.command.empty()) {
      menu->AppendSeparator();
    } else {
      AppendTo(*menu, entry, ids_.find(entry.name)->second);
    }
  }
  return menu;
}

}  // namespace lorelin
