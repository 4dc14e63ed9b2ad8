#pragma once

#include <wx/dialog.h>

#include "ports/HelpDialogs.h"

namespace lorelin {

// The invitation to the survey. Closing it by other means counts as "later".
class FrmSurvey final : public wxDialog {
 public:
  explicit FrmSurvey(wxWindow* parent);
  [[nodiscard]] SurveyAnswer Answer() const { return answer_; }

 private:
  void AddButton(wxSizer& line, const char* caption, const char* name, SurveyAnswer answer);

  SurveyAnswer answer_ = SurveyAnswer::Later;
};

}  // namespace lorelin
