#pragma once

#include <functional>

namespace lorelin {

// Port: the one place where window events are let in while a routine waits. Re-entrant by design: an event
// may start another routine that pumps again.
class EventPump {
 public:
  virtual ~EventPump() = default;

  // Handles the events that are pending and everything posted, then returns. When there was nothing to do it
  // sleeps until the next event, at most 10 ms, so that a waiting loop costs no processor time.
  // User-interface thread only. Exceptions of posted tasks do not leave it.
  virtual void RunPendingEvents() = 0;

  // Has `task` run on the user-interface thread as soon as events are handled there; wakes a sleeping pump.
  // Any thread. Tasks run in the order in which they were posted; after the pump's end they are dropped.
  virtual void Post(std::function<void()> task) = 0;
};

}  // namespace lorelin
