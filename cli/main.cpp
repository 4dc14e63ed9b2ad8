#include <string>
#include <vector>

#include "cli/program.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return static_cast<int>(lorelin::cli::Run(arguments));
}
