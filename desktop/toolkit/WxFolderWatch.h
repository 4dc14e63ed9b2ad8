#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <functional>
#include <memory>
#include <string>

#include "desktop/toolkit/folderEvents.h"

namespace lorelin {

// Tells when files of one folder come, go or are renamed: a little later, and once for many at a time. Where
// the system cannot tell, nothing happens. User-interface thread only.
class WxFolderWatch final : public wxEvtHandler {
 public:
  // It begins when the window system runs; the folder has to exist then.
  WxFolderWatch(std::string folder, std::function<void()> changed);
  ~WxFolderWatch() override;
  WxFolderWatch(const WxFolderWatch&) = delete;
  WxFolderWatch& operator=(const WxFolderWatch&) = delete;

 private:
  void Begin();

  std::string folder_;
  std::function<void()> changed_;
  std::unique_ptr<FolderEvents> events_;
  wxTimer begin_;
  wxTimer pause_;
};

}  // namespace lorelin
