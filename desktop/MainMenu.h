#pragma once

#include <wx/frame.h>
#include <wx/menu.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/commands.h"

namespace lorelin {

// The menu bar of a window and the editor's context menu, built from the tables in app/commands.h.
class MainMenu {
 public:
  struct Commands {
    std::function<void(std::string_view)> run;
    // Empty for a command that is always offered.
    std::function<std::optional<bool>(std::string_view)> possible;
  };

  // Gives the frame its menu bar. The frame has to outlive it.
  MainMenu(wxFrame& frame, Commands commands);

  void Check(std::string_view name, bool checked);
  // Greys every entry of the command, or offers it again.
  void Enable(std::string_view command, bool enabled);
  // The submenu of the latest documents, which its owner fills.
  [[nodiscard]] wxMenu& Recent() { return *recent_; }
  // A new context menu with the same entries as the menu bar's.
  [[nodiscard]] std::unique_ptr<wxMenu> ForEditor();
  // An entry anywhere in the window for the command, greyed like the menu's.
  void Bind(int id, std::string_view command);

 private:
  void AddEntry(wxMenu& menu, const MenuEntry& entry);
  void AppendTo(wxMenu& menu, const MenuEntry& entry, int id);

  wxFrame& frame_;
  Commands commands_;
  std::map<std::string, int, std::less<>> ids_;
  wxMenu* recent_ = nullptr;  // owned by the menu bar
};

}  // namespace lorelin
