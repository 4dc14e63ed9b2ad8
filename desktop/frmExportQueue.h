#pragma once

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/timer.h>

#include <functional>
#include <string>

#include "export/SoundExport.h"

namespace lorelin {

// Shows the files that are being made, beside the main window. Closed it is only hidden: the files are made
// all the same.
class FrmExportQueue final : public wxDialog {
 public:
  // `finished` is told, in a sentence, when nothing waits or runs any more. Does not own the queue.
  FrmExportQueue(wxWindow* parent, ExportQueue& queue, std::function<void(const std::string&)> finished);

  // Shows it with what is in the queue now. `begun`: something was just put there, whose end is to be told
  // even when it has come already.
  void Open(bool begun);

 private:
  void Build();
  wxButton* AddButton(wxSizer& row, wxWindowID id, const char* caption);
  void Refresh();
  void ShowItem(unsigned int row, const ExportItem& item);
  void CancelSelected();

  ExportQueue& queue_;
  std::function<void(const std::string&)> finished_;
  wxStaticText* lblState_ = nullptr;
  wxGauge* gauge_ = nullptr;
  wxDataViewListCtrl* lstFiles_ = nullptr;
  wxButton* cancelOne_ = nullptr;
  wxButton* cancelAll_ = nullptr;
  wxTimer timer_;
  bool busy_ = false;
};

}  // namespace lorelin
