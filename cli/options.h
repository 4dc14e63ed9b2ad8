#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "export/subtitles.h"
#include "ports/MessageBoxes.h"
#include "ports/SoundFile.h"

namespace lorelin::cli {

// What a run of lorelin-cli ends with.
enum class ExitCode : int {
  Done = 0,           // read to the end
  NotToTheEnd = 1,    // the speech broke off; a script broke off after an error; findings in a script
  Usage = 2,          // the command line is wrong
  NoInput = 3,        // the text cannot be read
  NoTarget = 4,       // the WAV file or the output cannot be written
  ScriptErrors = 5,   // the script ran to its end, but commands failed
  ScriptStopped = 6,  // the script ended itself before its last line
  Forbidden = 7,      // the settings forbid scripts
  Refused = 8,        // the registry did not do it
  Interrupted = 130,  // Ctrl+C
};

enum class Action { Say, Text, Spell, Voices, Run, Check, Registry, Help, Version };

// Of Say: what becomes a sound file of which kind.
struct SoundOptions {
  std::string output;  // a file or folder; "" to play aloud
  std::optional<SoundFormat> format;
  bool book = false;  // an EPUB with the sound of its text
  SoundQuality quality = SoundQuality::Usual;
  std::optional<SubtitleFormat> subtitles;
  bool fileForEachChapter = false;
  std::string title;
  std::string author;
  std::string language;
  std::int32_t jobs = 2;  // at a time
};

// What to do with voices.
enum class VoiceOrder { List, Available, Install, Remove };

struct Options {
  Action action = Action::Help;
  bool verbose = false;
  std::optional<std::int32_t> voice;   // from 1
  std::string voiceName;               // a voice by its name; "" for none
  std::optional<std::int32_t> speed;   // per cent
  std::optional<std::int32_t> pitch;   // per cent
  std::optional<std::int32_t> volume;  // per cent
  std::string waveFile;                // "" to play aloud
  std::string input = "-";             // a file, or "-" for standard input
  SoundOptions sound;
  std::vector<std::string> inputs;      // of Say into sound files
  std::vector<std::string> scripts;     // of Run (one) and Check
  std::vector<std::string> words;       // of Registry: what to do, and with what
  std::optional<MessageAnswer> answer;  // to every question of a script; else the user is asked
  bool denyRead = false;
  bool denyDownload = false;
  VoiceOrder voiceOrder = VoiceOrder::List;
  std::vector<std::string> voiceWords;  // a part of a name, the name, or the files of a voice
  bool table = false;                   // of Spell: what is replaced, not the text
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
