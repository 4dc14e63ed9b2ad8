#include "platform/windows/ComSpeech.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/unfinishedName.h"
#include "engine/speakableText.h"
#include "platform/windows/dispatch.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMostWaveBytes = 0xFFFFFFFF;
constexpr const char* kFailed =
    "Die Sprachausgabe von Windows meldet einen Fehler. Der Text wurde nicht bis zum Ende gelesen.";
constexpr const char* kTooLong =
    "Der Text ist zu lang für eine WAV-Datei (höchstens 4 GB). Es wurde keine Datei geschrieben.";
constexpr const char* kNoFile =
    "Die WAV-Datei konnte nicht geschrieben werden. Das ist keine gewöhnliche Datei.";
constexpr const char* kNotWritten =
    "Die WAV-Datei konnte nicht geschrieben werden. Die vorhandene lässt sich nicht ersetzen.";

bool IsFileOrNothing(const std::string& path) {
  std::error_code error;
  const fs::file_type type = fs::status(NativePath(path), error).type();
  return type == fs::file_type::not_found || type == fs::file_type::regular;
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n\v\f") == std::string_view::npos;
}

}  // namespace

ComSpeech::ComSpeech(EventPump& pump, Log& log, HeardWords::Units units)
    : pump_(pump), log_(log), words_(units) {
  properties_.voice = 0;
}

// The text that is under way has no end any more; its file would be half of one.
ComSpeech::~ComSpeech() {
  if (speaking_) RemoveWaveFile();
}

bool ComSpeech::Try(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const ComError& error) {
    log_.Write(std::string("Sprachausgabe: ") + error.what());
  }
  created_ = false;
  DestroyEngine();
  return false;
}

void ComSpeech::RequireEngine() {
  if (created_) return;
  const bool first = abilities_.voices.empty();
  if (!Try([this] { CreateEngine(); })) throw RuntimeError(ErrorNumber::AutomationFailed);
  created_ = true;
  if (first) {
    SetUsualProperties(abilities_);
    properties_.voice = 1;
  }
  PropertiesChanged();
}

void ComSpeech::PropertiesChanged() {
  if (!Try([this] { ApplyProperties(properties_); })) throw RuntimeError(ErrorNumber::AutomationFailed);
}

const engine::Capabilities& ComSpeech::Abilities() {
  RequireEngine();
  return abilities_;
}

void ComSpeech::Start(std::string_view text, bool goesOn) {
  RequireEngine();
  if (speaking_) ResetAudio();
  underWay_ = BeginText();
  speaking_ = caughtUp_ = true;
  goesOn_ = goesOn;
  handedOver_ = false;
  awaited_.clear();
  words_.Clear();
  renderedFile_ = underWay_.waveFile;
  if (!renderedFile_.empty()) {
    if (!IsFileOrNothing(renderedFile_)) return End(kNoFile);
    underWay_.waveFile = PathText(UnfinishedName(NativePath(renderedFile_)));
  }
  HandOver(text);
}

void ComSpeech::ContinueText(std::string_view text, bool last) {
  if (!speaking_ || !goesOn_) return;
  goesOn_ = !last;
  HandOver(text);
}

// Engines tell no end of a text without words: those get none.
void ComSpeech::HandOver(std::string_view text) {
  awaited_ += text;
  if (goesOn_ && !TakesParts()) return;
  underWay_.text = engine::SpeakableText(awaited_);
  if (!IsBlank(underWay_.text)) {
    caughtUp_ = false;
    if (renderedFile_.empty()) words_.Add(awaited_, underWay_.text);
    awaited_.clear();
    if (!Try([&] { handedOver_ ? AddText(underWay_) : StartText(underWay_); })) return End(kFailed);
    handedOver_ = true;
    underWay_.text.clear();
  } else if (!goesOn_ && caughtUp_) {
    handedOver_ ? Finished() : End("");
  }
}

void ComSpeech::PauseAudio() {
  if (std::exchange(paused_, true)) return;
  RequireEngine();
  if (!Try([this] { PauseEngine(); }) && speaking_) End(kFailed);
}

void ComSpeech::ResumeAudio() {
  if (!std::exchange(paused_, false)) return;
  RequireEngine();
  if (!Try([this] { ResumeEngine(); }) && speaking_) End(kFailed);
}

void ComSpeech::ResetAudio() {
  const bool interrupted = std::exchange(speaking_, false);
  if (interrupted) DiscardText();
  if (created_) {
    const bool paused = std::exchange(paused_, false);
    (void)Try([&] {
      StopEngine();
      if (paused) ResumeEngine();
      if (interrupted) CloseWaveFile();
    });
  }
  paused_ = false;
  if (interrupted) RemoveWaveFile();
}

bool ComSpeech::Speaking() {
  if (!speaking_ || paused_) return speaking_;
  bool finished = false;
  if (!Try([&] { finished = HasFinished(); })) {
    End(kFailed);
  } else if (finished) {
    Finished();
  }
  return speaking_;
}

void ComSpeech::WordAt(std::size_t go, std::size_t unit) {
  if (!speaking_ || !renderedFile_.empty()) return;
  words_.Event(go, unit, [this](const HeardWord& word) {
    pump_.Post([listener = ListenerForTasks(), id = CurrentText(), word] { TellWord(listener, id, word); });
  });
}

void ComSpeech::Finished() {
  caughtUp_ = true;
  if (!speaking_ || goesOn_) return;
  if (!renderedFile_.empty()) {
    if (!Try([this] { CloseWaveFile(); })) return End(kFailed);
    std::error_code error;
    if (fs::file_size(UnfinishedName(NativePath(renderedFile_)), error) > kMostWaveBytes && !error) {
      return End(kTooLong);
    }
    if (!PutWaveFileInPlace()) return End(kNotWritten);
  }
  End("");
}

void ComSpeech::End(const std::string& reason) {
  speaking_ = goesOn_ = false;
  if (!reason.empty()) RemoveWaveFile();
  pump_.Post([listener = ListenerForTasks(), id = CurrentText(), reason] {
    TellEnd(listener, id, {.complete = reason.empty(), .reason = reason});
  });
}

// An engine that keeps the file open lets it be copied, not moved.
bool ComSpeech::PutWaveFileInPlace() const {
  const fs::path target = FollowedLinks(NativePath(renderedFile_));
  const fs::path unfinished = UnfinishedName(target);
  if (MoveFileExW(unfinished.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
      FALSE) {
    return true;
  }
  const bool copied = CopyFileW(unfinished.c_str(), target.c_str(), FALSE) != FALSE;
  DeleteFileW(unfinished.c_str());
  return copied;
}

void ComSpeech::RemoveWaveFile() const {
  std::error_code error;
  if (!renderedFile_.empty()) fs::remove(UnfinishedName(NativePath(renderedFile_)), error);
}

}  // namespace lorelin
