#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "ports/StatusBar.h"

namespace lorelin {

// The one place that says in the status bar what becomes of reading aloud. A message tells what has happened,
// until the next one; what goes on stands beside it for as long as it is true. User-interface thread only.
class ReadingStatus {
 public:
  // When a text was rendered whole, and again when the last of it was heard.
  static constexpr std::string_view kReadToTheEnd = "Der Text wurde vollständig vorgelesen.";

  // Does not own the status bar, which must outlive it.
  explicit ReadingStatus(StatusBar& bar) : bar_(bar) {}
  ReadingStatus(const ReadingStatus&) = delete;
  ReadingStatus& operator=(const ReadingStatus&) = delete;

  // What goes on.
  void Reads();   // a text is heard
  void Pauses();  // it is held
  void Rests();   // nothing is heard any more
  void Renders(bool rendering);
  void ScriptRuns(std::string_view name);  // "" when it has ended
  // What is wrong with an engine instance, of two; a sentence, "" when nothing is any more.
  void SetCondition(std::size_t instance, std::string_view text);

  // What has happened.
  void ReadToTheEnd() { Say(kReadToTheEnd); }
  void Stopped() { Say("Beendet"); }
  void Failed(std::string_view reason) { Say(reason); }
  void Saved(const std::string& path);
  // A file that the user counts on was not written: that stands until the next one is, or a script begins.
  void NotSaved(const std::string& path, std::string_view reason);
  // What was said here last is no longer of interest; what others said stays.
  void Forget();

  // Called when reading begins, is held, goes on or ends.
  void OnChange(std::function<void()> handler) { changed_ = std::move(handler); }
  [[nodiscard]] bool IsReading() const { return state_ == State::Reading; }
  [[nodiscard]] bool IsPaused() const { return state_ == State::Paused; }

 private:
  enum class State { Silent, Reading, Paused };

  void Become(State state);
  void Say(std::string_view text);
  void ShowStanding();

  StatusBar& bar_;
  State state_ = State::Silent;
  bool rendering_ = false;
  std::string script_;
  std::string notSaved_;
  std::array<std::string, 2> conditions_;
  std::string said_;
  std::string shown_;
  std::function<void()> changed_;
};

}  // namespace lorelin
