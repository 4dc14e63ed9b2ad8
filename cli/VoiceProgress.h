#pragma once

#include <chrono>
#include <cstdint>

#include "cli/TerminalLine.h"
#include "voices/DownloadPace.h"

namespace lorelin::cli {

// One line on standard error that tells how a download gets on, only on a terminal.
class VoiceProgress {
 public:
  explicit VoiceProgress(Clock& clock);
  void Turn(std::uintmax_t there, std::uintmax_t all);

 private:
  DownloadPace pace_;
  TerminalLine line_;
  std::chrono::steady_clock::time_point next_{};
};

}  // namespace lorelin::cli
