#pragma once

#include <wx/timer.h>

#include <utility>

#include "ports/Alarm.h"

namespace lorelin {

class WxAlarm final : public Alarm {
 public:
  void Set(std::chrono::milliseconds time, std::function<void()> ring) override {
    timer_.ring = std::move(ring);
    timer_.StartOnce(static_cast<int>(time.count()));
  }
  void Cancel() override { timer_.Stop(); }

 private:
  struct Timer final : wxTimer {
    std::function<void()> ring;
    // What rings may set the alarm anew.
    void Notify() override {
      if (const auto now = std::exchange(ring, {})) now();
    }
  };

  Timer timer_;
};

}  // namespace lorelin
