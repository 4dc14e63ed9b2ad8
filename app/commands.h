#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lorelin {

// The window as data: every entry of it names a command of the CommandTable.

struct MenuEntry {
  std::string_view name;      // "" for an unnamed separator
  std::string_view caption;   // "-" for a separator; "&" marks the access key
  std::string_view command;   // "" for a separator
  std::string_view shortcut;  // as in "Ctrl+O"; "" for none
  // The control that has the focus takes the key by itself: the entry only shows it.
  bool keyOfControl = false;
  std::string_view secondShortcut{};  // the same key on the number pad
  std::string_view submenu{};         // the caption of the menu within the menu that holds it; "" for none
  bool radio = false;                 // one of several of which one is on
};

struct Menu {
  std::string_view name;
  std::string_view caption;
  std::span<const MenuEntry> entries;
};

struct ToolbarButton {
  std::string_view key;  // "" for a separator
  std::string_view tooltip;
  std::string_view icon;  // drawing in packaging/icons, without ending
  std::string_view command;
};

struct TaskPaneEntry {
  std::int32_t number;
  std::string_view caption;
  std::string_view command;
};

[[nodiscard]] std::span<const Menu> MainMenus();
[[nodiscard]] std::span<const ToolbarButton> ToolbarButtons();
// The built-in items of the task pane's group "Lorelin".
[[nodiscard]] std::span<const TaskPaneEntry> SpeechTasks();

// What the editor's context menu offers.
[[nodiscard]] std::span<const MenuEntry> EditorMenu();

// Named actions. Filled once by the main window; names are unique and compared exactly.
class CommandTable {
 public:
  using Effect = std::function<void()>;
  using Condition = std::function<bool()>;

  void Add(std::string_view name, Effect effect);
  // The command is offered only while `possible` says so; that is asked often and has to be quick.
  void AddCondition(std::string_view name, Condition possible);
  // Empty for a command without a condition.
  [[nodiscard]] std::optional<bool> IsPossible(std::string_view name) const;
  [[nodiscard]] bool Has(std::string_view name) const;
  // Runs the command; false when there is none of that name. What the effect throws goes to the caller.
  bool Run(std::string_view name) const;

 private:
  std::map<std::string, Effect, std::less<>> effects_;
  std::map<std::string, Condition, std::less<>> conditions_;
};

}  // namespace lorelin
