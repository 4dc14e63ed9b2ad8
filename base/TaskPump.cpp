#include "base/TaskPump.h"

#include <chrono>
#include <exception>

namespace lorelin {
namespace {

constexpr std::chrono::milliseconds kLongestSleep{50};

}  // namespace

void TaskPump::Post(std::function<void()> task) {
  {
    const std::lock_guard guard(mutex_);
    tasks_.push_back(std::move(task));
  }
  posted_.notify_all();
}

std::function<void()> TaskPump::Next() {
  const std::lock_guard guard(mutex_);
  if (tasks_.empty()) return {};
  auto task = std::move(tasks_.front());
  tasks_.pop_front();
  return task;
}

void TaskPump::WaitForEvents() {
  {
    std::unique_lock guard(mutex_);
    posted_.wait_for(guard, kLongestSleep, [this] { return !tasks_.empty(); });
  }
  RunPendingEvents();
}

void TaskPump::RunPendingEvents() {
  while (const auto task = Next()) {
    try {
      task();
    } catch (const std::exception&) {
      continue;  // a task has nobody to tell
    }
  }
  if (turn_) turn_();
}

}  // namespace lorelin
