#include "cli/interruption.h"

#include <iostream>

#include "platform/common/console.h"

namespace lorelin::cli {

void ThrowIfInterrupted() {
  if (Interrupted()) throw Interruption{};
}

std::string AskOnTerminal(std::string_view question) {
  std::cerr << question << std::flush;
  ByteStream input;
  std::string line;
  char character = 0;
  while (input.Read({&character, 1}) > 0 && character != '\n') line.push_back(character);
  ThrowIfInterrupted();
  return line;
}

}  // namespace lorelin::cli
