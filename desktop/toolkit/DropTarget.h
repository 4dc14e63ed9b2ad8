#pragma once

#include <wx/dnd.h>

#include <functional>
#include <string>
#include <vector>

namespace lorelin {

// Takes files and texts that are dragged onto a window. The window owns it.
class DropTarget final : public wxDropTarget {
 public:
  struct Actions {
    std::function<void(const std::vector<std::string>& paths)> files;  // one at least
    std::function<void(const std::string& text)> text;
  };

  explicit DropTarget(Actions actions);
  wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult suggested) override;

 private:
  Actions actions_;
  wxFileDataObject* files_;  // both owned by the composite, which the base class owns
  wxTextDataObject* text_;
};

}  // namespace lorelin
