#include "app/TextSize.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace lorelin {

void TextSize::Restore() {
  const std::string stored = settings_.Get(setting::TextSize);
  int steps = 0;
  std::from_chars(stored.data(), stored.data() + stored.size(), steps);
  steps_ = std::clamp(steps, -kMostSteps, kMostSteps);
  if (steps_ != 0) editing_.SetZoom(steps_);
}

void TextSize::Show(int steps) {
  steps_ = std::clamp(steps, -kMostSteps, kMostSteps);
  editing_.SetZoom(steps_);
  settings_.Save(setting::TextSize, std::to_string(steps_));
}

}  // namespace lorelin
