#pragma once

#include <string>

#include "ports/HelpDialogs.h"
#include "ports/Log.h"
#include "ports/Shell.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// What the Help menu opens outside of the program. Failures are only logged. User-interface thread only.
class Launches {
 public:
  // Owns none of them.
  Launches(Shell& shell, Log& log, std::string programFolder)
      : shell_(shell), log_(log), programFolder_(std::move(programFolder)) {}

  void GetMoreVoices();
  void ReportError();
  void SearchForUpdates();
  void ManageExtensions();
  void OpenSurvey();

 private:
  void Open(const std::string& item, const std::string& folder, ShowCommand show);

  Shell& shell_;
  Log& log_;
  std::string programFolder_;
};

// Invites to the survey as the program ends, until the user has answered yes or no.
void InviteToSurvey(HelpDialogs& dialogs, SettingsStore& settings, Launches& launches);

}  // namespace lorelin
