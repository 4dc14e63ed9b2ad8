#pragma once

#include <utility>

#include "ports/Alarm.h"

namespace lorelin {

class FakeAlarm final : public Alarm {
 public:
  void Set(std::chrono::milliseconds newTime, std::function<void()> newRing) override {
    time = newTime;
    ring = std::move(newRing);
  }
  void Cancel() override { ring = {}; }
  // The time is over.
  void Ring() {
    if (const auto now = std::exchange(ring, {})) now();
  }

  std::chrono::milliseconds time{};
  std::function<void()> ring;
};

}  // namespace lorelin
