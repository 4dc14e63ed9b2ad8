#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace lorelin::cli {

// What a run of lorelin-cli ends with.
enum class ExitCode : int {
  Done = 0,           // read to the end
  NotToTheEnd = 1,    // the speech broke off
  Usage = 2,          // the command line is wrong
  NoInput = 3,        // the text cannot be read
  NoTarget = 4,       // the WAV file or the output cannot be written
  Interrupted = 130,  // Ctrl+C
};

enum class Action { Say, Voices, Help, Version };

struct Options {
  Action action = Action::Help;
  bool verbose = false;
  std::optional<std::int32_t> voice;   // from 1
  std::optional<std::int32_t> speed;   // per cent
  std::optional<std::int32_t> pitch;   // per cent
  std::optional<std::int32_t> volume;  // per cent
  std::string waveFile;                // "" to play aloud
  std::string input = "-";             // a file, or "-" for standard input
};

// A command line that is wrong; what() says in German why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws UsageError. `arguments` without the program's name.
[[nodiscard]] Options ParseOptions(std::span<const std::string> arguments);

[[nodiscard]] std::string HelpText();

}  // namespace lorelin::cli
