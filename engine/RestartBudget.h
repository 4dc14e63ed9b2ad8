#pragma once

#include <chrono>
#include <deque>

namespace lorelin {

// How often something that keeps failing is started again: at most 3 times in 2 minutes.
class RestartBudget {
 public:
  using Time = std::chrono::steady_clock::time_point;

  static constexpr std::size_t kMost = 3;
  static constexpr std::chrono::minutes kSpan{2};

  // Whether one more restart is allowed at this time; an allowed one is counted.
  [[nodiscard]] bool Take(Time now) {
    while (!taken_.empty() && now - taken_.front() >= kSpan) taken_.pop_front();
    if (taken_.size() >= kMost) return false;
    taken_.push_back(now);
    return true;
  }

 private:
  std::deque<Time> taken_;
};

}  // namespace lorelin
