#include "engine/EngineServer.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <memory>
#include <utility>

#include "base/textEncoding.h"
#include "engine/EncodingQueue.h"
#include "engine/SoundFileWriter.h"
#include "engine/WaveFileWriter.h"
#include "engine/speakableText.h"

namespace lorelin::engine {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kLastWords{2000};
constexpr int kStuckExitCode = 70;
constexpr std::string_view kLibraryFailed = "Die Sprachausgabe konnte den Text nicht verarbeiten.";

std::int64_t NowMilliseconds() {
  return std::chrono::duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

class EngineServer::DeviceSink final : public SampleSink {
 public:
  DeviceSink(AudioOutput& audio, std::uint32_t id) : audio_(audio), id_(id) {}
  bool Write(std::span<const std::int16_t> samples) override { return audio_.Write(samples); }
  void Mark(const WordMark& mark) override {
    audio_.Mark(mark.sample,
                {id_, static_cast<std::uint32_t>(mark.begin), static_cast<std::uint32_t>(mark.end)});
  }
  bool Finish() override { return audio_.Drain(); }
  [[nodiscard]] std::string Problem() const override { return {}; }

 private:
  AudioOutput& audio_;
  const std::uint32_t id_;
};

// A file whose words are wanted.
class EngineServer::TellingSink final : public SampleSink {
 public:
  TellingSink(std::unique_ptr<SampleSink> file, std::uint32_t id, EngineServer& server)
      : file_(std::move(file)), id_(id), server_(server) {}
  bool Write(std::span<const std::int16_t> samples) override { return file_->Write(samples); }
  void Mark(const WordMark& mark) override {
    server_.Send(FrameWord({id_, static_cast<std::uint32_t>(mark.begin), static_cast<std::uint32_t>(mark.end),
                            server_.Milliseconds(mark.sample)}));
  }
  bool Finish() override { return file_->Finish(); }
  [[nodiscard]] std::string Problem() const override { return file_->Problem(); }

 private:
  const std::unique_ptr<SampleSink> file_;
  const std::uint32_t id_;
  EngineServer& server_;
};

EngineServer::EngineServer(int socket, bool warmUpAudio)
    : socket_(socket), warmUpAudio_(warmUpAudio), audio_(synthesizers_.SampleRate(), [this](bool silent) {
        const auto code = silent ? NoticeCode::NoAudioDevice : NoticeCode::AudioDevice;
        Send(FrameNumber(Kind::Notice, static_cast<std::uint32_t>(code)));
      }) {}

EngineServer::~EngineServer() {
  close(socket_);
}

bool EngineServer::Greet() {
  if (!Send(FrameHello(synthesizers_.Describe()))) return false;
  for (const std::string& remark : synthesizers_.Remarks()) Send(FrameRemark(remark));
  return true;
}

void EngineServer::TellUnconfined(bool filesOnly) {
  const NoticeCode code = filesOnly ? NoticeCode::FilesOpen : NoticeCode::Unconfined;
  Send(FrameNumber(Kind::Notice, static_cast<std::uint32_t>(code)));
}

int EngineServer::Run() {
  worker_ = std::thread([this] { Work(); });
  teller_ = std::thread([this] { TellWords(); });
  FrameReader reader;
  std::array<char, 65536> bytes{};
  bool open = true;
  while (open) {
    pollfd ready{.fd = socket_, .events = POLLIN, .revents = 0};
    // The program asks regularly while a text is under way, so that a stuck library is noticed here.
    const int found = poll(&ready, 1, -1);
    if (found < 0 && errno != EINTR) break;
    EndIfStuck();
    if (found <= 0) continue;
    const ssize_t size = read(socket_, bytes.data(), bytes.size());
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) break;
    reader.Feed({bytes.data(), static_cast<std::size_t>(size)});
    while (const auto message = reader.Next()) open = open && Handle(*message);
    open = open && !reader.Broken();
  }
  End();
  return 0;
}

void EngineServer::End() {
  {
    const std::lock_guard guard(mutex_);
    closing_ = true;
  }
  Discard();
  std::unique_lock guard(mutex_);
  if (!changed_.wait_for(guard, kLastWords, [this] { return workEnded_; })) _exit(kStuckExitCode);
  guard.unlock();
  worker_.join();
  audio_.EndWords();
  teller_.join();
}

void EngineServer::TellWords() {
  while (const auto word = audio_.NextWord()) Send(FrameWord(*word));
}

// A library that never comes back cannot be stopped from inside; the program starts a new engine.
void EngineServer::EndIfStuck() const {
  const std::int64_t since = inLibrarySince_.load();
  if (since != 0 && NowMilliseconds() - since > patience_) _exit(kStuckExitCode);
}

bool EngineServer::Handle(const Message& message) {
  switch (message.kind) {
    case Kind::Speak: {
      auto utterance = ReadSpeak(message.fields);
      if (utterance) StartSpeaking(std::move(*utterance));
      return utterance.has_value();
    }
    case Kind::More: {
      auto part = ReadMore(message.fields);
      if (part) TakePart(std::move(*part));
      return part.has_value();
    }
    case Kind::Prepare: {
      const auto voice = ReadNumber(message.fields);
      if (voice) PrepareVoice(static_cast<std::int32_t>(*voice));
      return voice.has_value();
    }
    case Kind::Pause:
      SetPaused(true);
      return true;
    case Kind::Resume:
      SetPaused(false);
      return true;
    case Kind::Reset:
      Discard();
      return true;
    case Kind::Ping: {
      const auto number = ReadNumber(message.fields);
      return number && Send(FrameNumber(Kind::Pong, *number));
    }
    default:
      return false;
  }
}

void EngineServer::StartSpeaking(Utterance utterance) {
  Discard();
  const std::lock_guard guard(mutex_);
  goesOn_ = utterance.goesOn ? utterance.id : 0;
  waiting_ = std::move(utterance);
  changed_.notify_all();
}

void EngineServer::PrepareVoice(std::int32_t voice) {
  const std::lock_guard guard(mutex_);
  toPrepare_ = voice;
  changed_.notify_all();
}

void EngineServer::TakePart(TextPart part) {
  const std::lock_guard guard(mutex_);
  if (goesOn_ == 0 || part.id != goesOn_) return;
  if (part.last) goesOn_ = 0;
  parts_.push_back(std::move(part.text));
  changed_.notify_all();
}

void EngineServer::Discard() {
  const std::lock_guard guard(mutex_);
  waiting_.reset();
  goesOn_ = 0;
  parts_.clear();
  paused_ = false;
  discarded_ = true;
  synthesizers_.SetCancelled(true);
  audio_.Discard();
  changed_.notify_all();
}

void EngineServer::SetPaused(bool paused) {
  const std::lock_guard guard(mutex_);
  // A pause belongs to a text; without one there is nothing to hold.
  paused_ = paused && (speaking_ || waiting_);
  audio_.SetPaused(paused_);
  changed_.notify_all();
}

bool EngineServer::Send(const std::string& frame) {
  const std::lock_guard guard(sending_);
  std::string_view rest = frame;
  while (!rest.empty()) {
    const ssize_t size = send(socket_, rest.data(), rest.size(), MSG_NOSIGNAL);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) return false;
    rest.remove_prefix(static_cast<std::size_t>(size));
  }
  return true;
}

