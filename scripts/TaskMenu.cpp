#include "scripts/TaskMenu.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::string_view kGroup = "Tasks";
constexpr std::string_view kEnding = ".vts";
constexpr std::int32_t kScriptsEnd = 100;  // numbers from here on are not scripts

// The script's name; with its ending it reads like the file's.
std::string Caption(const std::string& file, bool withEnding) {
  const std::string ending = file.substr(file.size() - kEnding.size());
  std::string caption = file.substr(0, file.size() - kEnding.size());
  ReplaceAll(caption, kEnding, "");
  return withEnding ? caption + ending : caption;
}

}  // namespace

// The ending counts without case, as on Windows, where it comes to many names in capitals.
std::vector<std::string> TaskMenu::Scripts() const {
  std::vector<std::string> names =
      parts_.fileSearch.FilesMatching(JoinPath(parts_.programFolder, {"scripts", "*.*"}));
  std::erase_if(names, [](const std::string& name) { return !LowerAscii(name).ends_with(kEnding); });
  return names;
}

void TaskMenu::AddUserdefinedScripts() {
  Reported([this] {
    parts_.taskPane.AddGroup(kGroup);
    parts_.taskPane.AddItem(kGroup, kCreateScript, "Taskscript erstellen");
    parts_.taskPane.AddItem(kGroup, kSeparator, "----------");
    const bool withEnding = IsOn(setting::ShowVTS, parts_.settings.Get(setting::ShowVTS));
    std::int32_t number = 0;
    shown_ = Scripts();
    for (const std::string& file : shown_) {
      parts_.taskPane.AddItem(kGroup, ++number, Caption(file, withEnding));
    }
  });
}

void TaskMenu::FollowFolder() {
  if (Scripts() != shown_) AddUserdefinedScripts();
}

// A number comes from what was shown; the files of the others may have come or gone since. A script that is
// gone has a number beyond the last.
std::int32_t TaskMenu::PresentNumber(std::int32_t number) const {
  if (number < 1 || static_cast<std::size_t>(number) > shown_.size()) return number;
  const std::vector<std::string> present = Scripts();
  const auto found = std::find(present.begin(), present.end(), shown_[static_cast<std::size_t>(number) - 1]);
  return static_cast<std::int32_t>(found - present.begin()) + 1;
}

std::string TaskMenu::GetSelectedItem(std::int32_t number) const {
  const std::vector<std::string> names = Scripts();
  const std::size_t index = number > 1 ? static_cast<std::size_t>(number) - 1 : 0;
  return index < names.size() ? names[index] : "";
}

void TaskMenu::Clicked(std::int32_t number) {
  if (number == kCreateScript) {
    Reported(parts_.createScript);
  } else if (number < kScriptsEnd) {
    const std::int32_t present = PresentNumber(number);
    FollowFolder();
    Reported([&] { RunScript(present); });
  }
}

void TaskMenu::RunScript(std::int32_t number) {
  if (parts_.interpreter.ScriptRunning()) {
    parts_.messageBoxes.Show(
        "Es läuft bereits ein Taskscript. Bitte warten Sie bis dieses seine Aufgabe(n) erfüllt hat oder "
        "brechen "
        "Sie es mit ESC ab!",
        "Konflikt", MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  const std::string file = GetSelectedItem(number);
  parts_.interpreter.SetCurrentScriptFile(file);
  parts_.extensions.TaskScript(file);
  parts_.interpreter.ExecuteSkript(number);
}

void TaskMenu::Reported(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    parts_.reportError(error.Number(), error.what());
  } catch (const std::exception& error) {
    parts_.reportError(static_cast<std::int32_t>(ErrorNumber::InvalidCall), error.what());
  }
}

}  // namespace lorelin
