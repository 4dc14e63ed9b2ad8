#include "desktop/toolkit/toolkit.h"

#include <wx/imagjpeg.h>
#include <wx/log.h>

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

}  // namespace

// The toolkit owns what it is given here.
void PrepareToolkit(Log& log) {
  wxImage::AddHandler(new wxJPEGHandler);
  delete wxLog::SetActiveTarget(new LogBridge(log));  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

void ReleaseToolkit() {
  delete wxLog::SetActiveTarget(new wxLogStderr);  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace lorelin
