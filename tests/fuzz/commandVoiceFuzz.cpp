#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "base/textEncoding.h"
#include "engine/commandVoices.h"

// Whatever a voice file says, it is refused with a reason, or a program with its arguments comes of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lorelin::engine;
  CommandVoiceProblem problem;
  const auto voice = ReadCommandVoice({reinterpret_cast<const char*>(data), size}, problem);
  if (voice.has_value() != problem.text.empty() || !lorelin::IsValidUtf8(problem.text)) std::abort();
  if (!voice) return 0;
  Utterance utterance;
  utterance.speed = 80;
  const auto command = FilledCommand(*voice, utterance);
  if (command.empty() || command.size() > 100 || command.front().empty()) std::abort();
  for (const std::string& argument : command) {
    if (argument.find('\0') != std::string::npos || !lorelin::IsValidUtf8(argument)) std::abort();
  }
  if (!lorelin::IsValidUtf8(OfferedVoice(*voice).name) || voice->timeout.count() < 1) std::abort();
  return 0;
}
