#pragma once

#include <stdexcept>
#include <string>

#include "cli/options.h"

namespace lorelin::cli {

// An end of the program that is no success; what() is the German sentence for standard error.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
  [[nodiscard]] ExitCode Code() const { return code_; }

 private:
  ExitCode code_;
};

}  // namespace lorelin::cli
