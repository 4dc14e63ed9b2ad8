#include "desktop/frmPronunciationDialogs.h"

#include "base/RuntimeError.h"
#include "desktop/frmPronunciation.h"
#include "desktop/frmPronunciations.h"

namespace lorelin {

// As it is heard in a text.
void FrmPronunciationDialogs::Sample(VoiceSample& sample, const std::string& text) {
  sample.Play(spoken_.pronunciations.Speller()->SpellOut(text).text, setting::Volume,
              spoken_.settings.Get(setting::Volume));
}

void FrmPronunciationDialogs::ChangePronunciation(const std::string& written) {
  Pronunciations& pronunciations = spoken_.pronunciations;
  const OwnWord word = WordFor(pronunciations.Words(), written);
  VoiceSample sample(spoken_.speech, makeSample_);
  FrmPronunciation dialog(parent_, word, [&](const std::string& text) { Sample(sample, text); });
  if (dialog.ShowModal() != wxID_OK) return;
  try {
    pronunciations.SaveWords(WithWord(pronunciations.Words(), word, dialog.Word()));
  } catch (const RuntimeError& error) {
    messageBoxes_.Show("Die Aussprache konnte nicht gespeichert werden: " + std::string(error.what()) + ".",
                       "Aussprache ändern", MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void FrmPronunciationDialogs::ShowPronunciations() {
  VoiceSample sample(spoken_.speech, makeSample_);
  FrmPronunciations dialog(parent_, spoken_.pronunciations, messageBoxes_,
                           [&](const std::string& text) { Sample(sample, text); });
  dialog.ShowModal();
}

}  // namespace lorelin
