#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "extensions/modAddin.h"
#include "ports/FileSearch.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "ports/TaskPane.h"
#include "scripts/interpreter.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// The user's task scripts in the task pane: their list, and what a click on one does. The numbers of the
// scripts are their places in the directory search, which is repeated for every question. What was shown is
// only remembered to notice that the folder has changed since.
class TaskMenu {
 public:
  static constexpr std::int32_t kSeparator = 999;
  static constexpr std::int32_t kCreateScript = 1000;

  // What it works with; it owns none of it.
  struct Parts {
    TaskPane& taskPane;
    FileSearch& fileSearch;
    MessageBoxes& messageBoxes;
    SettingsStore& settings;
    ModAddin& extensions;
    Interpreter& interpreter;
    std::string programFolder;
    std::function<void()> createScript;  // opens the script editor
    std::function<void(std::int32_t number, const std::string& description)> reportError;
  };

  explicit TaskMenu(Parts parts) : parts_(std::move(parts)) {}

  // Builds the group "Tasks" anew.
  void AddUserdefinedScripts();
  // Does so when the scripts in the folder are others than those that are shown.
  void FollowFolder();
  // The file name (with ".vts", without folder) of the script with this number: the first for 1 and less, ""
  // beyond the last.
  [[nodiscard]] std::string GetSelectedItem(std::int32_t number) const;
  // A click on an item of the group "Tasks"; what cannot be run is reported.
  void Clicked(std::int32_t number);

 private:
  void RunScript(std::int32_t number);
  void Reported(const std::function<void()>& action);
  [[nodiscard]] std::vector<std::string> Scripts() const;
  [[nodiscard]] std::int32_t PresentNumber(std::int32_t number) const;

  Parts parts_;
  std::vector<std::string> shown_;  // the files behind the items of the pane
};

}  // namespace lorelin
