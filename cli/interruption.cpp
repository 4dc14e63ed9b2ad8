#include "cli/interruption.h"

#include <csignal>

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
}

void ThrowIfInterrupted() {
  if (interrupted != 0) throw Interruption{};
}

}  // namespace lorelin::cli
