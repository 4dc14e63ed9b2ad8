#pragma once

#include <memory>

#include "ports/EventPump.h"
#include "ports/Log.h"

namespace lorelin {

// The window system's events through the active event loop. Needs a running wxApp.
class WxEventPump final : public EventPump {
 public:
  // What a posted task throws goes to the log, which must outlive the pump and what is posted.
  explicit WxEventPump(Log& log);
  ~WxEventPump() override;
  void RunPendingEvents() override { Run(0); }
  void WaitForEvents() override;
  // Draws what has to be drawn; input and posted tasks wait, timers may tick.
  static void Repaint();
  // Whether the user has pressed Esc and nobody has seen it yet; the key stays where it is.
  [[nodiscard]] static bool EscapeIsWaiting();
  void Post(std::function<void()> task) override;
  // Whether a routine waits for something at the moment.
  [[nodiscard]] bool IsWaiting() const { return depth_ > 0; }

 private:
  class Tasks;
  // As long as it lives, posted tasks wait.
  struct OnlyDrawing {
    OnlyDrawing() { ++drawing_; }
    ~OnlyDrawing() { --drawing_; }
    OnlyDrawing(const OnlyDrawing&) = delete;
    OnlyDrawing& operator=(const OnlyDrawing&) = delete;
  };

  // Sleeps at most so many milliseconds when there is nothing to do.
  void Run(unsigned long longestSleep);

  static inline int drawing_ = 0;
  std::shared_ptr<Tasks> tasks_;
  int depth_ = 0;
};

}  // namespace lorelin
