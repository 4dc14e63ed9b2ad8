#pragma once

#include <wx/window.h>

#include "desktop/frmSettings.h"
#include "ports/HelpDialogs.h"

namespace lorelin {

// Opens the dialogs of help and settings as windows of the toolkit.
class FrmHelpDialogs final : public HelpDialogs {
 public:
  explicit FrmHelpDialogs(FrmSettings::Parts settings) : settings_(std::move(settings)) {}
  // The dialogs belong to this window.
  void SetParent(wxWindow* parent) { parent_ = parent; }

  void ShowAbout() override;
  void ShowSettings() override;
  SurveyAnswer AskForSurvey() override;

 private:
  FrmSettings::Parts settings_;
  wxWindow* parent_ = nullptr;
};

}  // namespace lorelin
