#include "import/processStart.h"

#include <csignal>

namespace lorelin {

std::vector<std::string> StartProcess(int argc, char** argv) {
  std::signal(SIGPIPE, SIG_IGN);
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

}  // namespace lorelin
