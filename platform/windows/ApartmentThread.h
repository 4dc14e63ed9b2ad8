#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "ports/EventPump.h"

namespace lorelin {

// A thread with an apartment of its own: objects of engines live on it and tell it by messages how far they
// are, whatever its maker does meanwhile.
class ApartmentThread final : public EventPump {
 public:
  // `turn` runs on the thread whenever events were handled, several times a second at least.
  explicit ApartmentThread(std::function<void()> turn);
  // Waits for what was posted.
  ~ApartmentThread() override;
  ApartmentThread(const ApartmentThread&) = delete;
  ApartmentThread& operator=(const ApartmentThread&) = delete;

  void RunPendingEvents() override;
  void Post(std::function<void()> task) override;
  // Has `work` run behind what was posted, and waits for it; what it throws comes back. Any other thread.
  void Do(const std::function<void()>& work);

 private:
  void Run();
  void RunTasks();

  const std::function<void()> turn_;
  const HANDLE wake_;
  std::mutex mutex_;
  std::deque<std::function<void()>> tasks_;
  bool ending_ = false;  // the thread's own
  std::thread thread_;
};

}  // namespace lorelin
