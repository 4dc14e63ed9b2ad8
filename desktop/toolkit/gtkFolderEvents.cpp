#include <wx/filename.h>
#include <wx/fswatcher.h>
#include <wx/log.h>

#include <utility>

#include "desktop/toolkit/folderEvents.h"

namespace lorelin {
namespace {

class WatchedFolder final : public wxEvtHandler, public FolderEvents {
 public:
  WatchedFolder(const wxString& folder, std::function<void()> told) : told_(std::move(told)) {
    const wxLogNull quiet;
    Bind(wxEVT_FSWATCHER, [this](wxFileSystemWatcherEvent&) { told_(); });
    watcher_.SetOwner(this);
    watcher_.Add(wxFileName::DirName(folder), wxFSW_EVENT_CREATE | wxFSW_EVENT_DELETE | wxFSW_EVENT_RENAME);
  }

 private:
  std::function<void()> told_;
  wxFileSystemWatcher watcher_;
};

}  // namespace

std::unique_ptr<FolderEvents> TellOfNames(const wxString& folder, wxEvtHandler&, std::function<void()> told) {
  return std::make_unique<WatchedFolder>(folder, std::move(told));
}

}  // namespace lorelin
