#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

namespace lorelin {

// How fast a text is read, by what of it was heard so far; what was heard last counts most.
class ReadingPace {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Another text begins.
  void Begin(Time now);
  // A word is heard that begins at this character. `jumped`: the voice was moved there.
  void Heard(Time now, std::size_t character, bool jumped);
  // The voice is held, or goes on.
  void Hold(Time now, bool held);
  // What was heard so far says nothing about what follows.
  void ChangeSpeed();

  // How long the text has been heard, pauses left out.
  [[nodiscard]] std::chrono::seconds Gone() const;
  // How long so many characters will take; nothing while too little was heard.
  [[nodiscard]] std::optional<std::chrono::seconds> Left(std::size_t characters) const;

 private:
  void Pass(Time now);

  Time since_;
  bool held_ = false;
  double passed_ = 0;  // seconds since the last word
  double gone_ = 0;    // seconds
  double seconds_ = 0;
  double characters_ = 0;
  std::optional<std::size_t> last_;
};

}  // namespace lorelin
