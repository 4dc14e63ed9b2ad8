#pragma once

#include "import/confinement.h"

namespace lorelin {

// Computing time for one piece of work, counted from when it begins: the process may have computed before.
class ComputingBudget {
 public:
  using Computed = double();  // seconds so far

  explicit ComputingBudget(double seconds, Computed& computed = ComputingTime)
      : computed_(computed), end_(computed() + seconds) {}

  [[nodiscard]] bool IsLeft() const { return computed_() < end_; }

 private:
  Computed& computed_;
  double end_;
};

}  // namespace lorelin
