#include "speech/modExport.h"

#include <chrono>

#include "base/RuntimeError.h"
#include "base/modFile.h"

namespace lorelin {
namespace {

// What takes no longer is not worth a window.
constexpr std::chrono::seconds kWithoutProgress{1};

}  // namespace

void ModExport::ExportDoc() {
  const std::string source = parts_.speech.TempWavPath();
  parts_.statusBar.SetMessage("Exportiere " + source);
  if (!FileExists(source)) {
    parts_.messageBoxes.Show(
        "Bitte lassen Sie sich den Text mindestens einmal vorlesen, bevor Sie diesen exportieren.", "Fehler",
        MessageIcon::Critical, MessageButtons::Ok);
    return;
  }
  const auto target = parts_.fileDialogs.AskForTarget({.title = "Exportieren",
                                                       .folder = {},
                                                       .fileName = "Sprachausgabe.wav",
                                                       .filter = "Audio Dateien (*.wav)|*.wav",
                                                       .defaultExtension = ".wav"});
  if (!target) return;
  try {
    if (!Copy(*target)) return;
    parts_.speech.Status().Saved(*target);
    parts_.extensions.Export(*target);
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show("Fehler: " + std::string(error.what()),
                             "Fehler " + std::to_string(error.Number()), MessageIcon::Critical,
                             MessageButtons::Ok);
  }
}

bool ModExport::Copy(const std::string& target) {
  const auto begin = parts_.clock.Steady();
  struct Closing {
    ProgressWindow& window;
    ~Closing() { window.Close(); }
  } const closing{parts_.progress};
  return parts_.files.Copy(parts_.speech.TempWavPath(), target, [&](double done) {
    if (parts_.clock.Steady() - begin < kWithoutProgress) return true;
    return parts_.progress.Show("Die Sprachausgabe wird gespeichert …", done);
  });
}

}  // namespace lorelin
