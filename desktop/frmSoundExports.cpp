#include "desktop/frmSoundExports.h"

#include <wx/stdpaths.h>

#include <utility>

#include "desktop/frmSoundExport.h"
#include "desktop/toolkit/text.h"

namespace lorelin {

FrmSoundExports::FrmSoundExports(wxWindow& parent, SoundExport::Parts parts,
                                 std::function<void(const std::string&)> tell)
    : parent_(parent), export_(std::move(parts)), tell_(std::move(tell)) {
  last_.folder = FromWx(wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Music));
}

// What was typed stays until it could be carried out.
void FrmSoundExports::Ask() {
  auto offer = export_.Offer();
  if (!offer) return;
  while (true) {
    FrmSoundExport dialog(&parent_, *offer, last_);
    if (dialog.ShowModal() != wxID_OK) return;
    last_ = dialog.Order();
    if (export_.Start(last_)) break;
    offer->title = last_.title;
    offer->author = last_.author;
  }
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
