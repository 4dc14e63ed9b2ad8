#pragma once

#include <functional>
#include <string>

#include "desktop/frmExportQueue.h"
#include "export/SoundExport.h"

namespace lorelin {

// The export of sound files as the window has it: the dialog that asks, and the window that shows what is
// made.
class FrmSoundExports {
 public:
  // `tell` has a sentence shown. Owns none of what it is given.
  FrmSoundExports(wxWindow& parent, SoundExport::Parts parts, std::function<void(const std::string&)> tell);

  // Asks what is wanted, and shows how it is made.
  void Ask();
  void Show();
  [[nodiscard]] bool MayClose() { return export_.MayClose(); }
  // Leaves nothing half-written.
  void End() { export_.Queue().End(); }

 private:
  [[nodiscard]] FrmExportQueue& Window();

  wxWindow& parent_;
  SettingsStore& settings_;
  SoundExport export_;
  std::function<void(const std::string&)> tell_;
  FrmExportQueue* window_ = nullptr;  // goes with the parent
};

}  // namespace lorelin
