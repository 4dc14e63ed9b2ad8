#pragma once

#include <functional>

namespace lorelin {

// Port: the one place where window events are let in while a routine waits. Re-entrant by design: an event
// may start another routine that pumps again.
class EventPump {
 public:
  virtual ~EventPump() = default;

  // Handles the events that are pending and what had been posted, then returns.
  // User-interface thread only. Exceptions of posted tasks do not leave it.
  virtual void RunPendingEvents() = 0;

  // The same for a loop that waits: when there was nothing to do it sleeps until the next event, at most 50
  // ms, so that waiting costs no processor time.
  virtual void WaitForEvents() { RunPendingEvents(); }

  // Has `task` run on the user-interface thread as soon as events are handled there; wakes a sleeping pump.
  // Any thread. Tasks run in the order in which they were posted; after the pump's end they are dropped. What
  // a task posts may wait for a later round, so that long work can be done in steps between keys and drawing.
  virtual void Post(std::function<void()> task) = 0;
};

}  // namespace lorelin
