#include "desktop/toolkit/dialogButtons.h"

#include "desktop/toolkit/text.h"

namespace lorelin {

DialogButtons AddDialogButtons(wxDialog& dialog, wxSizer& sizer) {
  const int gap = dialog.FromDIP(12);
  DialogButtons buttons;
  buttons.sample = new wxButton(&dialog, wxID_ANY, ToWx("Probe &hören"));
  buttons.ok = new wxButton(&dialog, wxID_ANY, "OK");
  buttons.ok->SetName("Command1");
  buttons.cancel = new wxButton(&dialog, wxID_CANCEL, "&Abbrechen");
  buttons.cancel->SetName("Command2");
  buttons.ok->SetDefault();
  dialog.SetEscapeId(wxID_CANCEL);
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(buttons.sample);
  row->AddStretchSpacer();
  row->AddSpacer(2 * gap);
  row->Add(buttons.cancel, wxSizerFlags().Border(wxRIGHT, gap / 2));
  row->Add(buttons.ok);
  sizer.Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
  return buttons;
}

}  // namespace lorelin
