#include "base/consoleAnswers.h"

#include <iostream>

#include "base/version.h"

namespace lorelin {

bool AnswerOnConsole(int argc, const char* const* argv, std::string_view help) {
  if (argc != 2) return false;
  const std::string_view argument = argv[1];
  if (argument == "--help") {
    std::cout << help;
  } else if (argument == "--version") {
    std::cout << "Lorelin " << kVersionText << '\n';
  } else {
    return false;
  }
  return true;
}

}  // namespace lorelin
