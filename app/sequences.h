#pragma once

#include <vector>

#include "app/steps.h"

namespace lorelin {

struct WindowModules;

// What happens in which order when the main window is loaded and when it closes. `textFollows`: the text mode
// comes next, whatever the window would begin with.
[[nodiscard]] std::vector<Step> LoadSequence(WindowModules& modules, bool textFollows);
// `forced`: the system ends the session, nobody can be asked.
[[nodiscard]] std::vector<Step> CloseSequence(WindowModules& modules, bool forced);

}  // namespace lorelin
