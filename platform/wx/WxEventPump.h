#pragma once

#include "platform/EventPump.h"

namespace lorelin {

// The window system's events through the active event loop. Needs a running wxApp.
class WxEventPump final : public EventPump {
 public:
  void RunPendingEvents() override;
  void Post(std::function<void()> task) override;
  // Whether a routine waits for something at the moment.
  [[nodiscard]] bool IsWaiting() const { return depth_ > 0; }

 private:
  int depth_ = 0;
};

}  // namespace lorelin
