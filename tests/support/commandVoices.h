#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "engine/commandVoices.h"

namespace lorelin::engine {

// Where the voices lie that the programs of the tests speak.
inline std::filesystem::path TestCommandVoices() {
  return LORELIN_TEST_COMMAND_VOICES;
}

inline std::string TestProgram(const std::string& name) {
  return (TestCommandVoices() / "../programs" / name).lexically_normal().string();
}

// A voice of this description, German unless told.
inline CommandVoice MakeCommandVoice(const std::string& command, const std::string& more = {}) {
  CommandVoiceProblem problem;
  auto voice = ReadCommandVoice("name = Probe\nlanguage = de\ncommand = " + command + "\n" + more, problem);
  if (!voice) throw std::runtime_error(problem.text);
  voice->folder = "/";
  return *voice;
}

}  // namespace lorelin::engine