std::optional<Utterance> EngineServer::NextUtterance() {
  std::unique_lock guard(mutex_);
  speaking_ = false;
  while (!closing_ && !waiting_) {
    const auto voice = std::exchange(toPrepare_, std::nullopt);
    guard.unlock();
    if (voice) synthesizers_.Prepare(*voice);
    const milliseconds again = audio_.CloseIdle();
    guard.lock();
    if (closing_ || waiting_) break;
    if (toPrepare_) continue;
    if (again == milliseconds::zero()) {
      changed_.wait(guard);
    } else {
      changed_.wait_for(guard, again);
    }
  }
  if (closing_) return std::nullopt;
  speaking_ = true;
  discarded_ = false;
  synthesizers_.SetCancelled(false);
  audio_.Restart();
  audio_.SetPaused(paused_);
  return std::exchange(waiting_, std::nullopt);
}

void EngineServer::Work() {
  if (warmUpAudio_) audio_.WarmUp();
  while (const auto utterance = NextUtterance()) Perform(*utterance);
  const std::lock_guard guard(mutex_);
  workEnded_ = true;
  changed_.notify_all();
}

void EngineServer::Perform(const Utterance& utterance) {
  std::unique_ptr<SampleSink> sink = SinkFor(utterance);
  Progress progress{.id = utterance.id};
  const std::string reason = Render(utterance, *sink, progress);
  sink.reset();  // an unfinished file is gone before the end is told
  const std::lock_guard guard(mutex_);
  if (discarded_) return;
  speaking_ = false;
  paused_ = false;
  Send(FrameEnded({utterance.id, reason, Milliseconds(progress.samples)}));
}

