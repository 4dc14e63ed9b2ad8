#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/StartupState.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "ports/SingleInstance.h"
#include "settings/SettingsStore.h"

namespace lorelin {

enum class StartResult { Started, SecondInstance };

// What start-up works with; it owns none of it.
struct MainParts {
  SingleInstance& singleInstance;
  MessageBoxes& messageBoxes;
  SettingsStore& settings;
  StartupState& startup;
  Log& log;
  std::function<void()> registerFileType;  // associates the task scripts with the program
  std::function<void()> loadMainWindow;  // the first call creates the main window and runs its load sequence
  std::function<void()> textmode;        // loads the main window if need be
};

// The start of the program, before any window exists. `commandLine` is everything behind the program's own
// path as one string: an optional path in double quotes at the very beginning, then anything; "/t" (text
// mode) and "/s" (text mode and read aloud) count wherever they stand. After SecondInstance the process has
// to end at once. Errors skip the step and go to the log.
[[nodiscard]] StartResult Main(const MainParts& parts, std::string_view commandLine);

// The text from behind the first double quote, as long as the position of the last one (from 1) less two; ""
// when that is no length. The length does not depend on where the text begins: only a path at the very
// beginning is cut right.
[[nodiscard]] std::string PathInCommandLine(std::string_view commandLine);

}  // namespace lorelin
