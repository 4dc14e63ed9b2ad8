#include "cli/interruption.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iostream>

namespace lorelin::cli {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void OnSignal(int) {
  interrupted = 1;
}

}  // namespace

void NoteInterruptions() {
  struct sigaction action {};
  action.sa_handler = OnSignal;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
  // A file that grows beyond what is allowed is an error of writing like others.
  (void)std::signal(SIGXFSZ, SIG_IGN);
}

void ThrowIfInterrupted() {
  if (interrupted != 0) throw Interruption{};
}

std::string AskOnTerminal(std::string_view question) {
  std::cerr << question << std::flush;
  std::string line;
  char character = 0;
  while (true) {
    const ssize_t size = read(STDIN_FILENO, &character, 1);
    ThrowIfInterrupted();
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0 || character == '\n') return line;
    line.push_back(character);
  }
}

}  // namespace lorelin::cli
