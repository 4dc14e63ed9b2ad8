#include "engine/AudioOutput.h"

#include <algorithm>
#include <utility>

namespace lorelin::engine {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr int kBufferFrames = 512;
// Buffers that a driver keeps on its own side; the sound has left when so many silent ones followed.
constexpr int kDriverBuffers = 3;
// What the device takes is heard when it takes the next but one.
constexpr std::uint64_t kUntilHeard = std::uint64_t{2} * kBufferFrames;
constexpr milliseconds kStalled{5000};
constexpr milliseconds kIdle{2000};
// What sounds must last until the next sentence is computed, which takes a large voice its time.
constexpr std::size_t kSecondsAhead = 30;

}  // namespace

AudioOutput::AudioOutput(int sampleRate, Notice notice)
    : sampleRate_(sampleRate),
      notice_(std::move(notice)),
      ring_(static_cast<std::size_t>(sampleRate) * kSecondsAhead) {}

AudioOutput::~AudioOutput() {
  Guard guard(mutex_);
  Close(guard);
  guard.unlock();
  if (driverLoaded_) SDL_AudioQuit();
}

void AudioOutput::WarmUp() {
  SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Lorelin");
  if (!driverLoaded_) driverLoaded_ = SDL_AudioInit(nullptr) == 0;
}

bool AudioOutput::OpenDevice() {
  SDL_AudioSpec wanted{};
  wanted.freq = sampleRate_;
  wanted.format = AUDIO_S16SYS;
  wanted.channels = 1;
  wanted.samples = kBufferFrames;
  wanted.callback = &Callback;
  wanted.userdata = this;
  device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  return device_ != 0;
}

// The device's thread asks for samples while it is opened and closed, so the lock must not be held then.
void AudioOutput::Open(Guard& guard) {
  guard.unlock();
  WarmUp();
  if (silentDriver_ && !freshlySilent_) TryDeviceAgain();
  freshlySilent_ = false;
  const bool open = device_ != 0 || (driverLoaded_ && OpenDevice());
  if (open) SDL_PauseAudioDevice(device_, 0);
  guard.lock();
  lastTaken_ = lastSound_ = steady_clock::now();
  if (!open && !silentDriver_) UseSilentDriver(guard);
}

void AudioOutput::Close(Guard& guard) {
  if (device_ == 0) return;
  const SDL_AudioDeviceID device = std::exchange(device_, 0);
  guard.unlock();
  SDL_CloseAudioDevice(device);
  guard.lock();
}

void AudioOutput::UseSilentDriver(Guard& guard) {
  Close(guard);
  silentDriver_ = freshlySilent_ = true;
  guard.unlock();
  if (driverLoaded_) SDL_AudioQuit();
  driverLoaded_ = SDL_AudioInit("dummy") == 0;
  notice_(true);
  guard.lock();
  Open(guard);
}

void AudioOutput::TryDeviceAgain() {
  if (driverLoaded_) SDL_AudioQuit();
  driverLoaded_ = SDL_AudioInit(nullptr) == 0;
  if (driverLoaded_ && OpenDevice()) {
    silentDriver_ = false;
    notice_(false);
    return;
  }
  if (driverLoaded_) SDL_AudioQuit();
  driverLoaded_ = SDL_AudioInit("dummy") == 0;
}

bool AudioOutput::WaitFor(Guard& guard, const std::function<bool()>& ready) {
  while (!discarded_ && !ready()) {
    if (device_ != 0 || !paused_) {
      changed_.wait_for(guard, kIdle / 2);
    } else {
      changed_.wait(guard);
    }
    if (!discarded_ && !ready()) TendDevice(guard);
  }
  return !discarded_;
}

void AudioOutput::TendDevice(Guard& guard) {
  const auto now = steady_clock::now();
  if (paused_) {
    // A long pause costs no processor time.
    if (device_ != 0 && now - lastSound_ > kIdle) Close(guard);
  } else if (device_ == 0) {
    Open(guard);
  } else if (now - lastTaken_ > kStalled && !silentDriver_) {
    UseSilentDriver(guard);
  }
}

