#include "help/frmHelpDialogs.h"

#include "help/frmAbout.h"
#include "help/frmSurvey.h"

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
