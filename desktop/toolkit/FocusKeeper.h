#pragma once

#include <memory>

namespace lorelin {

// Remembers what has the focus in the active window and gives it back: where a window that locks the others
// comes up, it would be lost.
class FocusKeeper {
 public:
  FocusKeeper();
  ~FocusKeeper();
  FocusKeeper(const FocusKeeper&) = delete;
  FocusKeeper& operator=(const FocusKeeper&) = delete;

  // Does nothing when that control has gone.
  void GiveBack();

 private:
  struct Place;
  std::unique_ptr<Place> place_;
};

}  // namespace lorelin
