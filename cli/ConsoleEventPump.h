#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/EventPump.h"

namespace lorelin {

// The event pump of a program without windows: its events are the posted tasks.
class ConsoleEventPump final : public EventPump {
 public:
  void RunPendingEvents() override;
  void Post(std::function<void()> task) override;
  // Called on every RunPendingEvents, on its thread.
  void OnTurn(std::function<void()> turn) { turn_ = std::move(turn); }

 private:
  [[nodiscard]] std::function<void()> Next();

  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> tasks_;
  std::function<void()> turn_;
};

}  // namespace lorelin
