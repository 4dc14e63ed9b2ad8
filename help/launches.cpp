#include "help/launches.h"

#include "base/version.h"

namespace lorelin {
namespace {

std::string Version() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor);
}

std::string Page(const std::string& pathAndQuery) {
  return std::string(kMakerAddress) + pathAndQuery;
}

}  // namespace

void Launches::Open(const std::string& item, const std::string& folder, ShowCommand show) {
  if (!shell_.Open(item, folder, show)) log_.Write("Nicht geöffnet: " + item);
}

void Launches::GetMoreVoices() {
  Open(Page("/lorelin/getmorevoices/"), "", ShowCommand::Hidden);
}

// The blank stays as it is.
void Launches::ReportError() {
  Open(Page("/submit_bug/?program=Lorelin " + Version()), "", ShowCommand::Normal);
}

void Launches::SearchForUpdates() {
  Open("loUpdater.exe", programFolder_, ShowCommand::Hidden);
}

void Launches::ManageExtensions() {
  Open("XMGR.exe", programFolder_, ShowCommand::Hidden);
}

void Launches::OpenSurvey() {
  Open(Page("/lorelin/survey/?version=" + Version()), "", ShowCommand::Normal);
}

void InviteToSurvey(HelpDialogs& dialogs, SettingsStore& settings, Launches& launches) {
  if (settings.Get(setting::Survey) == "false") return;
  switch (dialogs.AskForSurvey()) {
    case SurveyAnswer::Yes:
      settings.Save(setting::Survey, "false");
      return launches.OpenSurvey();
    case SurveyAnswer::No:
      settings.Save(setting::Survey, "false");
      return;
    case SurveyAnswer::Later:
      return;
  }
}

}  // namespace lorelin
