#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ChildProgram.h"
#include "engine/Interruption.h"
#include "engine/ProgramStarter.h"
#include "engine/SpeechModule.h"
#include "engine/commandVoices.h"
#include "engine/waveReading.h"

namespace lorelin::engine {

// A sentence as a program speaks it.
struct SaidSentence {
  struct WordStart {
    std::size_t character = 0;
    std::uint64_t sample = 0;
  };

  Sound sound;
  std::vector<WordStart> words;  // as far as the program tells them
};

// The programs that speak for command voices. One of those that stay is kept.
class CommandProgram {
 public:
  // Both must outlive the object; the voices are those of the starter.
  CommandProgram(const ProgramStarter& starter, const Interruption& interruption)
      : starter_(starter), interruption_(interruption) {}

  // The sentence's sound; nothing when it failed, for which Problem() tells the reason, or was interrupted.
  [[nodiscard]] std::optional<SaidSentence> Say(const CommandVoice& voice, const Utterance& utterance,
                                                std::string_view sentence);
  // Starts the program if it is one that stays.
  void GetReady(const CommandVoice& voice, const Utterance& utterance);
  // The end of a German sentence, without its point; "" when there is nothing to tell.
  [[nodiscard]] const std::string& Problem() const { return problem_; }

  // Nobody speaks a sentence for longer than this.
  static constexpr int kMostSeconds = 600;

 private:
  using Time = ChildProgram::Time;

  std::unique_ptr<ChildProgram> Start(const CommandVoice& voice, const Utterance& utterance);
  bool Open(const CommandVoice& voice, const Utterance& utterance, Time until);
  bool GreetModule(const CommandVoice& voice, Time until);
  std::optional<SaidSentence> SayOnce(const CommandVoice& voice, const Utterance& utterance,
                                      const std::string& line, Time until);
  std::optional<SaidSentence> SayToStaying(const std::string& line, Time until);
  std::optional<SaidSentence> SayToModule(std::string_view sentence, Time until);
  bool ExchangeWithModule(ModuleAnswers& answers, const std::string& text, std::size_t wanted, bool spoken,
                          Time until);
  bool Fail(const std::string& reason);
  bool FailedBy(ChildProgram& program, ChildProgram::Outcome outcome);
  bool FailedByEnd(ChildProgram& program, const ChildProgram::Fate& fate);

  const ProgramStarter& starter_;
  const Interruption& interruption_;
  std::unique_ptr<ChildProgram> staying_;
  std::vector<std::string> stayingCommand_;
  std::filesystem::path stayingFolder_;
  std::string programName_;  // of the program that is asked
  std::chrono::seconds timeout_{0};
  std::string problem_;
};

}  // namespace lorelin::engine
