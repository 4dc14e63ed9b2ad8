#pragma once

#include <string>

namespace lorelin {

// Port: the dialogs in which the user says how something is to be spoken, modal. User-interface thread only.
class PronunciationDialogs {
 public:
  virtual ~PronunciationDialogs() = default;
  // Asks for the pronunciation of a word that stands in the text; "" to have it typed in.
  virtual void ChangePronunciation(const std::string& written) = 0;
  // Lists all words and rules.
  virtual void ShowPronunciations() = 0;
};

}  // namespace lorelin
