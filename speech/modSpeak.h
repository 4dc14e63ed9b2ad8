#pragma once

#include <cstdint>
#include <functional>
#include <optional>
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
#include "speech/ReadingStatus.h"
#include "speech/TracedText.h"

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

  // What becomes of the text that is heard. `begins` and `ends` come in pairs, but for a text that is
  // followed by another; words are told in places of CurrentText.
  struct ReadingEvents {
    std::function<void(std::string source)> begins;  // with what of the document the text was made of
    std::function<void(const HeardWord&)> word;
    std::function<void()> ends;
    std::function<void(bool held)> holds{};  // by a pause, or for something else that is to be heard
  };

  explicit ModSpeak(Parts parts);
  ~ModSpeak();
  ModSpeak(const ModSpeak&) = delete;
  ModSpeak& operator=(const ModSpeak&) = delete;

  void OnReading(ReadingEvents events) { events_ = std::move(events); }
  // The text that is heard, or null.
  [[nodiscard]] const TracedText* CurrentText() const { return heard_ || !traced_ ? nullptr : &*traced_; }
  // Lets the current text be heard from this character of it on, with the voice's settings as they are now. A
  // pause stays one, and the rendering goes on as it was. False when nothing is heard any more.
  bool HearFrom(std::size_t character);

  // Tells both instances now which voice is going to speak, so that they may get it ready.
  void PrepareVoice();

  // Called with false when a text begins to be rendered and with true when its rendering has ended, by
  // whatever cause.
  void OnExportAvailable(std::function<void(bool)> handler);

  // Reads `text` aloud; a blank text stands for the whole document. On return `text` is what the engine was
  // given: prefix, suffix and placeholders applied. `wait` returns only when the speech has ended. `waveFile`
  // is "-1" (keep the current wave file), "" (a new temporary one) or a path. `filter` passes the text
  // through the extensions; when the user gives that up nothing is read. Throws RuntimeError 6 when a stored
  // percentage or voice number overflows, 13 when
  // one is no number; what the engine throws goes to the caller too. Does nothing while the program is
  // loading.
  void Speak(std::string& text, bool wait, const std::string& waveFile, bool filter);

  // Gives an instance that is none of the two the stored voice settings, this one replaced. Throws
  // RuntimeError like Speak.
  void Prepare(DirectSS& instance, const SettingKey& key, const std::string& value);
  // Holds what is heard and lets it go on, without a pause of the user's in between being undone.
  void Hold();
  void Release();

  // Pauses when speech is running by this switch, else resumes; the first time ever it explains itself.
  void PauseSpeech();
  // A text is held by a pause, which nothing but PauseSpeech or another text ends.
  [[nodiscard]] bool Held() const { return paused_; }
  void Stop();
  // Stops what is heard; the rendering of the text runs on to its end.
  void StopHearing();
  // Whether the next switch of PauseSpeech resumes.
  [[nodiscard]] bool IsPaused() const { return speechPaused_ != 0; }

  // The ways to speak of the menu ("Sprechen": waits, document unfiltered), of the toolbar (does not wait,
  // document filtered) and of "Text ab Cursorposition lesen" (from the character left of the caret on).
  // However often they come while another text is prepared or waited for, they do not pile up: of those that
  // came during the preparation the last one is carried out, and one wait serves all.
  void SpeakMenu();
  void SpeakToolbar();
  void ReadFromCursor();
  // Reads the document from this character on, as ReadFromCursor does from the caret.
  void ReadFrom(std::size_t character);
  // Reads the document's selected text as the toolbar does the whole; without a selection it does nothing.
  void ReadSelection();

  // Where the second instance renders to; "" chooses a new temporary file and removes the one before it,
  // which nothing can reach any more (an hour of speech takes 160 MB).
  void SetWaveFile(const std::string& path);
  // A file that was named is for the texts until here; those that follow are rendered into the temporary one.
  void EndNamedWaveFile();
  // Why the last text is not wholly read or rendered; "" when nothing went wrong so far.
  [[nodiscard]] const std::string& Problem() const { return problem_; }
  // How many texts could not be rendered into the file that was named for them.
  [[nodiscard]] int FailedFiles() const { return failedFiles_; }
  [[nodiscard]] ReadingStatus& Status() { return status_; }
  [[nodiscard]] std::string TempWavPath() const;
  // Deletes the files in the temporary folder: files only, links as links, folders stay. Never fails.
  void ClearTempFolder();
  // A whole number from low to high, both included, the bounds half as often as the others. Throws
  // RuntimeError 6 when high - low does not fit 32 bits.
  [[nodiscard]] std::int32_t RandomBetween(std::int32_t low, std::int32_t high);

  [[nodiscard]] DirectSS& Voice() { return parts_.voice; }
  [[nodiscard]] DirectSS& Voice2() { return parts_.voice2; }

 private:
  enum class Wish { Menu, Toolbar, Cursor };

  using Source = std::optional<std::size_t>;  // where a text begins in the document

  void SpeakFrom(std::string& text, Source source, bool wait, const std::string& waveFile, bool filter);
  void TellWord(const HeardWord& word);
  void TellHolding();
  void EndReading();
  void ResetBoth();
  void ApplyVoice(DirectSS& instance);
  void ApplyParameters(DirectSS& instance);
  void CopyParameters();
  // False when the user stopped it before it began.
  [[nodiscard]] bool PrepareAndStart(std::string& text, Source source, const std::string& waveFile,
                                     bool filter);
  // The filter's answer takes the text's place; false when the user gave that up.
  [[nodiscard]] bool Filter(TracedText& text);
  void LogText(const std::string& text);
  void StartBoth(TracedText text, std::string source);
  void WaitForEnd();
  void ShowPauseHintOnce();
  void Serve(Wish wish);
  void ServeWishes();
  void Perform(Wish wish, bool wait);
  void PerformCursor();
  void Voice2Ended(const EndOfText& end);
  void VoiceEnded(const EndOfText& end);
  void AllowExport(bool allowed);
  void SetRendering(bool rendering);
  void RenderingFailed(const std::string& reason);
  // A rendering that is under way has no end any more.
  void DropRendering();
  [[nodiscard]] std::int32_t Percent(const SettingKey& key, std::int32_t lowest, std::int32_t highest) const;

  Parts parts_;
  ReadingStatus status_;
  std::function<void(bool)> exportAvailable_;
  ReadingEvents events_;
  std::optional<TracedText> traced_;
  std::size_t heardFrom_ = 0;  // where in the text the voice began
  std::int32_t speechPaused_ = 0;
  bool paused_ = false;  // other than the switch above, a new text lets go
  std::int32_t tempWavNumber_ = 0;
  std::string namedFile_;   // what the next text is rendered into; "" for the temporary file
  std::string renderedTo_;  // the same of the text that is under way
  bool rendering_ = false;
  bool renderedWhole_ = false;
  bool heard_ = false;
  bool held_ = false;
  std::string problem_;
  int failedFiles_ = 0;
  int preparing_ = 0;  // calls of Speak that have not started their text yet
  int waiting_ = 0;    // and those that wait for the end
  int stops_ = 0;      // how often the user stopped
  bool serving_ = false;
  std::optional<Wish> wish_;
  std::mt19937 random_;
};

// lowest + (highest - lowest) * percent / 100: whole 32-bit arithmetic up to the product (RuntimeError 6 on
// overflow), then rounded to the nearest whole number, halves to even.
[[nodiscard]] std::int32_t MapPercent(std::int32_t percent, std::int32_t lowest, std::int32_t highest);

}  // namespace lorelin
