#pragma once

#include <chrono>
#include <string_view>

#include "ports/Clock.h"
#include "ports/ProgressWindow.h"

namespace lorelin {

// The progress of something that is mostly done at once: the window comes only when it takes longer, and goes
// with this. Owns neither.
class LateProgress {
 public:
  LateProgress(ProgressWindow& window, Clock& clock)
      : window_(window), clock_(clock), begin_(clock.Steady()) {}
  ~LateProgress() {
    if (shown_) window_.Close();
  }
  LateProgress(const LateProgress&) = delete;
  LateProgress& operator=(const LateProgress&) = delete;

  // False when the user wants to stop; `done` as in ProgressWindow.
  bool Show(std::string_view text, double done) {
    if (clock_.Steady() - begin_ < kPatience) return true;
    shown_ = true;
    return window_.Show(text, done);
  }

 private:
  static constexpr std::chrono::milliseconds kPatience{200};

  ProgressWindow& window_;
  Clock& clock_;
  std::chrono::steady_clock::time_point begin_;
  bool shown_ = false;
};

}  // namespace lorelin
