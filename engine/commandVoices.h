#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/protocol.h"

namespace lorelin::engine {

// What stands for a setting of the text in a program's arguments.
enum class Placeholder {
  None,
  Speed,    // {speed}: words a minute
  Stretch,  // {stretch}: how many times as long as usual, "1.250"
  Pitch,    // {pitch}: 0 to 100, 50 is usual
  Volume,   // {volume}: 0 to 100
};

struct ArgumentPart {
  std::string text;
  Placeholder placeholder = Placeholder::None;

  bool operator==(const ArgumentPart&) const = default;
};
using Argument = std::vector<ArgumentPart>;

// A voice that a program of the user's speaks, as a file "NAME.voice" describes it: lines "key = value" in
// UTF-8, comments behind "#" at a line's beginning. Everything in it was checked but whether the program is
// there.
struct CommandVoice {
  enum class Mode {
    Once,    // a process for each sentence: text in, sound out
    Stays,   // one process: a line in, a WAV out
    Module,  // one process, a module of speech-dispatcher
  };

  std::filesystem::path folder;  // of the file; the program begins there
  std::string name;
  std::string language;  // "de-at"
  std::int32_t gender = 0;
  std::vector<Argument> command;  // the program first
  Mode mode = Mode::Once;
  int rawRate = 0;                   // of samples without a header; 0 for WAV
  std::string moduleVoice;           // of those that the module has; "" for its own choice
  std::chrono::seconds timeout{30};  // for a sentence

  [[nodiscard]] bool Takes(Placeholder placeholder) const;
};

// What is wrong with a description: a German sentence's end, and the line, 0 for none.
struct CommandVoiceProblem {
  std::size_t line = 0;
  std::string text;
};

// The voice that the file's text describes, without its folder and, when it tells none, its name.
[[nodiscard]] std::optional<CommandVoice> ReadCommandVoice(std::string_view text,
                                                           CommandVoiceProblem& problem);

// The program and its arguments for a text that is spoken so.
[[nodiscard]] std::vector<std::string> FilledCommand(const CommandVoice& voice, const Utterance& utterance);

[[nodiscard]] Voice OfferedVoice(const CommandVoice& voice);

struct FoundCommandVoices {
  std::vector<CommandVoice> voices;   // by language, German first, and name
  std::vector<std::string> problems;  // German sentences about files that are no voices
};

// The voices in the folders and, three levels deep, below. Of those with one file name the first counts.
[[nodiscard]] FoundCommandVoices FindCommandVoices(const std::vector<std::filesystem::path>& folders);

}  // namespace lorelin::engine
