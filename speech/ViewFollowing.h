#pragma once

#include <optional>

namespace lorelin {

// When the view scrolls along with what is read: the line is kept in its middle third. Who scrolls the line
// out of sight is left there until it comes into sight again or is asked for; who scrolls it elsewhere in
// sight is left alone until the voice itself leaves the view.
class ViewFollowing {
 public:
  struct Span {
    int top = 0;
    int height = 0;
    [[nodiscard]] int Bottom() const { return top + height; }
  };

  void ReaderScrolled() { state_ = State::Scrolled; }
  void Return() { state_ = State::Following; }
  // Whether a line that somebody goes to has to come to the top: it is not in sight, or what follows it is
  // not.
  [[nodiscard]] static bool BelongsToTop(Span line, Span view);
  // Where the view has to begin for this line, if it has to move.
  [[nodiscard]] std::optional<int> Follow(Span line, Span view);

 private:
  enum class State { Following, Scrolled, Lenient, Away };

  State state_ = State::Following;
};

}  // namespace lorelin
