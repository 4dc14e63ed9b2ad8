#pragma once

#include <wx/window.h>

#include <string>

#include "ports/MessageBoxes.h"
#include "ports/PronunciationDialogs.h"
#include "speech/SpeechModules.h"
#include "speech/VoiceSample.h"

namespace lorelin {

// Opens the dialogs of the user's own pronunciations as windows of the toolkit.
class FrmPronunciationDialogs final : public PronunciationDialogs {
 public:
  // Owns neither; both must outlive it. `makeSample` makes the instance that the samples are spoken by.
  FrmPronunciationDialogs(SpeechModules& spoken, MessageBoxes& messageBoxes,
                          VoiceSample::MakeInstance makeSample)
      : spoken_(spoken), messageBoxes_(messageBoxes), makeSample_(std::move(makeSample)) {}
  // The dialogs belong to this window.
  void SetParent(wxWindow* parent) { parent_ = parent; }

  void ChangePronunciation(const std::string& written) override;
  void ShowPronunciations() override;

 private:
  void Sample(VoiceSample& sample, const std::string& text);

  SpeechModules& spoken_;
  MessageBoxes& messageBoxes_;
  VoiceSample::MakeInstance makeSample_;
  wxWindow* parent_ = nullptr;
};

}  // namespace lorelin
