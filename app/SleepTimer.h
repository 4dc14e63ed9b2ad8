#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "app/commands.h"
#include "ports/Alarm.h"
#include "ports/Clock.h"
#include "ports/MainView.h"
#include "ports/StatusBar.h"
#include "speech/ReadingAlong.h"

namespace lorelin {

// Ends the reading after a time, for those who fall asleep over it, or with the paragraph. User-interface
// thread only.
class SleepTimer {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    Alarm& alarm;
    Clock& clock;
    StatusBar& statusBar;
    MainView& view;
    ReadingAlong& along;
    std::function<void()> stop;  // ends whatever is read and says why
  };

  explicit SleepTimer(Parts parts) : parts_(std::move(parts)) {}

  void AddCommands(CommandTable& commands);
  // Shows in the menu what is set.
  void Show();
  // What ReadingAlong tells.
  void Moved();
  void Ends();

 private:
  void Off();
  void SetMinutes(int minutes);
  void SetParagraph();
  void Set(int minutes);
  void Finish();
  [[nodiscard]] std::size_t Paragraph() const;

  Parts parts_;
  int minutes_ = 0;            // 0: not set, kParagraph: with the paragraph
  std::size_t paragraph_ = 0;  // that it ends with, by its first sentence
  std::size_t jumps_ = 0;
};

}  // namespace lorelin
