#pragma once

#include <string>

namespace lorelin {

enum class SurveyAnswer { Yes, No, Later };

// Port: the dialogs of help and settings. Each returns when the user has closed it. User-interface thread
// only.
class HelpDialogs {
 public:
  virtual ~HelpDialogs() = default;
  virtual void ShowAbout() = 0;
  virtual void ShowSettings() = 0;
  [[nodiscard]] virtual SurveyAnswer AskForSurvey() = 0;
};

}  // namespace lorelin
