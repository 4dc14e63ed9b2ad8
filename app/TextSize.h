#pragma once

#include "ports/EditorCommands.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// How large text and pages are shown, in steps from the usual size; remembered. User-interface thread only.
class TextSize {
 public:
  static constexpr int kMostSteps = 12;

  // Owns neither.
  TextSize(EditorCommands& editing, SettingsStore& settings) : editing_(editing), settings_(settings) {}

  void Larger() { Show(steps_ + 1); }
  void Smaller() { Show(steps_ - 1); }
  void Usual() { Show(0); }
  // As it was when the program ended.
  void Restore();

 private:
  void Show(int steps);

  EditorCommands& editing_;
  SettingsStore& settings_;
  int steps_ = 0;
};

}  // namespace lorelin
