#include "scripts/TaskMenu.h"

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

}  // namespace

std::string TaskMenu::Pattern() const {
  return JoinPath(parts_.programFolder, {"scripts", "*.vts"});
}

void TaskMenu::AddUserdefinedScripts() {
  Reported([this] {
    parts_.taskPane.AddGroup(kGroup);
    parts_.taskPane.AddItem(kGroup, kCreateScript, "Taskscript erstellen");
    parts_.taskPane.AddItem(kGroup, kSeparator, "----------");
    const bool withEnding = IsOn(setting::ShowVTS, parts_.settings.Get(setting::ShowVTS));
    std::int32_t number = 0;
    for (std::string caption : parts_.fileSearch.FilesMatching(Pattern())) {
      ReplaceAll(caption, kEnding, "");
      if (withEnding) caption += kEnding;
      parts_.taskPane.AddItem(kGroup, ++number, caption);
    }
  });
}

std::string TaskMenu::GetSelectedItem(std::int32_t number) const {
  const std::vector<std::string> names = parts_.fileSearch.FilesMatching(Pattern());
  const std::size_t index = number > 1 ? static_cast<std::size_t>(number) - 1 : 0;
  return index < names.size() ? names[index] : "";
}

void TaskMenu::Clicked(std::int32_t number) {
  if (number == kCreateScript) {
    Reported(parts_.createScript);
  } else if (number < kScriptsEnd) {
    Reported([&] { RunScript(number); });
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
