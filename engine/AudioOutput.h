#pragma once

#include <SDL2/SDL.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "engine/protocol.h"

namespace lorelin::engine {

// The sound device through SDL2: a queue that the device's own thread empties. Where there is no device that
// works, the samples pass in real time without a sound. Write, Drain and CloseIdle belong to one thread, the
// rest to any.
class AudioOutput {
 public:
  using Notice = std::function<void(bool silent)>;

  // `notice` is called with true when texts have to pass without a device, and with false when one is there
  // again.
  AudioOutput(int sampleRate, Notice notice);
  ~AudioOutput();
  AudioOutput(const AudioOutput&) = delete;
  AudioOutput& operator=(const AudioOutput&) = delete;

  // Loads the audio driver, so that opening the device is quick later.
  void WarmUp();
  // Opens the device if need be and queues the samples; waits while the queue is full. False after Discard.
  bool Write(std::span<const std::int16_t> samples);
  // Waits until the last sample was played. False after Discard.
  bool Drain();
  // The word begins with this sample of those that are written since Restart; before the sample is written
  // and in order. Somebody has to ask for the words.
  void Mark(std::uint64_t sample, const HeardWord& word);
  // Waits for the next word to be heard: when its first sample leaves the device, whatever pauses come in
  // between. None after EndWords. One thread of its own.
  [[nodiscard]] std::optional<HeardWord> NextWord();
  void EndWords();
  // Closes the device when nothing was played for a while. Returns when to ask again, zero when it is closed.
  std::chrono::milliseconds CloseIdle();

  // Holds the sound: silence follows within one device buffer, the queue stays as it is.
  void SetPaused(bool paused);
  // Empties the queue and fails what waits, until Restart.
  void Discard();
  void Restart();

 private:
  using Guard = std::unique_lock<std::mutex>;

  void Open(Guard& guard);
  void Close(Guard& guard);
  void UseSilentDriver(Guard& guard);
  // A device may have come meanwhile: leaves the silent driver for it. Called without the lock.
  void TryDeviceAgain();
  bool OpenDevice();
  bool WaitFor(Guard& guard, const std::function<bool()>& ready);
  // While something waits: a device that takes nothing for long is given up, one that is paused for long is
  // closed.
  void TendDevice(Guard& guard);
  void Take(std::int16_t* samples, std::size_t count);
  // The words among the samples that are taken next are on their way.
  void SendWords(std::size_t taken, std::size_t wanted);
  void ForgetWords();
  static void Callback(void* self, Uint8* bytes, int size);

  const int sampleRate_;
  Notice notice_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::int16_t> ring_;
  std::size_t first_ = 0;
  std::size_t count_ = 0;
  std::deque<std::pair<std::uint64_t, HeardWord>> words_;     // by the samples since Restart
  std::deque<std::pair<std::uint64_t, HeardWord>> underWay_;  // by the samples that the device took ever
  std::uint64_t samplesTaken_ = 0;                            // since Restart
  std::uint64_t deviceClock_ = 0;                             // samples and silence that the device took
  bool telling_ = false;                                      // somebody has a word and has not come back
  bool wordsEnded_ = false;
  int silentBuffers_ = 0;  // device buffers filled since the queue ran empty
  bool paused_ = false;
  bool discarded_ = false;
  bool driverLoaded_ = false;
  bool silentDriver_ = false;
  bool freshlySilent_ = false;  // no device was found just now
  std::chrono::steady_clock::time_point lastTaken_{};
  std::chrono::steady_clock::time_point lastSound_{};
  SDL_AudioDeviceID device_ = 0;
};

}  // namespace lorelin::engine
