#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace lorelin {

enum class RemoteRequest {
  Play,
  Pause,
  PlayPause,
  Stop,
  Next,
  Previous,
  Raise,
  Quit,
  ReadSelection,  // what is selected in the program in front
  ReadFiles,
};

struct RemoteOrder {
  // NOLINTNEXTLINE(google-explicit-constructor): most requests say all by themselves
  RemoteOrder(RemoteRequest what, std::vector<std::string> paths = {})
      : request(what), files(std::move(paths)) {}

  RemoteRequest request;
  std::vector<std::string> files;  // to read, absolute paths; with ReadFiles only
};

enum class Playback { Stopped, Playing, Paused };

// What is told to those who control the program.
struct RemoteState {
  Playback playback = Playback::Stopped;
  std::string title;                     // of what is read
  std::chrono::microseconds position{};  // how long it has been heard, pauses left out
};

// Port: what works the program from outside, such as the player controls of a desktop, the media keys of a
// keyboard, a second start. User-interface thread only.
class RemoteControl {
 public:
  virtual ~RemoteControl() = default;
  // The handler is called from the event loop, never inside a call of this port; {} ends it.
  virtual void OnRequest(std::function<void(const RemoteOrder&)> handler) = 0;
  // At every change; between two changes the position grows by itself while something plays.
  virtual void Tell(const RemoteState& state) = 0;
  // Asks the instance of the program that runs for this user; false when none answers.
  [[nodiscard]] virtual bool AskRunning(const RemoteOrder& order) = 0;
};

}  // namespace lorelin
