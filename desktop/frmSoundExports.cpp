#include "desktop/frmSoundExports.h"

#include <wx/stdpaths.h>

#include <utility>

#include "desktop/frmSoundExport.h"
#include "desktop/toolkit/text.h"
#include "export/storedExportOrder.h"

namespace lorelin {

FrmSoundExports::FrmSoundExports(wxWindow& parent, SoundExport::Parts parts,
                                 std::function<void(const std::string&)> tell)
    : parent_(parent),
      settings_(parts.preparation.settings),
      export_(std::move(parts)),
      tell_(std::move(tell)) {}

// What was typed stays until it could be carried out.
void FrmSoundExports::Ask() {
  auto offer = export_.Offer();
  if (!offer) return;
  const auto music = FromWx(wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Music));
  ExportOrder order = StoredExportOrder(settings_, music);
  while (true) {
    FrmSoundExport dialog(&parent_, *offer, order);
    if (dialog.ShowModal() != wxID_OK) return;
    order = dialog.Order();
    if (export_.Start(order)) break;
    offer->title = order.title;
    offer->author = order.author;
  }
  StoreExportOrder(settings_, order);
  Window().Open(true);
}

FrmExportQueue& FrmSoundExports::Window() {
  if (window_ == nullptr) window_ = new FrmExportQueue(&parent_, export_.Queue(), tell_);
  return *window_;
}

void FrmSoundExports::Show() {
  Window().Open(false);
}

}  // namespace lorelin
