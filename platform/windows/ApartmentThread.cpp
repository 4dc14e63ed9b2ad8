#include "platform/windows/ApartmentThread.h"

#include <objbase.h>

#include <exception>
#include <future>
#include <utility>

namespace lorelin {
namespace {

// How long the thread sleeps at most: not every engine tells by a message that it has finished.
constexpr DWORD kLongestSleep = 10;  // milliseconds

void HandleMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace

ApartmentThread::ApartmentThread(std::function<void()> turn)
    : turn_(std::move(turn)),
      wake_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      thread_([this] { Run(); }) {}

ApartmentThread::~ApartmentThread() {
  Post([this] { ending_ = true; });
  thread_.join();
  CloseHandle(wake_);
}

void ApartmentThread::Post(std::function<void()> task) {
  {
    const std::lock_guard guard(mutex_);
    tasks_.push_back(std::move(task));
  }
  SetEvent(wake_);
}

void ApartmentThread::Do(const std::function<void()>& work) {
  std::promise<void> done;
  Post([&] {
    try {
      work();
      done.set_value();
    } catch (...) {
      done.set_exception(std::current_exception());
    }
  });
  done.get_future().get();
}

void ApartmentThread::Run() {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  while (!ending_) RunPendingEvents();
  CoUninitialize();
}

void ApartmentThread::RunTasks() {
  std::deque<std::function<void()>> tasks;
  {
    const std::lock_guard guard(mutex_);
    tasks.swap(tasks_);
  }
  for (const auto& task : tasks) {
    try {
      task();
    } catch (const std::exception&) {
      continue;  // a task has nobody to tell
    }
  }
}

void ApartmentThread::RunPendingEvents() {
  MsgWaitForMultipleObjects(1, &wake_, FALSE, kLongestSleep, QS_ALLINPUT);
  HandleMessages();
  RunTasks();
  if (!ending_) turn_();
}

}  // namespace lorelin
