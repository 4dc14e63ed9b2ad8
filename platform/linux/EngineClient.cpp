#include "platform/linux/EngineClient.h"

#include <utility>

namespace lorelin {

EngineClient::EngineClient(Options options, EventPump& pump, Clock& clock, Log& log)
    : options_(std::move(options)),
      pump_(pump),
      clock_(clock),
      log_(log),
      condition_(std::make_shared<Condition>(options_.condition)) {
  if (options_.start == InstanceStart::AtOnce) Connect();
}

void EngineClient::Connect() {
  if (connection_) return;
  EventPump& pump = pump_;
  const std::weak_ptr<Listener> listener = ListenerForTasks();
  const std::weak_ptr<Condition> condition = condition_;
  connection_ = std::make_unique<EngineConnection>(
      options_.engineFile, options_.audible, options_.folder, options_.patience,
      EngineConnection::Handlers{.ended =
                                     [listener, &pump](const engine::Ended& ended) {
                                       pump.Post([listener, ended] {
                                         TellEnd(listener, ended.id,
                                                 {.complete = ended.reason.empty(),
                                                  .reason = ended.reason,
                                                  .length = std::chrono::milliseconds(ended.milliseconds)});
                                       });
                                     },
                                 .heard =
                                     [listener, &pump](const engine::HeardWord& word) {
                                       pump.Post([listener, word] {
                                         TellWord(listener, word.id,
                                                  {word.begin, word.end,
                                                   std::chrono::milliseconds(word.milliseconds)});
                                       });
                                     },
                                 .condition =
                                     [condition, &pump](const std::string& text) {
                                       pump.Post([condition, text] {
                                         const auto alive = condition.lock();
                                         if (alive && *alive) (*alive)(text);
                                       });
                                     }},
      clock_, log_);
}

EngineClient::~EngineClient() = default;

const engine::Capabilities& EngineClient::Abilities() {
  Connect();
  const bool first = abilities_ == nullptr;
  if (first || connection_->HasNewCapabilities(abilities_.get())) {
    abilities_ = connection_->WaitForCapabilities();
  }
  if (first) SetUsualProperties(*abilities_);
  return *abilities_;
}

// A voice may take the engine its time, which it has until there is a text.
void EngineClient::PropertiesChanged() {
  if (properties_.voice == prepared_) return;
  prepared_ = properties_.voice;
  Connect();
  connection_->Prepare(prepared_);
}

void EngineClient::RenewVoices() {
  prepared_ = 0;
  if (connection_) connection_->Renew();
}

void EngineClient::StartText(std::string_view text, bool goesOn) {
  (void)Abilities();
  engine::Utterance utterance = BeginText();
  utterance.text = text;
  utterance.goesOn = goesOn;
  goesOn_ = goesOn ? utterance.id : 0;
  connection_->Speak(utterance);
}

void EngineClient::ContinueText(std::string_view text, bool last) {
  if (goesOn_ == 0) return;
  connection_->Continue({.id = goesOn_, .last = last, .text = std::string(text)});
  if (last) goesOn_ = 0;
}

void EngineClient::PauseAudio() {
  if (connection_) connection_->Pause();
}
void EngineClient::ResumeAudio() {
  if (connection_) connection_->Resume();
}

void EngineClient::ResetAudio() {
  // A text that had ended already was not discarded; its end is still told.
  if (connection_ && connection_->Reset()) DiscardText();
}

bool EngineClient::Speaking() {
  return connection_ && connection_->Speaking();
}

void EngineClient::SetSoundFormat(SoundFormat format, SoundQuality quality, bool tellsWords) {
  properties_.format = format;
  properties_.quality = quality;
  properties_.tellsWords = tellsWords;
}

int EngineClient::ProcessId() const {
  return connection_ ? connection_->ProcessId() : -1;
}
std::chrono::microseconds EngineClient::LastStartLatency() const {
  return connection_ ? connection_->LastStartLatency() : std::chrono::microseconds{};
}

}  // namespace lorelin
