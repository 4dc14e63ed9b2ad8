#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "ports/EventPump.h"

namespace lorelin {

// The event pump of a program or thread without windows: its events are the posted tasks. It sleeps for one
// only when it is asked again and again: who lets events in between two steps of some work is not held up.
class TaskPump final : public EventPump {
 public:
  void RunPendingEvents() override;
  void Post(std::function<void()> task) override;
  // Called on every RunPendingEvents, on its thread.
  void OnTurn(std::function<void()> turn) { turn_ = std::move(turn); }

 private:
  [[nodiscard]] std::function<void()> Next();
  void SleepWhenIdle();

  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> tasks_;
  std::function<void()> turn_;
  int idleTurns_ = 0;  // since the last task
};

}  // namespace lorelin
