#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fstream>
#include <string_view>

#include "base/consoleAnswers.h"
#include "engine/EngineServer.h"
#include "engine/engineRights.h"

namespace {

constexpr std::string_view kHelp =
    "lorelin-engine spricht für lorelin und lorelin-cli; diese starten es selbst.\n"
    "\n"
    "  lorelin-engine SOCKET [audio]\n"
    "                 gibt aus, was über den verbundenen Socket dieser Nummer kommt: als Datei, mit „audio“ "
    "auch\n"
    "                 hörbar\n"
    "\n"
    "Optionen:\n"
    "  --help     zeigt diese Hilfe\n"
    "  --version  nennt die Version\n";

// What renders into files gives way to what is heard.
void GiveWay() {
  constexpr int kStepsBack = 10;
  setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + kStepsBack);
}

// A model that asks for more than half of the machine's memory is refused by the system, before it takes the
// memory of everybody else. What a checking build reserves at its start is more than that already.
void LimitMemory() {
  std::uintmax_t used = 0;
  std::ifstream("/proc/self/statm") >> used;
  const auto page = static_cast<std::uintmax_t>(sysconf(_SC_PAGESIZE));
  const auto least = std::uintmax_t{2} << 30U;
  const rlim_t most = std::max(least, static_cast<std::uintmax_t>(sysconf(_SC_PHYS_PAGES)) * page / 2);
  rlimit limit{};
  if (used * page >= most || getrlimit(RLIMIT_AS, &limit) != 0) return;
  limit.rlim_cur = std::min(limit.rlim_cur, most);
  setrlimit(RLIMIT_AS, &limit);
}

}  // namespace

// lorelin-engine SOCKET [audio|files [FOLDER]]: speaks for the program at the other end of the connected
// socket with this number, and writes files into this folder.
int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, kHelp)) return 0;
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
    const bool audible = argc >= 3 && std::string_view(argv[2]) == "audio";
    if (!audible) GiveWay();
    LimitMemory();
    lorelin::engine::EngineServer server(socket, audible);
    // Whoever waits for the greeting need not wait for what follows; no text has been read yet.
    if (!server.Greet()) return 0;
    const auto rights = lorelin::engine::KeepEngineRights(argc >= 4 ? argv[3] : "");
    if (!rights.filesKept || !rights.callsKept) server.TellUnconfined(rights.callsKept);
    return server.Run();
  } catch (const std::exception&) {
    return 1;
  }
}
