#include <windows.h>

#include <array>
#include <thread>
#include <utility>

#include "desktop/toolkit/folderEvents.h"

namespace lorelin {
namespace {

// Not by the toolkit's watcher: that frees the memory of a request which the system still answers to.
class NameChanges final : public FolderEvents {
 public:
  NameChanges(HANDLE change, wxEvtHandler& owner, std::function<void()> told)
      : change_(change), owner_(owner), told_(std::move(told)), waiter_([this] { Wait(); }) {}
  ~NameChanges() override {
    SetEvent(end_);
    waiter_.join();
    FindCloseChangeNotification(change_);
    CloseHandle(end_);
  }
  NameChanges(const NameChanges&) = delete;
  NameChanges& operator=(const NameChanges&) = delete;

 private:
  // Ends by itself when the folder is gone.
  void Wait() {
    const std::array<HANDLE, 2> either = {end_, change_};
    while (WaitForMultipleObjects(either.size(), either.data(), FALSE, INFINITE) == WAIT_OBJECT_0 + 1) {
      owner_.CallAfter(told_);
      if (FindNextChangeNotification(change_) == FALSE) return;
    }
  }

  HANDLE change_;
  HANDLE end_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  wxEvtHandler& owner_;
  std::function<void()> told_;
  std::thread waiter_;
};

}  // namespace

std::unique_ptr<FolderEvents> TellOfNames(const wxString& folder, wxEvtHandler& owner,
                                          std::function<void()> told) {
  const HANDLE change = FindFirstChangeNotificationW(folder.wc_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
  if (change == INVALID_HANDLE_VALUE) return nullptr;
  return std::make_unique<NameChanges>(change, owner, std::move(told));
}

}  // namespace lorelin