std::unique_ptr<SampleSink> EngineServer::SinkFor(const Utterance& utterance) {
  if (utterance.waveFile.empty()) return std::make_unique<DeviceSink>(audio_, utterance.id);
  const auto rate = static_cast<std::uint32_t>(synthesizers_.SampleRate());
  std::unique_ptr<SampleSink> file;
  if (utterance.format == SoundFormat::Wav) {
    file = std::make_unique<WaveFileWriter>(utterance.waveFile, rate);
  } else {
    file = std::make_unique<EncodingQueue>(
        std::make_unique<SoundFileWriter>(utterance.waveFile, rate, utterance.format, utterance.quality));
  }
  if (!utterance.tellsWords) return file;
  return std::make_unique<TellingSink>(std::move(file), utterance.id, *this);
}

std::uint32_t EngineServer::Milliseconds(std::uint64_t samples) const {
  return static_cast<std::uint32_t>(samples * 1000 / static_cast<std::uint64_t>(synthesizers_.SampleRate()));
}

std::string EngineServer::Render(const Utterance& utterance, SampleSink& sink, Progress& progress) {
  if (!sink.Problem().empty()) return sink.Problem();
  Synthesizer& synthesizer = synthesizers_.Choose(utterance);
  patience_ = synthesizer.Patience().count();
  const bool spoken = SynthesizeParts(utterance, synthesizer, sink, progress);
  if (!sink.Problem().empty()) return sink.Problem();
  if (!spoken) return synthesizer.Problem().empty() ? std::string(kLibraryFailed) : synthesizer.Problem();
  return sink.Finish() ? std::string() : sink.Problem();
}

bool EngineServer::SynthesizeParts(const Utterance& utterance, Synthesizer& synthesizer, SampleSink& sink,
                                   Progress& progress) {
  std::optional<std::string> text = utterance.text.empty() ? NextPart() : utterance.text;
  for (; text && !text->empty(); text = NextPart()) {
    if (!SynthesizePart(*text, synthesizer, sink, progress)) return false;
  }
  return text.has_value();
}

bool EngineServer::SynthesizePart(std::string_view part, Synthesizer& synthesizer, SampleSink& sink,
                                  Progress& progress) {
  const std::string speakable = SpeakableText(part);
  const DroppedCharacters dropped(part);
  const Progress before = progress;
  inLibrarySince_ = NowMilliseconds();
  const bool spoken = synthesizer.Speak(
      speakable,
      [&](std::span<const std::int16_t> samples) {
        const bool first = progress.samples == 0;
        progress.samples += samples.size();
        return Pass(sink, samples, first ? progress.id : 0);
      },
      [&](const WordMark& mark) {
        sink.Mark({before.samples + mark.sample, before.characters + dropped.Given(mark.begin),
                   before.characters + dropped.Given(mark.end - 1) + 1});
      });
  inLibrarySince_ = 0;
  progress.characters += dropped.Given(CharacterCount(speakable));
  return spoken;
}

// The part that follows, once it is there; an empty one behind the last, none when the text was discarded.
std::optional<std::string> EngineServer::NextPart() {
  std::unique_lock guard(mutex_);
  while (true) {
    changed_.wait(guard, [this] { return discarded_ || !parts_.empty() || goesOn_ == 0; });
    if (discarded_) return std::nullopt;
    if (parts_.empty()) return std::string();
    std::string part = std::move(parts_.front());
    parts_.pop_front();
    if (!part.empty()) return part;
  }
}

bool EngineServer::Pass(SampleSink& sink, std::span<const std::int16_t> samples, std::uint32_t id) {
  inLibrarySince_ = 0;  // waiting for the device or for the user is no standstill
  {
    std::unique_lock guard(mutex_);
    changed_.wait(guard, [this] { return !paused_ || discarded_; });
    if (discarded_) return false;
  }
  const bool taken = sink.Write(samples);
  if (id != 0) Send(FrameNumber(Kind::Started, id));
  inLibrarySince_ = NowMilliseconds();
  return taken;
}

}  // namespace lorelin::engine
