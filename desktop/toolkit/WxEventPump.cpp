#include "desktop/toolkit/WxEventPump.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/thread.h>
#include <wx/timer.h>

#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace lorelin {
namespace {

constexpr unsigned long kLongestSleep = 20;  // milliseconds
constexpr int kNextRound = 1;                // milliseconds

}  // namespace

// The toolkit handles posted events until none is left, before any key and any drawing. A task that posts its
// own continuation would keep both waiting until it is done; so what is posted by a task waits for a timer.
class WxEventPump::Tasks final : public wxTimer {
 public:
  explicit Tasks(Log& log) : log_(log) {}

  // Any thread. Whether nothing else will ask for a round.
  bool Add(std::function<void()> task) {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
    return !wxIsMainThread() || running_ == 0;
  }
  void RunRound() {
    ++running_;
    for (std::size_t left = Count(); left > 0; --left) RunFirst();
    --running_;
  }
  void Notify() override {
    if (drawing_ > 0) return RunLater();
    RunRound();
  }
  void RunLater() {
    if (!IsRunning()) StartOnce(kNextRound);
  }

 private:
  std::size_t Count() {
    const std::lock_guard lock(mutex_);
    return tasks_.size();
  }
  std::function<void()> Take() {
    const std::lock_guard lock(mutex_);
    // A round within a task may have taken what this one had counted.
    if (tasks_.empty()) return {};
    std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    return task;
  }
  void RunFirst() {
    try {
      if (const std::function<void()> task = Take()) task();
    } catch (const std::exception& error) {
      log_.Write(error.what());
    }
  }

  Log& log_;
  std::mutex mutex_;
  std::deque<std::function<void()>> tasks_;
  int running_ = 0;  // of the user-interface thread
};

WxEventPump::WxEventPump(Log& log) : tasks_(std::make_shared<Tasks>(log)) {}

WxEventPump::~WxEventPump() = default;

void WxEventPump::WaitForEvents() {
  Run(kLongestSleep);
}

void WxEventPump::Run(unsigned long longestSleep) {
  ++depth_;
  std::unique_ptr<wxEventLoopBase> own;
  std::unique_ptr<wxEventLoopActivator> activator;
  if (wxEventLoopBase::GetActive() == nullptr) {
    // The load sequence runs before the main loop does.
    own.reset(wxTheApp->GetTraits()->CreateEventLoop());
    activator = std::make_unique<wxEventLoopActivator>(own.get());
  }
  wxEventLoopBase& loop = *wxEventLoopBase::GetActive();
  if (loop.Pending() || wxTheApp->HasPendingEvents()) {
    loop.YieldFor(wxEVT_CATEGORY_ALL);
  } else if (longestSleep > 0) {
    loop.DispatchTimeout(longestSleep);
  }
  wxTheApp->ProcessPendingEvents();
  tasks_->RunRound();
  --depth_;
}

void WxEventPump::Post(std::function<void()> task) {
  if (!tasks_->Add(std::move(task))) return tasks_->RunLater();
  wxTheApp->CallAfter([alive = std::weak_ptr(tasks_)] {
    if (const auto tasks = alive.lock()) tasks->RunRound();
  });
}

}  // namespace lorelin
