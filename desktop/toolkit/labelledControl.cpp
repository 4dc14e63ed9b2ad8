#include "desktop/toolkit/labelledControl.h"

#include <wx/stattext.h>

#include <string>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"

namespace lorelin {

void AddLabelled(wxWindow& control, wxSizer& grid, const char* caption) {
  auto* const label = new wxStaticText(control.GetParent(), wxID_ANY, ToWx(caption));
  label->MoveBeforeInTabOrder(&control);
  grid.Add(label, wxSizerFlags().CenterVertical());
  grid.Add(&control, wxSizerFlags().Expand());
  std::string name = FromWx(wxControl::RemoveMnemonics(ToWx(caption)));
  name.pop_back();
  SetAccessibleName(control, name);
}

}  // namespace lorelin
