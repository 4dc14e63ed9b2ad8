#pragma once

#include <objbase.h>

#include <chrono>
#include <deque>
#include <functional>

#include "ports/EventPump.h"

namespace lorelin {

// The message loop of a single-threaded apartment, as a window program has one.
class ApartmentPump final : public EventPump {
 public:
  ApartmentPump() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }

  void RunPendingEvents() override {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, tasks_.empty() ? 10 : 0, QS_ALLINPUT);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
    while (!tasks_.empty()) {
      const auto task = std::move(tasks_.front());
      tasks_.pop_front();
      task();
    }
  }
  void Post(std::function<void()> task) override { tasks_.push_back(std::move(task)); }

  // Handles events until `done`; false after a minute.
  bool RunUntil(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      RunPendingEvents();
    }
    return true;
  }
  void RunFor(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) RunPendingEvents();
  }

 private:
  std::deque<std::function<void()>> tasks_;
};

}  // namespace lorelin
