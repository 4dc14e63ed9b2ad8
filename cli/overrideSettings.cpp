#include "cli/overrideSettings.h"

namespace lorelin::cli {

void OverrideSettings(SettingsStore& settings, const Options& options) {
  if (options.voice) settings.Override(setting::Voice, std::to_string(*options.voice - 1));
  if (options.speed) settings.Override(setting::Speed, std::to_string(*options.speed));
  if (options.pitch) settings.Override(setting::Pitch, std::to_string(*options.pitch));
  if (options.volume) settings.Override(setting::Volume, std::to_string(*options.volume));
  if (options.denyRead) settings.Override(setting::VTSAllowRead, "0");
  // The hint explains a button, and is shown once in all.
  settings.Override(setting::ShowPauseMsg, "false");
  if (options.denyDownload) settings.Override(setting::VTSAllowDownload, "0");
}

}  // namespace lorelin::cli
