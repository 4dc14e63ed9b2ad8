#include "app/DroppedVoice.h"

#include <string_view>

namespace lorelin {
namespace {

constexpr std::string_view kTitle = "Stimme installieren";

}  // namespace

bool DroppedVoice::Take(const std::vector<std::string>& paths) {
  const auto voice = parts_.voiceLibrary.FindLocal(paths);
  if (!voice) return false;
  const std::string question = "Möchten Sie die natürliche Stimme „" + voice->name + "“ installieren?";
  if (parts_.messageBoxes.Show(question, kTitle, MessageIcon::Question, MessageButtons::YesNo) ==
      MessageAnswer::Yes) {
    Install(*voice);
  }
  return true;
}

void DroppedVoice::Install(const LocalVoice& voice) {
  const VoiceOutcome outcome = parts_.voiceLibrary.Local().Install(
      voice, [&] { return parts_.progress.Show("Die Stimme wird übernommen …", 0.5); });
  parts_.progress.Close();
  if (!outcome.Done()) {
    if (!outcome.text.empty())
      parts_.messageBoxes.Show(outcome.text, kTitle, MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  parts_.renew();
  const std::string offered = parts_.voiceLibrary.OfferedName(voice.name);
  parts_.statusBar.SetMessage("Die Stimme „" + (offered.empty() ? voice.name : offered) +
                              "“ ist installiert. Sie steht unter „Stimme wählen“.");
}

}  // namespace lorelin
