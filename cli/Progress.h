#pragma once

#include <chrono>
#include <string>

#include "cli/TerminalLine.h"

namespace lorelin::cli {

// One line on standard error that tells how much of a WAV file is there, from the file's size; it appears
// after a second, and only on a terminal.
class Progress {
 public:
  explicit Progress(std::string file);
  void Turn();

 private:
  std::string file_;
  TerminalLine line_;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace lorelin::cli
