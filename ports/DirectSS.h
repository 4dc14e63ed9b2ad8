#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lorelin {

// How the processing of a text ended. `reason` is a German sentence for the status bar, empty when complete.
struct EndOfText {
  bool complete = true;
  std::string reason;
  std::chrono::milliseconds length{};  // of what was made; 0 where the engine does not tell
};

// A word of the text that was given, in characters: code points, and bytes that belong to none.
struct HeardWord {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::chrono::milliseconds time{};  // since the file's beginning, of a text that is rendered

  bool operator==(const HeardWord&) const = default;
};

// Port: one instance of the speech engine, with the operations of the DirectSS control; the number behind
// each is its dispatch id there. All calls come from the user-interface thread. No call blocks longer than it
// takes a starting engine to tell its voices (3 s at most, then RuntimeError 440).
//
// An instance plays through the sound device until it is given a wave file; from then on it renders into that
// file. Playing runs in real time; rendering runs as fast as the engine can and leaves a complete WAV file
// (RIFF, PCM) or none. An engine that dies or hangs is noticed and restarted by the instance itself:
// `Speaking` turns false, the end of the text is reported as incomplete, and the properties set before still
// hold for the next text.
class DirectSS {
 public:
  virtual ~DirectSS() = default;

  // Starts speaking or rendering the UTF-8 text and returns at once. A text that is still under way goes
  // first.
  virtual void Speak(std::string_view text) = 0;  // 6
  // A text in parts, cut where speech pauses anyway: the first one starts it like Speak, the others follow
  // while it is under way. Its end is that of the `last` one. A part for which there is no such text, because
  // it was discarded or the engine died, is dropped.
  virtual void SpeakBeginning(std::string_view text) = 0;           // 6
  virtual void ContinueText(std::string_view text, bool last) = 0;  // 6
  // Holds the audio within 100 ms; nothing is lost.
  virtual void PauseAudio() = 0;   // 35
  virtual void ResumeAudio() = 0;  // 37
  // Stops at once and discards what is queued, a pause included. No end of text is reported for what was
  // discarded; a wave file that was not complete is removed.
  virtual void ResetAudio() = 0;              // 36
  [[nodiscard]] virtual bool Speaking() = 0;  // 61; true while paused in a text

  // Voices are numbered from 1. A number that no voice has leaves the current voice as it is.
  virtual void SetCurrentVoice(std::int32_t number) = 0;                 // 69
  [[nodiscard]] virtual std::int32_t VoiceCount() = 0;                   // 18
  [[nodiscard]] virtual std::string VoiceName(std::int32_t number) = 0;  // 23; "" for no voice
  [[nodiscard]] virtual std::int32_t VoiceLanguage(
      std::int32_t number) = 0;  // 30; Windows language id, 0 unknown
  [[nodiscard]] virtual std::int32_t VoiceGender(std::int32_t number) = 0;  // 25; 1 male, 2 female, 0 unknown

  // The ranges are the engine's own; a value outside is taken as the nearest bound, which reading back shows.
  virtual void SetPitch(std::int32_t value) = 0;         // 7
  [[nodiscard]] virtual std::int32_t Pitch() = 0;        // 7
  [[nodiscard]] virtual std::int32_t MinPitch() = 0;     // 9
  [[nodiscard]] virtual std::int32_t MaxPitch() = 0;     // 8
  virtual void SetSpeed(std::int32_t value) = 0;         // 10
  [[nodiscard]] virtual std::int32_t Speed() = 0;        // 10
  [[nodiscard]] virtual std::int32_t MinSpeed() = 0;     // 12
  [[nodiscard]] virtual std::int32_t MaxSpeed() = 0;     // 11
  virtual void SetVolumeLeft(std::int32_t value) = 0;    // 72
  [[nodiscard]] virtual std::int32_t VolumeLeft() = 0;   // 72
  virtual void SetVolumeRight(std::int32_t value) = 0;   // 13
  [[nodiscard]] virtual std::int32_t VolumeRight() = 0;  // 13
  [[nodiscard]] virtual std::int32_t MinVolume() = 0;    // 73
  [[nodiscard]] virtual std::int32_t MaxVolume() = 0;    // 74

  // The file that the next text is rendered into; an existing one is replaced. UTF-8, either separator.
  virtual void SetWaveFile(const std::string& path) = 0;  // 68

  // `handler` runs on the user-interface thread, while events are handled, once the whole text was processed
  // or could not be; never for a discarded one. One handler; an empty one ends the notification.
  virtual void OnEndOfText(std::function<void(const EndOfText&)> handler) = 0;
  // `handler` runs like that of OnEndOfText when a word begins to be heard, in the order of the text; a text
  // in parts is one. Nothing is told of a text that was discarded or is
  // rendered into a file (but see SoundRenderer), and nothing at
  // all by an engine that does not know. One handler; an empty one ends the notification.
  virtual void OnWordHeard(std::function<void(const HeardWord&)> handler) = 0;
};

}  // namespace lorelin
