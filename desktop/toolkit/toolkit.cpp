#include "desktop/toolkit/toolkit.h"

#include <wx/dialog.h>
#include <wx/eventfilter.h>
#include <wx/imagjpeg.h>
#include <wx/log.h>

#include <memory>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

class LogBridge final : public wxLog {
 public:
  explicit LogBridge(Log& log) : log_(log) {}

 protected:
  void DoLogTextAtLevel(wxLogLevel level, const wxString& text) override {
    if (level <= wxLOG_Warning) log_.Write(FromWx(text));
  }

 private:
  Log& log_;
};

// Every dialog is told to be one, the toolkit's own, too: below GTK it would pass for a window like any
// other, and nobody would read out what it asks.
class DialogRoles final : public wxEventFilter {
 public:
  DialogRoles() { wxEvtHandler::AddFilter(this); }
  ~DialogRoles() override { wxEvtHandler::RemoveFilter(this); }
  DialogRoles(const DialogRoles&) = delete;
  DialogRoles& operator=(const DialogRoles&) = delete;

  int FilterEvent(wxEvent& event) override {
    if (event.GetEventType() == wxEVT_INIT_DIALOG) {
      if (auto* const dialog = dynamic_cast<wxDialog*>(event.GetEventObject()))
        SetAccessibleRole(*dialog, AccessibleRole::Dialog);
    }
    return Event_Skip;
  }
};

std::unique_ptr<DialogRoles>& Roles() {
  static std::unique_ptr<DialogRoles> roles;
  return roles;
}

}  // namespace

// The toolkit owns what it is given here.
void PrepareToolkit(Log& log) {
  wxImage::AddHandler(new wxJPEGHandler);
  Roles() = std::make_unique<DialogRoles>();
  delete wxLog::SetActiveTarget(new LogBridge(log));  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

void ReleaseToolkit() {
  Roles().reset();
  delete wxLog::SetActiveTarget(new wxLogStderr);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace lorelin
