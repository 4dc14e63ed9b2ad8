#pragma once

#include <wx/event.h>
#include <wx/string.h>

#include <functional>
#include <memory>

namespace lorelin {

// What the system tells of a folder, for as long as this lives.
class FolderEvents {
 public:
  virtual ~FolderEvents() = default;
};

// Calls `told` in the thread of `owner` after files of the folder came, went or were renamed, perhaps several
// times for one change. `owner` outlives the result. Null where the system does not tell. User-interface
// thread only.
std::unique_ptr<FolderEvents> TellOfNames(const wxString& folder, wxEvtHandler& owner,
                                          std::function<void()> told);

}  // namespace lorelin
