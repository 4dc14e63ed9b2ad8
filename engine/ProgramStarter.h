#pragma once

#include <memory>
#include <span>

#include "engine/ChildProgram.h"
#include "engine/Descriptor.h"
#include "engine/commandVoices.h"

namespace lorelin::engine {

// A process that starts the programs of voices, and only these, for this one, which may no longer start any
// itself. It ends with the object or with this process.
class ProgramStarter {
 public:
  // The voices must stay where they are.
  explicit ProgramStarter(std::span<const CommandVoice> voices);
  ~ProgramStarter();
  ProgramStarter(const ProgramStarter&) = delete;
  ProgramStarter& operator=(const ProgramStarter&) = delete;

  enum class Outcome { Started, NotFound, Failed };

  // Starts the program of one of the voices for a text that is spoken so.
  [[nodiscard]] Outcome Start(const CommandVoice& voice, const Utterance& utterance,
                              std::unique_ptr<ChildProgram>& program) const;

 private:
  std::span<const CommandVoice> voices_;
  pid_t process_ = -1;
  Descriptor socket_;
};

}  // namespace lorelin::engine
