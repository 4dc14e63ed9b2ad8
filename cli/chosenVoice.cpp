#include "cli/chosenVoice.h"

#include <string>
#include <vector>

#include "base/text.h"
#include "cli/Failure.h"

namespace lorelin::cli {
namespace {

void RequireVoice(DirectSS& engine, std::int32_t number) {
  if (number <= engine.VoiceCount()) return;
  throw Failure(ExitCode::Usage, "Eine Stimme Nummer " + std::to_string(number) +
                                     " gibt es nicht, nur 1 bis " + std::to_string(engine.VoiceCount()) +
                                     " (siehe „lorelin-cli voices“).");
}

std::int32_t VoiceNamed(DirectSS& engine, const std::string& name) {
  const std::string wanted = LowerAscii(name);
  std::vector<std::int32_t> found;
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    const std::string voice = LowerAscii(engine.VoiceName(number));
    if (voice == wanted) return number;
    if (voice.find(wanted) != std::string::npos) found.push_back(number);
  }
  if (found.size() == 1) return found.front();
  if (found.empty()) {
    throw Failure(ExitCode::Usage, "Eine Stimme „" + name + "“ gibt es nicht (siehe „lorelin-cli voices“).");
  }
  throw Failure(ExitCode::Usage, "„" + name + "“ passt auf mehrere Stimmen, zum Beispiel „" +
                                     engine.VoiceName(found[0]) + "“ und „" + engine.VoiceName(found[1]) +
                                     "“.");
}

}  // namespace

Options WithChosenVoice(Options options, DirectSS& engine) {
  if (!options.voiceName.empty()) options.voice = VoiceNamed(engine, options.voiceName);
  if (options.voice) RequireVoice(engine, *options.voice);
  return options;
}

}  // namespace lorelin::cli
