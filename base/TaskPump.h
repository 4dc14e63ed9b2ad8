#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "ports/EventPump.h"

namespace lorelin {

// The event pump of a program or thread without windows: its events are the posted tasks.
class TaskPump final : public EventPump {
 public:
  void RunPendingEvents() override;
  void WaitForEvents() override;
  void Post(std::function<void()> task) override;
  // Called on each of both, on their thread.
  void OnTurn(std::function<void()> turn) { turn_ = std::move(turn); }

 private:
  [[nodiscard]] std::function<void()> Next();

  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> tasks_;
  std::function<void()> turn_;
};

}  // namespace lorelin
