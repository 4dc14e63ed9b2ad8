#include "speech/modSpeak.h"

#include <cmath>
#include <exception>
#include <limits>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/conversion.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "speech/decoration.h"
#include "speech/temporaryFiles.h"
#include "speech/voiceSettings.h"

namespace lorelin {
namespace {

constexpr std::string_view kKeepWaveFile = "-1";

std::int32_t Checked(std::int64_t number) {
  if (number < std::numeric_limits<std::int32_t>::min() ||
      number > std::numeric_limits<std::int32_t>::max()) {
    throw RuntimeError(ErrorNumber::Overflow);
  }
  return static_cast<std::int32_t>(number);
}

// A count that is one higher as long as this lives, whatever ends it.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

class OverriddenSetting {
 public:
  OverriddenSetting(SettingsStore& settings, const SettingKey& key, const std::string& value)
      : settings_(settings), key_(key) {
    settings_.Override(key_, value);
  }
  ~OverriddenSetting() { settings_.EndOverride(key_); }
  OverriddenSetting(const OverriddenSetting&) = delete;
  OverriddenSetting& operator=(const OverriddenSetting&) = delete;

 private:
  SettingsStore& settings_;
  const SettingKey& key_;
};

}  // namespace

std::int32_t MapPercent(std::int32_t percent, std::int32_t lowest, std::int32_t highest) {
  const std::int32_t span = Checked(std::int64_t{highest} - lowest);
  const std::int32_t product = Checked(std::int64_t{span} * percent);
  return RoundToLong(lowest + product / 100.0);
}

ModSpeak::ModSpeak(Parts parts) : parts_(std::move(parts)), status_(parts_.statusBar) {
  parts_.voice.OnEndOfText([this](const EndOfText& end) { VoiceEnded(end); });
  parts_.voice.OnWordHeard([this](const HeardWord& word) { TellWord(word); });
  parts_.voice2.OnEndOfText([this](const EndOfText& end) { Voice2Ended(end); });
}

ModSpeak::~ModSpeak() {
  parts_.voice.OnEndOfText({});
  parts_.voice.OnWordHeard({});
  parts_.voice2.OnEndOfText({});
}

void ModSpeak::OnExportAvailable(std::function<void(bool)> handler) {
  exportAvailable_ = std::move(handler);
}

void ModSpeak::Speak(std::string& text, bool wait, const std::string& waveFile, bool filter) {
  SpeakFrom(text, std::nullopt, wait, waveFile, filter);
}

void ModSpeak::SpeakFrom(std::string& text, Source source, bool wait, const std::string& waveFile,
                         bool filter) {
  if (parts_.startup.loadingInProgress) return;
  bool started = false;
  try {
    const Counted preparing(preparing_);
    started = PrepareAndStart(text, source, waveFile, filter);
  } catch (...) {
    if (preparing_ == 0) wish_.reset();
    throw;
  }
  if (preparing_ == 0) ServeWishes();
  if (wait && started) WaitForEnd();
}

bool ModSpeak::PrepareAndStart(std::string& text, Source source, const std::string& waveFile, bool filter) {
  const int stops = stops_;
  if (waveFile == kKeepWaveFile) {
    parts_.pump.RunPendingEvents();
  } else {
    SetWaveFile(waveFile);
  }
  TracedText traced(text, source);
  std::string written = source ? text : std::string();
  if (filter && !Filter(traced)) return false;
  if (WithoutBlanks(traced.Text()).empty()) {
    written = parts_.document.Text();
    traced = TracedText(written, 0);
  }
  Decorate(traced, parts_.settings, parts_.clock.Now());
  text = traced.Text();
  ResetBoth();
  parts_.pump.RunPendingEvents();
  ApplyVoice(parts_.voice);
  ApplyVoice(parts_.voice2);
  ApplyParameters(parts_.voice);
  CopyParameters();
  AllowExport(false);
  parts_.pump.RunPendingEvents();
  // Who stopped it meanwhile does not want to hear it.
  if (stops == stops_) {
    StartBoth(std::move(traced), std::move(written));
    return true;
  }
  if (!rendering_) AllowExport(true);
  return false;
}

bool ModSpeak::Filter(TracedText& text) {
  std::optional<std::string> filtered = parts_.extensions.FilterText(text.Text());
  if (filtered) text.Rewritten(std::move(*filtered));
  return filtered.has_value();
}

// Nobody's log tells what was read, unless its owner wants to find out what went wrong with it.
void ModSpeak::LogText(const std::string& text) {
  if (IsOn(setting::LogTexts, parts_.settings.Get(setting::LogTexts)))
    parts_.log.Write("Vorgelesen wird: " + text);
}

void ModSpeak::StartBoth(TracedText text, std::string source) {
  LogText(text.Text());
  problem_.clear();
  traced_ = std::move(text);
  heardFrom_ = 0;
  renderedTo_ = namedFile_;
  renderedWhole_ = heard_ = held_ = paused_ = false;
  try {
    parts_.voice.Speak(traced_->Text());
    status_.Reads();
    if (events_.begins) events_.begins(std::move(source));
    parts_.voice2.Speak(traced_->Text());
  } catch (...) {
    SetRendering(false);
    throw;
  }
  rendering_ = true;
  status_.Renders(true);
}

void ModSpeak::Prepare(DirectSS& instance, const SettingKey& key, const std::string& value) {
  const OverriddenSetting sample(parts_.settings, key, value);
  ApplyVoice(instance);
  ApplyParameters(instance);
}

void ModSpeak::Hold() {
  if (held_ || !status_.IsReading()) return;
  parts_.voice.PauseAudio();
  held_ = true;
  TellHolding();
}

void ModSpeak::Release() {
  if (!std::exchange(held_, false)) return;
  if (status_.IsReading()) parts_.voice.ResumeAudio();
  TellHolding();
}

void ModSpeak::TellHolding() {
  if (events_.holds && CurrentText() != nullptr) events_.holds(held_ || paused_);
}

bool ModSpeak::HearFrom(std::size_t character) {
  if (CurrentText() == nullptr || !parts_.voice.Speaking()) return false;
  const bool paused = status_.IsPaused();
  parts_.voice.ResetAudio();
  ApplyVoice(parts_.voice);
  ApplyParameters(parts_.voice);
  heardFrom_ = character;
  parts_.voice.Speak(FromCharacter(traced_->Text(), character));
  if (paused || held_) parts_.voice.PauseAudio();
  return true;
}

void ModSpeak::TellWord(const HeardWord& word) {
  if (events_.word) events_.word({heardFrom_ + word.begin, heardFrom_ + word.end});
}

void ModSpeak::EndReading() {
  if (!traced_) return;
  traced_.reset();
  if (events_.ends) events_.ends();
}

void ModSpeak::ResetBoth() {
  held_ = paused_ = false;
  EndReading();
  parts_.voice.ResetAudio();
  // One that has ended already will be told as such.
  const bool rendering = rendering_ && parts_.voice2.Speaking();
  parts_.voice2.ResetAudio();
  if (rendering) DropRendering();
}

void ModSpeak::ApplyVoice(DirectSS& instance) {
  instance.SetCurrentVoice(Checked(std::int64_t{StoredNumber(parts_.settings, setting::Voice)} + 1));
}

void ModSpeak::PrepareVoice() {
  try {
    ApplyVoice(parts_.voice);
    ApplyVoice(parts_.voice2);
  } catch (const RuntimeError& error) {
    parts_.log.Write(std::string("Stimme: ") + error.what());  // whoever speaks is told
  }
}

std::int32_t ModSpeak::Percent(const SettingKey& key, std::int32_t lowest, std::int32_t highest) const {
  return MapPercent(StoredNumber(parts_.settings, key), lowest, highest);
}

void ModSpeak::ApplyParameters(DirectSS& voice) {
  voice.SetPitch(Percent(setting::Pitch, voice.MinPitch(), voice.MaxPitch()));
  voice.SetSpeed(Percent(setting::Speed, voice.MinSpeed(), voice.MaxSpeed()));
  voice.SetVolumeLeft(Percent(setting::Volume, voice.MinVolume(), voice.MaxVolume()));
  voice.SetVolumeRight(Percent(setting::Volume, voice.MinVolume(), voice.MaxVolume()));
}

// Read back, so that the second instance gets what the first one made of the values.
void ModSpeak::CopyParameters() {
  parts_.voice2.SetPitch(parts_.voice.Pitch());
  parts_.voice2.SetSpeed(parts_.voice.Speed());
  parts_.voice2.SetVolumeLeft(parts_.voice.VolumeLeft());
  parts_.voice2.SetVolumeRight(parts_.voice.VolumeRight());
}

void ModSpeak::WaitForEnd() {
  const Counted waiting(waiting_);
  while (parts_.voice.Speaking()) parts_.pump.WaitForEvents();
  ResetBoth();
}

void ModSpeak::VoiceEnded(const EndOfText& end) {
  heard_ = true;
  held_ = false;
  status_.Rests();
  EndReading();
  if (!end.complete) {
    problem_ = end.reason;
    status_.Failed(end.reason);
  } else if (renderedWhole_ && problem_.empty()) {
    renderedTo_.empty() ? status_.ReadToTheEnd() : status_.Saved(renderedTo_);
  }
}

void ModSpeak::Voice2Ended(const EndOfText& end) {
  if (!end.complete) {
    RenderingFailed(end.reason);
  } else {
    renderedWhole_ = true;
    if (!renderedTo_.empty()) status_.Saved(renderedTo_);
    // The audible instance may have lost the text: the rendering's success must not claim that all was read.
    if (problem_.empty()) status_.ReadToTheEnd();
  }
  SetRendering(false);
}

void ModSpeak::RenderingFailed(const std::string& reason) {
  problem_ = reason;
  if (renderedTo_.empty()) return status_.Failed(reason);
  ++failedFiles_;
  parts_.log.Write("Exportieren(" + renderedTo_ + "): " + reason);
  status_.NotSaved(renderedTo_, reason);
}

void ModSpeak::AllowExport(bool allowed) {
  if (exportAvailable_) exportAvailable_(allowed);
}

void ModSpeak::SetRendering(bool rendering) {
  rendering_ = rendering;
  status_.Renders(rendering);
  AllowExport(!rendering);
}

void ModSpeak::DropRendering() {
  if (!renderedTo_.empty()) RenderingFailed("Die Aufnahme wurde abgebrochen.");
  SetRendering(false);
}

void ModSpeak::PauseSpeech() {
  if (speechPaused_ != 0) {
    parts_.voice.ResumeAudio();
    parts_.voice2.ResumeAudio();
    speechPaused_ = 0;
    paused_ = false;
    if (status_.IsPaused()) status_.Reads();
  } else {
    parts_.voice.PauseAudio();
    parts_.voice2.PauseAudio();
    speechPaused_ = 1;
    paused_ = parts_.voice.Speaking() || parts_.voice2.Speaking();
    if (status_.IsReading()) status_.Pauses();
  }
  TellHolding();
  parts_.pump.RunPendingEvents();
  ShowPauseHintOnce();
  parts_.pump.RunPendingEvents();
}

void ModSpeak::ShowPauseHintOnce() {
  if (parts_.settings.Get(setting::ShowPauseMsg) != "yes") return;
  parts_.settings.Save(setting::ShowPauseMsg, "false");
  parts_.messageBoxes.Show(
      "Bitte setzen Sie die Sprachausgabe mit einem erneuten Klick auf Pause fort. Ein Klick auf 'Sprechen' "
      "hat zur "
      "Folge, dass der Text wieder vom Anfang an vorgelesen wird!",
      "Hinweis", MessageIcon::Information, MessageButtons::Ok);
}

void ModSpeak::Stop() {
  wish_.reset();
  ++stops_;
  const bool reading = status_.IsReading() || status_.IsPaused();
  ResetBoth();
  status_.Rests();
  if (reading) status_.Stopped();
}

void ModSpeak::StopHearing() {
  EndReading();
  parts_.voice.ResetAudio();
  status_.Rests();
}

void ModSpeak::SpeakMenu() {
  Serve(Wish::Menu);
}
void ModSpeak::SpeakToolbar() {
  Serve(Wish::Toolbar);
}
void ModSpeak::ReadFromCursor() {
  Serve(Wish::Cursor);
}

// A key that is held down comes again in every wait; each carried out inside the other, they would use up the
// stack.
void ModSpeak::Serve(Wish wish) {
  if (preparing_ > 0) {
    wish_ = wish;
  } else {
    Perform(wish, waiting_ == 0);
  }
}

void ModSpeak::ServeWishes() {
  if (std::exchange(serving_, true)) return;
  struct Served {
    bool& serving;
    ~Served() { serving = false; }
  } const served{serving_};
  while (wish_) Perform(*std::exchange(wish_, std::nullopt), false);
}

// Where somebody waits already for what is heard, one wait is enough.
void ModSpeak::Perform(Wish wish, bool wait) {
  if (wish == Wish::Cursor) return PerformCursor();
  std::string text = wish == Wish::Toolbar ? parts_.document.Text() : std::string();
  SpeakFrom(text, 0, wait && wish == Wish::Menu, "", true);
}

void ModSpeak::PerformCursor() {
  bool failed = false;
  const auto attempt = [&](const auto& statement) {
    try {
      statement();
    } catch (const std::exception& error) {
      parts_.log.Write("Text ab Cursorposition lesen: " + std::string(error.what()));
      failed = true;
    }
  };
  std::string text;
  Source source;
  attempt([&] {
    // The caret counts from 0, the index from 1: the character left of the caret is read too.
    const std::size_t index = parts_.document.SelectionStart();
    if (index == 0) throw RuntimeError(ErrorNumber::InvalidCall);
    text = FromCharacter(parts_.document.Text(), index - 1);
    source = index - 1;
  });
  attempt([&] { SpeakFrom(text, source, false, "", false); });
  if (failed) {
    parts_.messageBoxes.Show("Bitte platzieren Sie den Cursor im Dokument.", "Fehler",
                             MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void ModSpeak::ReadSelection() {
  std::string text = parts_.document.SelectedText();
  const std::size_t begin = parts_.document.SelectionStart();
  if (!WithoutBlanks(text).empty()) SpeakFrom(text, begin, false, "", true);
}

void ModSpeak::ReadFrom(std::size_t character) {
  std::string text(FromCharacter(parts_.document.Text(), character));
  if (!WithoutBlanks(text).empty()) SpeakFrom(text, character, false, "", true);
}

void ModSpeak::SetWaveFile(const std::string& path) {
  if (path.empty()) {
    RemoveTemporaryFile(TempWavPath(), parts_.log);
    tempWavNumber_ = RandomBetween(1, 31000);
  }
  namedFile_ = path;
  parts_.voice2.SetWaveFile(path.empty() ? TempWavPath() : path);
}

void ModSpeak::EndNamedWaveFile() {
  if (namedFile_.empty()) return;
  if (tempWavNumber_ == 0) return SetWaveFile("");
  namedFile_.clear();
  parts_.voice2.SetWaveFile(TempWavPath());
}

std::string ModSpeak::TempWavPath() const {
  return JoinPath(parts_.programFolder, {"temp", std::to_string(tempWavNumber_) + ".wav"});
}

void ModSpeak::ClearTempFolder() {
  RemoveTemporaryFiles(parts_.programFolder, parts_.fileSearch, parts_.log);
}

std::int32_t ModSpeak::RandomBetween(std::int32_t low, std::int32_t high) {
  const LocalTime now = parts_.clock.Now();
  const auto secondsSinceMidnight =
      static_cast<std::uint32_t>((now.hour * 60 + now.minute) * 60 + now.second);
  // The state goes into the new seed, so that two calls in one second differ.
  std::seed_seq seed{secondsSinceMidnight, static_cast<std::uint32_t>(random_())};
  random_.seed(seed);
  const double fraction = static_cast<double>(random_()) / 4294967296.0;
  return RoundToLong(low + fraction * Checked(std::int64_t{high} - low));
}

}  // namespace lorelin
