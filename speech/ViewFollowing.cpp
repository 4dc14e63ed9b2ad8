#include "speech/ViewFollowing.h"

#include <algorithm>

namespace lorelin {

bool ViewFollowing::BelongsToTop(Span line, Span view) {
  return line.top < view.top || line.Bottom() > view.Bottom() - view.height / 4;
}

std::optional<int> ViewFollowing::Follow(Span line, Span view) {
  const bool seen = line.top >= view.top && line.Bottom() <= view.Bottom();
  const int third = view.height / 3;
  const bool inMiddle = line.top >= view.top + third && line.Bottom() <= view.Bottom() - third;
  if (state_ == State::Scrolled) state_ = seen ? State::Lenient : State::Away;
  if (state_ == State::Away) {
    if (seen) state_ = State::Lenient;
    return std::nullopt;
  }
  if (state_ == State::Lenient && seen && !inMiddle) return std::nullopt;
  state_ = State::Following;
  const int top = std::max(0, line.top - third);
  if (inMiddle || top == view.top) return std::nullopt;
  return top;
}

}  // namespace lorelin
