#pragma once

#include <wx/dialog.h>
#include <wx/slider.h>
#include <wx/stattext.h>

#include <functional>

#include "speech/voiceSettings.h"

namespace lorelin {

// The dialogs with a slider: frmVolume, frmSpeed and frmPitch.
class FrmSlider final : public wxDialog {
 public:
  // `sample` speaks with this percentage. Throws RuntimeError when the stored value is no number.
  FrmSlider(wxWindow* parent, const SliderDialog& dialog, SettingsStore& settings,
            std::function<void(std::int32_t)> sample);

 private:
  void BuildControls();
  void SliderMoved();
  void Accept();

  const SliderDialog& dialog_;
  SettingsStore& settings_;
  std::function<void(std::int32_t)> sample_;
  wxSlider* slider1_ = nullptr;
  wxStaticText* value_ = nullptr;
};

}  // namespace lorelin
