#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "ports/Clock.h"

namespace lorelin {

// How a download gets on, for a line that tells it.
class DownloadPace {
 public:
  // The clock must outlive the object.
  explicit DownloadPace(Clock& clock) : clock_(clock) {}

  // Another download is going to be told.
  void Begin() { begun_ = false; }
  void Turn(std::uintmax_t there, std::uintmax_t all);
  // 0 to 100
  [[nodiscard]] int Percent() const;
  // "12,3 von 63,2 MB, 4,1 MB/s, noch 12 Sekunden"; without speed until there is one to tell.
  [[nodiscard]] std::string Text() const;

 private:
  Clock& clock_;
  std::uintmax_t there_ = 0;
  std::uintmax_t all_ = 0;
  std::uintmax_t began_ = 0;  // what was there already
  bool begun_ = false;
  std::chrono::steady_clock::time_point since_{};
  double bytesPerSecond_ = 0;
};

}  // namespace lorelin
