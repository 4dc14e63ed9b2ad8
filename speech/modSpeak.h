#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>

#include "base/StartupState.h"
#include "extensions/modAddin.h"
#include "ports/Clock.h"
#include "ports/DirectSS.h"
#include "ports/DocumentEditor.h"
#include "ports/EventPump.h"
#include "ports/FileSearch.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "ports/StatusBar.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// Everything that is read aloud goes through here. Two engine instances: `voice` is heard, `voice2` renders
// the same text into the wave file that can be exported. User-interface thread only; re-entrant, since events
// are let in while it waits.
class ModSpeak {
 public:
  // What the module works with; it owns none of it.
  struct Parts {
    DirectSS& voice;
    DirectSS& voice2;
    DocumentEditor& document;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    EventPump& pump;
    Clock& clock;
    FileSearch& fileSearch;
    Log& log;
    SettingsStore& settings;
    ModAddin& extensions;
    StartupState& startup;
    std::string programFolder;  // without trailing separator
  };

  // What the status bar says when a text was rendered whole and nothing cut off its playing.
  static constexpr std::string_view kReadToTheEnd = "Der Text wurde vollständig vorgelesen.";

  explicit ModSpeak(Parts parts);
  ~ModSpeak();
  ModSpeak(const ModSpeak&) = delete;
  ModSpeak& operator=(const ModSpeak&) = delete;

  // Called with false when a text begins to be rendered and with true when its rendering has ended.
  void OnExportAvailable(std::function<void(bool)> handler);

  // Reads `text` aloud; a blank text stands for the whole document. On return `text` is what the engine was
  // given: prefix, suffix and placeholders applied. `wait` returns only when the speech has ended. `waveFile`
  // is "-1" (keep the current wave file), "" (a new temporary one) or a path. `filter` passes the text
  // through the extensions; when the user gives that up nothing is read. Throws RuntimeError 6 when a stored
  // percentage or voice number overflows, 13 when
  // one is no number; what the engine throws goes to the caller too. Does nothing while the program is
  // loading.
  void Speak(std::string& text, bool wait, const std::string& waveFile, bool filter);

  // Speaks a sample with these voice settings instead of the stored ones, by the audible instance only: what
  // can be exported stays as it is. Throws RuntimeError like Speak.
  void SpeakSample(const std::string& text, const SettingKey& key, const std::string& value);

  // Pauses when speech is running by this switch, else resumes; the first time ever it explains itself.
  void PauseSpeech();
  // A text is held by a pause, which nothing but PauseSpeech or another text ends.
  [[nodiscard]] bool Held() const { return held_; }
  void Stop();

  // The ways to speak of the menu ("Sprechen": waits, document unfiltered), of the toolbar (does not wait,
  // document filtered) and of "Text ab Cursorposition lesen" (from the character left of the caret on).
  void SpeakMenu();
  void SpeakToolbar();
  void ReadFromCursor();

  // Where the second instance renders to; "" chooses a new temporary file and removes the one before it,
  // which nothing can reach any more (an hour of speech takes 160 MB).
  void SetWaveFile(const std::string& path);
  [[nodiscard]] std::string TempWavPath() const;
  // Deletes the files in the temporary folder: files only, links as links, folders stay. Never fails.
  void ClearTempFolder();
  // A whole number from low to high, both included, the bounds half as often as the others. Throws
  // RuntimeError 6 when high - low does not fit 32 bits.
  [[nodiscard]] std::int32_t RandomBetween(std::int32_t low, std::int32_t high);

  [[nodiscard]] DirectSS& Voice() { return parts_.voice; }
  [[nodiscard]] DirectSS& Voice2() { return parts_.voice2; }

 private:
  [[nodiscard]] std::string Decorate(const std::string& text) const;
  void ResetBoth();
  void ApplyVoice();
  void ApplyParameters();
  void CopyParameters();
  void WaitForEnd();
  void ShowPauseHintOnce();
  void Voice2Ended(const EndOfText& end);
  void VoiceEnded(const EndOfText& end);
  [[nodiscard]] std::int32_t Percent(const SettingKey& key, std::int32_t lowest, std::int32_t highest) const;

  Parts parts_;
  std::function<void(bool)> exportAvailable_;
  std::int32_t speechPaused_ = 0;
  bool held_ = false;  // other than the switch above, a new text lets go
  std::int32_t tempWavNumber_ = 0;
  // The audible instance lost the current text: the rendering's success must not claim that all was read.
  bool voiceCutShort_ = false;
  std::mt19937 random_;
};

// lowest + (highest - lowest) * percent / 100: whole 32-bit arithmetic up to the product (RuntimeError 6 on
// overflow), then rounded to the nearest whole number, halves to even.
[[nodiscard]] std::int32_t MapPercent(std::int32_t percent, std::int32_t lowest, std::int32_t highest);

// The text with "$Zeit[s]", "$Zeit[m]", "$Zeit[h]" and "$Zeit[w]" replaced by numbers without leading zeros.
[[nodiscard]] std::string ReplaceTimePlaceholders(std::string text, Clock& clock);

}  // namespace lorelin
