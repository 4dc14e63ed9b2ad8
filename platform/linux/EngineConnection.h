#pragma once

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include "engine/RestartBudget.h"
#include "engine/protocol.h"
#include "ports/Clock.h"
#include "ports/Log.h"

namespace lorelin {

// One engine process and the socket to it. A thread of its own does all reading and writing, so that no
// caller ever waits for the engine; it sleeps while nothing is under way.
class EngineConnection {
 public:
  struct Handlers {
    // Called on the connection's thread.
    std::function<void(const engine::Ended&)> ended;
    std::function<void(const engine::HeardWord&)> heard;
    // What is wrong with the instance, and "" when nothing is any more.
    std::function<void(const std::string&)> condition;
  };

  // How long the engine may take before it is given up and replaced.
  struct Patience {
    std::chrono::milliseconds greeting{4000};  // from its start to its first message
    std::chrono::milliseconds answer{2000};    // to a question, and to take in what it is sent
  };

  // `folder` is where sound files are going to be written, "" when that is not known yet.
  EngineConnection(std::string engineFile, bool audible, const std::string& folder, Patience patience,
                   Handlers handlers, Clock& clock, Log& log);
  // Ends the process and waits for it.
  ~EngineConnection();
  EngineConnection(const EngineConnection&) = delete;
  EngineConnection& operator=(const EngineConnection&) = delete;

  // Sends the text; every text's end is told by `ended` or forgotten by Reset.
  void Speak(const engine::Utterance& utterance);
  // More of the text with the part's number; dropped when that is no longer under way.
  void Continue(const engine::TextPart& part);
  void Prepare(std::int32_t voice) {
    Send(engine::FrameNumber(engine::Kind::Prepare, static_cast<std::uint32_t>(voice)));
  }
  void Pause() { Send(engine::Frame(engine::Kind::Pause)); }
  void Resume() { Send(engine::Frame(engine::Kind::Resume)); }
  // Whether a text was under way.
  bool Reset();
  [[nodiscard]] bool Speaking() const;
  // What the engine told of itself; waits for it as long as it may take, and some time for the one that takes
  // its place. Throws RuntimeError 440 when it never did.
  [[nodiscard]] std::shared_ptr<const engine::Capabilities> WaitForCapabilities();
  // Whether the engine has told or is going to tell something else.
  [[nodiscard]] bool HasNewCapabilities(const engine::Capabilities* known) const;
  // Another process takes the place of this one, now or when the text that is under way has ended.
  void Renew();
  [[nodiscard]] int ProcessId() const;
  [[nodiscard]] std::chrono::microseconds LastStartLatency() const;

 private:
  using Time = std::chrono::steady_clock::time_point;
  using Guard = std::unique_lock<std::mutex>;

  // The folder that the engine may write into; "" for none.
  struct Place {
    std::string folder;
    dev_t device = 0;
    ino_t number = 0;

    bool operator==(const Place&) const = default;
  };

  void Run();
  void Send(std::string frame);
  void Queue(std::string frame);
  void Wake() const;
  bool Start();
  // The process is gone or given up: tells the end of its text and starts another while the budget lasts.
  void Lost(Guard& guard);
  [[nodiscard]] static Place PlaceOf(const std::string& folder);
  void MoveTo(Place place);
  void Reap();
  void Restart(Guard& guard);
  void RenewIfIdle();
  // Replaces an engine that hangs. Neither a new text nor a reset gives it more time.
  void WatchPatience(Guard& guard);
  [[nodiscard]] bool Hangs(Time now) const;
  void Ask(Time now);
  [[nodiscard]] int PollTimeout() const;
  bool Receive(Guard& guard);
  bool Transmit();
  bool Handle(const engine::Message& message, Guard& guard);
  void TellEnd(const engine::Ended& end, Guard& guard);
  void HandleEnded(const engine::Message& message, Guard& guard);
  bool HandleWord(const engine::Message& message, Guard& guard);
  bool HandleHello(const engine::Message& message, Guard& guard);
  void HandleNotice(std::uint32_t code, Guard& guard);
  void LogOnce(std::string_view line);
  bool HandleRemark(const engine::Message& message, Guard& guard);
  void SetCondition(std::string_view text, Guard& guard);

  const std::string engineFile_;
  const bool audible_;
  const Patience patience_;
  const Handlers handlers_;
  Clock& clock_;
  Log& log_;

  Place place_;
  mutable std::mutex mutex_;
  std::condition_variable told_;
  RestartBudget budget_;
  pid_t process_ = -1;
  int socket_ = -1;
  int wake_ = -1;
  bool closing_ = false;
  std::deque<std::string> outbox_;  // frames
  std::size_t sent_ = 0;            // bytes of the first one
  engine::FrameReader inbox_;
  std::shared_ptr<const engine::Capabilities> capabilities_;
  bool toRenew_ = false;       // another process is to take this one's place
  bool renewing_ = false;      // it was started and has not told its voices
  std::string condition_;      // what was told last
  std::uint32_t current_ = 0;  // the utterance under way; 0 for none
  std::string currentFile_;
  std::uint32_t pings_ = 0;
  std::uint32_t pongs_ = 0;
  bool toldRights_ = false;
  bool greeted_ = false;  // the engine has told what it can do
  Time startedAt_{};
  Time lastPing_{};
  Time lastProgress_{};  // when the engine took something in, or there was something for it again
  Time lastLook_{};
  Time spokenAt_{};
  std::chrono::microseconds startLatency_{};
  std::thread thread_;
};

}  // namespace lorelin
