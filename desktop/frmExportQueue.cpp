#include "desktop/frmExportQueue.h"

#include <wx/sizer.h>

#include <utility>

#include "desktop/toolkit/accessibility.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

constexpr int kInterval = 250;  // milliseconds
constexpr int kSteps = 1000;    // of the bar

}  // namespace

FrmExportQueue::FrmExportQueue(wxWindow* parent, ExportQueue& queue,
                               std::function<void(const std::string&)> finished)
    : wxDialog(parent, wxID_ANY, "Tondateien", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "frmExportQueue"),
      queue_(queue),
      finished_(std::move(finished)) {
  Build();
  SetEscapeId(wxID_CLOSE);
  timer_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Refresh(); });
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Hide(); });
  CentreOnParent();
}

void FrmExportQueue::Build() {
  const int gap = FromDIP(12);
  auto* const sizer = new wxBoxSizer(wxVERTICAL);
  lblState_ =
      new wxStaticText(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize, 0, "lblState");
  gauge_ = new wxGauge(this, wxID_ANY, kSteps, wxDefaultPosition, wxDefaultSize, wxGA_HORIZONTAL,
                       wxDefaultValidator, "gauge");
  SetAccessibleName(*gauge_, "Fortschritt");
  lstFiles_ = new wxDataViewListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(480, 200)),
                                     wxDV_ROW_LINES | wxDV_MULTIPLE);
  lstFiles_->SetName("lstFiles");
  SetAccessibleName(*lstFiles_, "Tondateien");
  lstFiles_->AppendTextColumn("Datei", wxDATAVIEW_CELL_INERT, FromDIP(280), wxALIGN_LEFT);
  lstFiles_->AppendTextColumn("Stand", wxDATAVIEW_CELL_INERT, FromDIP(180), wxALIGN_LEFT);
  sizer->Add(lblState_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  sizer->Add(gauge_, wxSizerFlags().Expand().Border(wxALL, gap));
  sizer->Add(lstFiles_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  cancelOne_ = AddButton(*row, wxID_ANY, "Auswahl a&bbrechen");
  cancelOne_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { CancelSelected(); });
  cancelAll_ = AddButton(*row, wxID_ANY, "&Alle abbrechen");
  cancelAll_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    queue_.CancelAll();
    Refresh();
  });
  row->AddStretchSpacer();
  AddButton(*row, wxID_CLOSE, "&Schließen")->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Hide(); });
  sizer->Add(row, wxSizerFlags().Expand().Border(wxALL, gap));
  SetSizerAndFit(sizer);
}

wxButton* FrmExportQueue::AddButton(wxSizer& row, wxWindowID id, const char* caption) {
  auto* const button = new wxButton(this, id, ToWx(caption));
  row.Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
  return button;
}

void FrmExportQueue::Open(bool begun) {
  busy_ = busy_ || begun;
  Refresh();
  Show();
  Raise();
  lstFiles_->SetFocus();
}

// Rows that do not change are not touched: a screen reader stays where it is. What is shown decides whether
// to look again, not the queue, which may have ended meanwhile.
void FrmExportQueue::Refresh() {
  const std::vector<ExportItem> items = queue_.Items();
  for (std::size_t i = 0; i < items.size(); ++i) ShowItem(static_cast<unsigned int>(i), items[i]);
  const std::string text = QueueText(items, queue_.TimeLeft());
  if (FromWx(lblState_->GetLabel()) != text) lblState_->SetLabel(ToWx(text));
  gauge_->SetValue(static_cast<int>(DoneOf(items) * kSteps));
  const bool busy = AnyLeft(items);
  cancelOne_->Enable(busy);
  cancelAll_->Enable(busy);
  if (busy && !timer_.IsRunning()) timer_.Start(kInterval);
  if (!busy) timer_.Stop();
  if (std::exchange(busy_, busy) && !busy) {
    Announce(*lblState_);
    finished_(text);
  }
}

void FrmExportQueue::ShowItem(unsigned int row, const ExportItem& item) {
  const wxString state = ToWx(StateText(item));
  if (static_cast<int>(row) >= lstFiles_->GetItemCount()) {
    wxVector<wxVariant> cells;
    cells.push_back(wxVariant(ToWx(item.name)));
    cells.push_back(wxVariant(state));
    lstFiles_->AppendItem(cells);
  } else if (lstFiles_->GetTextValue(row, 1) != state) {
    lstFiles_->SetTextValue(state, row, 1);
  }
}

void FrmExportQueue::CancelSelected() {
  for (int row = 0; row < lstFiles_->GetItemCount(); ++row) {
    if (lstFiles_->IsRowSelected(static_cast<unsigned int>(row)))
      queue_.Cancel(static_cast<std::size_t>(row));
  }
  Refresh();
}

}  // namespace lorelin