bool AudioOutput::Write(std::span<const std::int16_t> samples) {
  Guard guard(mutex_);
  if (device_ == 0) Open(guard);
  while (!samples.empty()) {
    if (!WaitFor(guard, [this] { return count_ < ring_.size(); })) return false;
    const std::size_t room = std::min(samples.size(), ring_.size() - count_);
    for (std::size_t i = 0; i < room; ++i) ring_[(first_ + count_ + i) % ring_.size()] = samples[i];
    count_ += room;
    silentBuffers_ = 0;
    samples = samples.subspan(room);
    if (device_ == 0) Open(guard);
  }
  return !discarded_;
}

bool AudioOutput::Drain() {
  Guard guard(mutex_);
  if (device_ == 0 && count_ == 0) return !discarded_;
  // A word that has no sample of its own comes with the last one.
  const std::uint64_t end = samplesTaken_ + count_;
  for (auto& [sample, word] : words_) sample = std::min(sample, std::max<std::uint64_t>(end, 1) - 1);
  return WaitFor(guard, [this] {
    return count_ == 0 && silentBuffers_ > kDriverBuffers && underWay_.empty() && !telling_;
  });
}

void AudioOutput::Mark(std::uint64_t sample, const HeardWord& word) {
  const Guard guard(mutex_);
  if (!discarded_) words_.emplace_back(sample, word);
}

std::optional<HeardWord> AudioOutput::NextWord() {
  Guard guard(mutex_);
  telling_ = false;
  changed_.notify_all();
  changed_.wait(guard, [this] {
    return wordsEnded_ || (!underWay_.empty() && underWay_.front().first + kUntilHeard <= deviceClock_);
  });
  if (wordsEnded_) return std::nullopt;
  telling_ = true;
  const HeardWord word = underWay_.front().second;
  underWay_.pop_front();
  return word;
}

void AudioOutput::EndWords() {
  const Guard guard(mutex_);
  wordsEnded_ = true;
  changed_.notify_all();
}

void AudioOutput::SendWords(std::size_t taken, std::size_t wanted) {
  while (!words_.empty() && words_.front().first < samplesTaken_ + taken) {
    const std::uint64_t sample = std::max(words_.front().first, samplesTaken_);
    underWay_.emplace_back(deviceClock_ + (sample - samplesTaken_), words_.front().second);
    words_.pop_front();
  }
  samplesTaken_ += taken;
  deviceClock_ += wanted;
}

void AudioOutput::ForgetWords() {
  words_.clear();
  underWay_.clear();
  samplesTaken_ = 0;
}

milliseconds AudioOutput::CloseIdle() {
  Guard guard(mutex_);
  if (device_ == 0) return milliseconds::zero();
  const auto silence = std::chrono::duration_cast<milliseconds>(steady_clock::now() - lastSound_);
  if (silence < kIdle) return kIdle - silence + milliseconds(1);
  Close(guard);
  return milliseconds::zero();
}

void AudioOutput::SetPaused(bool paused) {
  const Guard guard(mutex_);
  paused_ = paused;
  lastTaken_ = steady_clock::now();
  changed_.notify_all();
}

void AudioOutput::Discard() {
  const Guard guard(mutex_);
  discarded_ = true;
  paused_ = false;
  first_ = count_ = 0;
  ForgetWords();
  changed_.notify_all();
}

void AudioOutput::Restart() {
  const Guard guard(mutex_);
  discarded_ = false;
  first_ = count_ = 0;
  ForgetWords();
}

void AudioOutput::Take(std::int16_t* samples, std::size_t wanted) {
  const Guard guard(mutex_);
  const std::size_t taken = paused_ ? 0 : std::min(wanted, count_);
  for (std::size_t i = 0; i < taken; ++i) samples[i] = ring_[(first_ + i) % ring_.size()];
  std::fill(samples + taken, samples + wanted, std::int16_t{0});
  first_ = (first_ + taken) % ring_.size();
  count_ -= taken;
  SendWords(taken, wanted);
  lastTaken_ = steady_clock::now();
  if (taken > 0) lastSound_ = lastTaken_;
  if (count_ == 0 && !paused_ && silentBuffers_ <= kDriverBuffers) ++silentBuffers_;
  changed_.notify_all();
}

void AudioOutput::Callback(void* self, Uint8* bytes, int size) {
  static_cast<AudioOutput*>(self)->Take(reinterpret_cast<std::int16_t*>(bytes),
                                        static_cast<std::size_t>(size) / sizeof(std::int16_t));
}

}  // namespace lorelin::engine
