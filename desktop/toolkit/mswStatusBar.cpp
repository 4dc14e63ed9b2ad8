#include "desktop/toolkit/statusBarFields.h"

namespace lorelin {

wxStatusBar* MakeStatusFields(wxFrame& frame) {
  wxStatusBar* const bar = new wxStatusBar(&frame, wxID_ANY, wxSTB_DEFAULT_STYLE, "StatusBar1");
  bar->SetFieldsCount(kStatusFields);
  return bar;
}

wxWindow& AnnouncedPart(wxStatusBar& bar, StatusField) {
  return bar;
}

}  // namespace lorelin
