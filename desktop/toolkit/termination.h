#pragma once

#include <functional>

namespace lorelin {

// Calls the handler from the event loop, whatever window is open, when the system wants the process to end by
// a signal. Where there are none (Windows), the windows are asked to close instead.
void OnTermination(std::function<void()> handler);

}  // namespace lorelin
