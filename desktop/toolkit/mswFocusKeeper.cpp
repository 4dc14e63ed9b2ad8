#include "desktop/toolkit/FocusKeeper.h"

#include <wx/weakref.h>
#include <wx/window.h>

namespace lorelin {

struct FocusKeeper::Place {
  wxWeakRef<wxWindow> window;
};

FocusKeeper::FocusKeeper() : place_(std::make_unique<Place>(wxWeakRef<wxWindow>(wxWindow::FindFocus()))) {}

void FocusKeeper::GiveBack() {
  if (place_->window != nullptr) place_->window->SetFocus();
}

FocusKeeper::~FocusKeeper() = default;

}  // namespace lorelin
