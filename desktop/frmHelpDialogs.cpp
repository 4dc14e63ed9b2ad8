#include "desktop/frmHelpDialogs.h"

#include "desktop/frmAbout.h"
#include "desktop/frmSurvey.h"

namespace lorelin {

void FrmHelpDialogs::ShowAbout() {
  FrmAbout(parent_, settings_.pictureFile).ShowModal();
}

void FrmHelpDialogs::ShowSettings() {
  FrmSettings(parent_, settings_).ShowModal();
}

// The main window is hidden by then: the invitation stands alone.
SurveyAnswer FrmHelpDialogs::AskForSurvey() {
  FrmSurvey survey(nullptr);
  survey.ShowModal();
  return survey.Answer();
}

}  // namespace lorelin
