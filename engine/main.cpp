#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string_view>

#include "engine/EngineServer.h"

// lorelin-engine SOCKET [audio]: speaks for the program at the other end of the connected socket with this
// number.
int main(int argc, char** argv) {
  int socket = -1;
  if (argc >= 2) std::from_chars(argv[1], argv[1] + std::strlen(argv[1]), socket);
  if (socket < 3) {
    std::fputs("lorelin-engine is started by lorelin and lorelin-cli.\n", stderr);
    return 2;
  }
  // Ctrl+C in a terminal reaches the whole group; the program decides what becomes of its engine.
  std::signal(SIGINT, SIG_IGN);
  // A file that grows beyond what is allowed is an error of writing like others.
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    lorelin::engine::EngineServer server(socket, argc >= 3 && std::string_view(argv[2]) == "audio");
    return server.Run();
  } catch (const std::exception&) {
    return 1;
  }
}
