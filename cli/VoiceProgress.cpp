#include "cli/VoiceProgress.h"

#include <unistd.h>

#include <cstdio>

namespace lorelin::cli {
namespace {

constexpr std::chrono::milliseconds kInterval{250};

}  // namespace

VoiceProgress::VoiceProgress(Clock& clock) : pace_(clock), shows_(isatty(STDERR_FILENO) == 1) {}

VoiceProgress::~VoiceProgress() {
  if (shown_) std::fputs("\r\033[K", stderr);
}

void VoiceProgress::Turn(std::uintmax_t there, std::uintmax_t all) {
  if (!shows_) return;
  pace_.Turn(there, all);
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  std::fprintf(stderr, "\r\033[K%3d %%  %s", pace_.Percent(), pace_.Text().c_str());
  std::fflush(stderr);
  shown_ = true;
}

}  // namespace lorelin::cli
