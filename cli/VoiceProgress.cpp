#include "cli/VoiceProgress.h"

#include <array>
#include <cstdio>

namespace lorelin::cli {
namespace {

constexpr std::chrono::milliseconds kInterval{250};

}  // namespace

VoiceProgress::VoiceProgress(Clock& clock) : pace_(clock) {}

void VoiceProgress::Turn(std::uintmax_t there, std::uintmax_t all) {
  if (!line_.Wanted()) return;
  pace_.Turn(there, all);
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  std::array<char, 16> percent{};
  std::snprintf(percent.data(), percent.size(), "%3d %%  ", pace_.Percent());
  line_.Show(percent.data() + pace_.Text());
}

}  // namespace lorelin::cli
