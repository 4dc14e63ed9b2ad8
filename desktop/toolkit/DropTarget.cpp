#include "desktop/toolkit/DropTarget.h"

#include <utility>

#include "desktop/toolkit/text.h"

namespace lorelin {

DropTarget::DropTarget(Actions actions)
    : actions_(std::move(actions)), files_(new wxFileDataObject), text_(new wxTextDataObject) {
  auto* const both = new wxDataObjectComposite;
  both->Add(files_, true);
  both->Add(text_);
  SetDataObject(both);
}

wxDragResult DropTarget::OnData(wxCoord, wxCoord, wxDragResult suggested) {
  if (!GetData()) return wxDragNone;
  const auto* const both = static_cast<wxDataObjectComposite*>(GetDataObject());
  if (both->GetReceivedFormat().GetType() == wxDF_FILENAME) {
    const wxArrayString names = files_->GetFilenames();
    if (names.empty()) return wxDragNone;
    std::vector<std::string> paths;
    for (const wxString& name : names) paths.push_back(FromWx(name));
    actions_.files(paths);
  } else {
    actions_.text(FromWx(text_->GetText()));
  }
  return suggested;
}

}  // namespace lorelin
