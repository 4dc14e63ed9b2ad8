#pragma once

#include "ports/EventPump.h"
#include "ports/Log.h"

namespace lorelin {

// The window system's events through the active event loop. Needs a running wxApp.
class WxEventPump final : public EventPump {
 public:
  // What a posted task throws goes to the log, which must outlive the pump and what is posted.
  explicit WxEventPump(Log& log) : log_(log) {}
  void RunPendingEvents() override;
  // Draws what has to be drawn; input and posted tasks wait, timers may tick.
  static void Repaint();
  // Whether the user has pressed Esc and nobody has seen it yet; the key stays where it is.
  [[nodiscard]] static bool EscapeIsWaiting();
  void Post(std::function<void()> task) override;
  // Whether a routine waits for something at the moment.
  [[nodiscard]] bool IsWaiting() const { return depth_ > 0; }

 private:
  Log& log_;
  int depth_ = 0;
};

}  // namespace lorelin
