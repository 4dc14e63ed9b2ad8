#include "app/RemoteSession.h"

#include <array>

#include "documents/richTextFile.h"

namespace lorelin {
namespace {

bool IsBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

Playback PlaybackOf(const ReadingStatus& status) {
  if (status.IsPaused()) return Playback::Paused;
  return status.IsReading() ? Playback::Playing : Playback::Stopped;
}

}  // namespace

void RemoteSession::Begin() {
  parts_.remote.OnRequest([this](const RemoteOrder& order) { Carry(order); });
  parts_.speech.Status().OnChange([this] { Tell(); });
  Tell();
}

RemoteSession::~RemoteSession() {
  parts_.speech.Status().OnChange({});
  parts_.remote.OnRequest({});
}

void RemoteSession::Carry(const RemoteOrder& order) {
  switch (order.request) {
    case RemoteRequest::Play:
      return Play();
    case RemoteRequest::Pause:
      return Pause();
    case RemoteRequest::PlayPause:
      return Sounds() ? Pause() : Play();
    case RemoteRequest::Stop:
      parts_.window.RunCommand("Stop");
      return;
    case RemoteRequest::Next:
      parts_.window.RunCommand("SentenceOn");
      return;
    case RemoteRequest::Previous:
      parts_.window.RunCommand("SentenceBack");
      return;
    case RemoteRequest::Raise:
      return parts_.raise();
    case RemoteRequest::Quit:
      return parts_.awaitsAnswer() ? parts_.raise() : parts_.window.CloseRequested();
    case RemoteRequest::ReadSelection:
      return ReadAloud(Selection());
    case RemoteRequest::ReadFiles:
      return ReadFiles(order.files);
  }
}

bool RemoteSession::Sounds() const {
  return PlaybackOf(parts_.speech.Status()) == Playback::Playing;
}

void RemoteSession::Play() {
  if (Sounds()) return;
  parts_.window.RunCommand(parts_.speech.Held() ? "Pause" : "SpeakDocument");
}

void RemoteSession::Pause() {
  if (Sounds()) parts_.window.RunCommand("Pause");
}

std::string RemoteSession::Selection() const {
  const std::array<std::function<std::string()>, 4> sources{
      parts_.ownSelection, [this] { return parts_.selectedText.Text(); }, parts_.primarySelection,
      [this] { return parts_.clipboard.Text(); }};
  for (const auto& source : sources) {
    if (std::string text = source(); !IsBlank(text)) return text;
  }
  return {};
}

void RemoteSession::ReadFiles(const std::vector<std::string>& files) {
  parts_.window.Run("Dateien", [&] {
    std::string text;
    for (const std::string& file : files) text += ReadRichTextFile(file).text.text + "\n\n";
    ReadAloud(std::move(text), "In den Dateien steht kein Text.");
  });
}

void RemoteSession::ReadAloud(std::string text, const std::string& whenBlank) {
  if (IsBlank(text)) return parts_.statusBar.SetMessage(whenBlank);
  parts_.window.Run("Auswahl", [&] { parts_.speech.Speak(text, false, "-1", true); });
}

void RemoteSession::Tell() {
  const Playback now = PlaybackOf(parts_.speech.Status());
  const auto moment = parts_.clock.Steady();
  if (playback_ == Playback::Playing) heard_ += moment - since_;
  // Reading that begins while it goes on reads another text.
  if (playback_ == Playback::Stopped || playback_ == now) heard_ = {};
  since_ = moment;
  playback_ = now;
  parts_.remote.Tell({.playback = now,
                      .title = parts_.title(),
                      .position = std::chrono::duration_cast<std::chrono::microseconds>(heard_)});
}

}  // namespace lorelin
