#include "speech/modSpeak.h"

#include <array>
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

std::string ReplaceTimePlaceholders(std::string text, Clock& clock) {
  struct Placeholder {
    std::string_view name;
    int LocalTime::*field;
  };
  static constexpr std::array kPlaceholders{
      Placeholder{"$Zeit[s]", &LocalTime::second}, Placeholder{"$Zeit[m]", &LocalTime::minute},
      Placeholder{"$Zeit[h]", &LocalTime::hour}, Placeholder{"$Zeit[w]", &LocalTime::weekday}};
  for (const auto& [name, field] : kPlaceholders) ReplaceAll(text, name, std::to_string(clock.Now().*field));
  return text;
}

ModSpeak::ModSpeak(Parts parts) : parts_(std::move(parts)) {
  parts_.voice.OnEndOfText([this](const EndOfText& end) { VoiceEnded(end); });
  parts_.voice2.OnEndOfText([this](const EndOfText& end) { Voice2Ended(end); });
}

ModSpeak::~ModSpeak() {
  parts_.voice.OnEndOfText({});
  parts_.voice2.OnEndOfText({});
}

void ModSpeak::OnExportAvailable(std::function<void(bool)> handler) {
  exportAvailable_ = std::move(handler);
}

void ModSpeak::Speak(std::string& text, bool wait, const std::string& waveFile, bool filter) {
  if (parts_.startup.loadingInProgress) return;
  if (waveFile == kKeepWaveFile) {
    parts_.pump.RunPendingEvents();
  } else {
    SetWaveFile(waveFile);
  }
  if (filter) {
    std::optional<std::string> filtered = parts_.extensions.FilterText(text);
    if (!filtered) return;
    text = std::move(*filtered);
  }
  if (WithoutBlanks(text).empty()) text = parts_.document.Text();
  text = Decorate(text);
  ResetBoth();
  parts_.pump.RunPendingEvents();
  ApplyVoice();
  ApplyParameters();
  CopyParameters();
  if (exportAvailable_) exportAvailable_(false);
  parts_.pump.RunPendingEvents();
  voiceCutShort_ = false;
  parts_.voice.Speak(text);
  parts_.voice2.Speak(text);
  if (wait) WaitForEnd();
}

void ModSpeak::SpeakSample(const std::string& text, const SettingKey& key, const std::string& value) {
  if (parts_.startup.loadingInProgress) return;
  const OverriddenSetting sample(parts_.settings, key, value);
  parts_.voice.ResetAudio();
  ApplyVoice();
  ApplyParameters();
  parts_.voice.Speak(text);
}

std::string ModSpeak::Decorate(const std::string& text) const {
  const std::string decorated =
      parts_.settings.Get(setting::Prefix) + " " + text + " " + parts_.settings.Get(setting::Suffix);
  return ReplaceTimePlaceholders(decorated, parts_.clock);
}

void ModSpeak::ResetBoth() {
  held_ = false;
  parts_.voice.ResetAudio();
  parts_.voice2.ResetAudio();
}

void ModSpeak::ApplyVoice() {
  for (DirectSS* instance : {&parts_.voice, &parts_.voice2}) {
    instance->SetCurrentVoice(Checked(std::int64_t{StoredNumber(parts_.settings, setting::Voice)} + 1));
  }
}

std::int32_t ModSpeak::Percent(const SettingKey& key, std::int32_t lowest, std::int32_t highest) const {
  return MapPercent(StoredNumber(parts_.settings, key), lowest, highest);
}

void ModSpeak::ApplyParameters() {
  DirectSS& voice = parts_.voice;
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
  while (parts_.voice.Speaking()) parts_.pump.RunPendingEvents();
  ResetBoth();
}

void ModSpeak::VoiceEnded(const EndOfText& end) {
  if (end.complete) return;
  voiceCutShort_ = true;
  parts_.statusBar.SetMessage(end.reason);
}

void ModSpeak::Voice2Ended(const EndOfText& end) {
  if (!end.complete) {
    parts_.statusBar.SetMessage(end.reason);
  } else if (!voiceCutShort_) {
    parts_.statusBar.SetMessage(kReadToTheEnd);
  }
  if (exportAvailable_) exportAvailable_(true);
}

void ModSpeak::PauseSpeech() {
  if (speechPaused_ != 0) {
    parts_.voice.ResumeAudio();
    parts_.voice2.ResumeAudio();
    speechPaused_ = 0;
    held_ = false;
  } else {
    parts_.voice.PauseAudio();
    parts_.voice2.PauseAudio();
    speechPaused_ = 1;
    held_ = parts_.voice.Speaking() || parts_.voice2.Speaking();
  }
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
  ResetBoth();
}

void ModSpeak::SpeakMenu() {
  std::string text;
  Speak(text, true, "", true);
}

void ModSpeak::SpeakToolbar() {
  std::string text = parts_.document.Text();
  Speak(text, false, "", true);
}

void ModSpeak::ReadFromCursor() {
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
  attempt([&] {
    // The caret counts from 0, the index from 1: the character left of the caret is read too.
    const std::size_t index = parts_.document.SelectionStart();
    if (index == 0) throw RuntimeError(ErrorNumber::InvalidCall);
    text = FromCharacter(parts_.document.Text(), index - 1);
  });
  attempt([&] { Speak(text, false, "", false); });
  if (failed) {
    parts_.messageBoxes.Show("Bitte platzieren Sie den Cursor im Dokument.", "Fehler",
                             MessageIcon::Exclamation, MessageButtons::Ok);
  }
}

void ModSpeak::SetWaveFile(const std::string& path) {
  if (path.empty()) {
    RemoveTemporaryFile(TempWavPath(), parts_.log);
    tempWavNumber_ = RandomBetween(1, 31000);
  }
  parts_.voice2.SetWaveFile(path.empty() ? TempWavPath() : path);
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
