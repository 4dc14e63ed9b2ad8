#include "platform/linux/EngineConnection.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/unfinishedName.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kFarewell{500};
constexpr int kChildSocket = 3;

constexpr std::string_view kCutShort =
    "Die Sprachausgabe wurde unterbrochen. Der Text wurde nicht vollständig vorgelesen.";
constexpr std::string_view kNoDevice = "Es wurde kein Audiogerät gefunden. Der Text wird stumm vorgelesen.";
constexpr std::string_view kGivenUp =
    "Die Sprachausgabe ist mehrmals nacheinander ausgefallen. Bitte versuchen Sie es in zwei Minuten noch "
    "einmal.";

// What an engine that is gone was writing.
void RemoveUnfinished(const std::string& waveFile) {
  std::error_code error;
  if (!waveFile.empty()) std::filesystem::remove(UnfinishedName(NativePath(waveFile)), error);
}

// Spawns the engine with `socket` as its descriptor 3, to write files into the folder; its process number or
// -1.
pid_t Spawn(const std::string& file, bool audible, const std::string& folder, int socket) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, socket, kChildSocket);
  // Sound libraries complain there about devices that they try and do not need.
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::string program = file;
  std::string number = std::to_string(kChildSocket);
  std::string use = audible ? "audio" : "files";
  std::string into = folder;
  std::array<char*, 5> arguments{program.data(), number.data(), use.data(), into.data(), nullptr};
  pid_t process = -1;
  const int error = posix_spawn(&process, file.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? process : -1;
}

// The folder that a sound file is written into, itself or through a link.
std::string FolderOf(const std::string& waveFile) {
  return waveFile.empty() ? std::string() : FollowedLinks(NativePath(waveFile)).parent_path().string();
}

// Waits for the process, and kills it when it takes too long to end by itself.
void WaitFor(pid_t process, milliseconds time) {
  const auto until = steady_clock::now() + time;
  while (waitpid(process, nullptr, WNOHANG) == 0) {
    if (steady_clock::now() >= until) {
      kill(process, SIGKILL);
      waitpid(process, nullptr, 0);
      return;
    }
    poll(nullptr, 0, 5);
  }
}

}  // namespace

EngineConnection::EngineConnection(std::string engineFile, bool audible, const std::string& folder,
                                   Patience patience, Handlers handlers, Clock& clock, Log& log)
    : engineFile_(std::move(engineFile)),
      audible_(audible),
      patience_(patience),
      handlers_(std::move(handlers)),
      clock_(clock),
      log_(log),
      place_(PlaceOf(folder)),
      wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!Start()) log_.Write("Sprachausgabe: " + engineFile_ + " lässt sich nicht starten");
  thread_ = std::thread([this] { Run(); });
}

EngineConnection::~EngineConnection() {
  {
    const std::lock_guard guard(mutex_);
    closing_ = true;
  }
  Wake();
  thread_.join();
  if (socket_ >= 0) close(socket_);
  if (process_ > 0) WaitFor(process_, kFarewell);
  if (current_ != 0) RemoveUnfinished(currentFile_);
  close(wake_);
}

bool EngineConnection::Start() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
  const pid_t process = Spawn(engineFile_, audible_, place_.folder, ends[1]);
  close(ends[1]);
  if (process < 0) {
    close(ends[0]);
    return false;
  }
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  process_ = process;
  socket_ = ends[0];
  inbox_ = {};
  outbox_.clear();
  sent_ = pings_ = pongs_ = 0;
  greeted_ = false;
  renewing_ = std::exchange(toRenew_, false) || renewing_;
  startedAt_ = lastPing_ = lastLook_ = steady_clock::now();
  return true;
}

void EngineConnection::Wake() const {
  const std::uint64_t one = 1;
  (void)!write(wake_, &one, sizeof one);
}

void EngineConnection::Send(std::string frame) {
  {
    const std::lock_guard guard(mutex_);
    if (socket_ < 0) return;
    Queue(std::move(frame));
  }
  Wake();
}

// A text or a reset takes the place of all that the engine was to do before: what an engine that hangs has
// not been sent yet does not pile up.
void EngineConnection::Queue(std::string frame) {
  const auto isKind = [](const std::string& queued, engine::Kind kind) {
    return queued[engine::kKindAt] == static_cast<char>(kind);
  };
  if (isKind(frame, engine::Kind::Speak) || isKind(frame, engine::Kind::Reset)) {
    const auto begun = static_cast<std::ptrdiff_t>(sent_ > 0 ? 1 : 0);
    outbox_.erase(std::remove_if(outbox_.begin() + begun, outbox_.end(),
                                 [&](const auto& queued) { return !isKind(queued, engine::Kind::Ping); }),
                  outbox_.end());
  }
  if (outbox_.empty()) lastProgress_ = steady_clock::now();
  outbox_.push_back(std::move(frame));
}

void EngineConnection::Speak(const engine::Utterance& utterance) {
  {
    Guard guard(mutex_);
    MoveTo(PlaceOf(FolderOf(utterance.waveFile)));
    current_ = utterance.id;
    currentFile_ = utterance.waveFile;
    spokenAt_ = steady_clock::now();
    if (socket_ < 0) Restart(guard);
    if (socket_ < 0) {
      current_ = 0;
      guard.unlock();
      handlers_.ended({.id = utterance.id, .reason = std::string(kGivenUp)});
      return;
    }
  }
  Send(engine::FrameSpeak(utterance));
}

// A folder that was made anew is another one.
EngineConnection::Place EngineConnection::PlaceOf(const std::string& folder) {
  struct stat status {};
  if (folder.empty() || stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return {};
  return {folder, status.st_dev, status.st_ino};
}

// An engine writes only into the folder that it was started for; another takes its place.
void EngineConnection::MoveTo(Place place) {
  if (place.folder.empty() || place == place_) return;
  place_ = std::move(place);
  if (socket_ < 0) return;
  Reap();
  if (current_ != 0) RemoveUnfinished(currentFile_);
  (void)Start();
}

void EngineConnection::Continue(const engine::TextPart& part) {
  {
    const std::lock_guard guard(mutex_);
    if (current_ == 0 || current_ != part.id) return;
  }
  Send(engine::FrameMore(part));
}

bool EngineConnection::Reset() {
  bool discarded = false;
  {
    const std::lock_guard guard(mutex_);
    discarded = std::exchange(current_, 0) != 0;
    if (toRenew_) RemoveUnfinished(discarded ? currentFile_ : std::string());
    RenewIfIdle();
  }
  Send(engine::Frame(engine::Kind::Reset));
  return discarded;
}

bool EngineConnection::Speaking() const {
  const std::lock_guard guard(mutex_);
  return current_ != 0;
}

int EngineConnection::ProcessId() const {
  const std::lock_guard guard(mutex_);
  return process_;
}

std::chrono::microseconds EngineConnection::LastStartLatency() const {
  const std::lock_guard guard(mutex_);
  return startLatency_;
}

std::shared_ptr<const engine::Capabilities> EngineConnection::WaitForCapabilities() {
  Guard guard(mutex_);
  // One that is given up is followed by another.
  told_.wait_for(guard, patience_.greeting + patience_.answer,
                 [this] { return (capabilities_ && !renewing_) || socket_ < 0; });
  if (!capabilities_) throw RuntimeError(ErrorNumber::AutomationFailed, "Die Sprachausgabe antwortet nicht.");
  renewing_ = false;  // whoever asks next does not wait as long again
  return capabilities_;
}

bool EngineConnection::HasNewCapabilities(const engine::Capabilities* known) const {
  const std::lock_guard guard(mutex_);
  return renewing_ || capabilities_.get() != known;
}

void EngineConnection::Renew() {
  const std::lock_guard guard(mutex_);
  toRenew_ = true;
  RenewIfIdle();
}

// No text is lost by it, so it is none of the restarts that are counted.
void EngineConnection::RenewIfIdle() {
  if (!toRenew_ || current_ != 0 || socket_ < 0) return;
  Reap();
  if (!Start()) log_.Write("Sprachausgabe: " + engineFile_ + " lässt sich nicht starten");
  Wake();
}

int EngineConnection::PollTimeout() const {
  if (socket_ < 0) return -1;
  const bool owes = pongs_ != pings_ || !outbox_.empty();
  if (greeted_ && owes) return static_cast<int>((patience_.answer / 4).count());
  if (greeted_ && current_ == 0) return -1;
  const auto next = greeted_ ? lastPing_ + patience_.answer / 2 : startedAt_ + patience_.greeting;
  const auto left = std::chrono::duration_cast<milliseconds>(next - steady_clock::now());
  return static_cast<int>(std::clamp<std::int64_t>(left.count() + 1, 1, (patience_.answer / 2).count()));
}

void EngineConnection::Run() {
  Guard guard(mutex_);
  while (!closing_) {
    std::array<pollfd, 2> ready{pollfd{.fd = wake_, .events = POLLIN, .revents = 0},
                                pollfd{.fd = socket_, .events = POLLIN, .revents = 0}};
    if (!outbox_.empty()) ready[1].events |= POLLOUT;
    const int timeout = PollTimeout();
    guard.unlock();
    poll(ready.data(), ready.size(), timeout);
    guard.lock();
    std::uint64_t count = 0;
    (void)!read(wake_, &count, sizeof count);
    // The socket may be another one by now: a text found its engine dead and started the next.
    if (socket_ < 0 || ready[1].fd != socket_) continue;
    const bool alive = ready[1].revents == 0 || Receive(guard);
    if (!alive || !Transmit()) {
      Lost(guard);
    } else {
      WatchPatience(guard);
    }
  }
}

void EngineConnection::WatchPatience(Guard& guard) {
  const auto now = steady_clock::now();
  // Whoever was stopped itself cannot tell how long the engine has had.
  if (now - lastLook_ > patience_.answer) startedAt_ = lastPing_ = lastProgress_ = now;
  lastLook_ = now;
  if (Hangs(now)) {
    log_.Write("Sprachausgabe: keine Antwort, wird neu gestartet");
    Lost(guard);
  } else {
    Ask(now);
  }
}

bool EngineConnection::Hangs(Time now) const {
  if (!greeted_) return now - startedAt_ >= patience_.greeting;
  if (!outbox_.empty() && now - lastProgress_ >= patience_.answer) return true;
  return pongs_ != pings_ && now - lastPing_ >= patience_.answer;
}

// A question that waits behind a long text would be answered late.
void EngineConnection::Ask(Time now) {
  const bool due = greeted_ && current_ != 0 && outbox_.empty() && now - lastPing_ >= patience_.answer / 2;
  if (!due || pongs_ != pings_) return;
  lastPing_ = now;
  Queue(engine::FrameNumber(engine::Kind::Ping, ++pings_));
}

void EngineConnection::Reap() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = -1;
  close(std::exchange(socket_, -1));
  outbox_.clear();
  sent_ = 0;
}

void EngineConnection::Lost(Guard& guard) {
  const std::uint32_t lost = current_;
  const std::string file = std::exchange(currentFile_, {});
  Reap();
  if (lost != 0) RemoveUnfinished(file);
  log_.Write("Sprachausgabe: Prozess beendet" + std::string(lost != 0 ? " mitten im Text" : ""));
  Restart(guard);
  told_.notify_all();
  const bool givenUp = socket_ < 0;
  TellEnd({.id = lost, .reason = std::string(kCutShort)}, guard);
  if (givenUp) SetCondition(kGivenUp, guard);
}

// The end is on its way before `Speaking` turns false, so that who waits for the one finds the other.
void EngineConnection::TellEnd(const engine::Ended& end, Guard& guard) {
  if (end.id == 0) return;
  guard.unlock();
  handlers_.ended(end);
  guard.lock();
  if (current_ == end.id) current_ = 0;
  RenewIfIdle();
}

void EngineConnection::Restart(Guard&) {
  while (socket_ < 0 && budget_.Take(clock_.Steady())) {
    if (!Start()) log_.Write("Sprachausgabe: " + engineFile_ + " lässt sich nicht starten");
  }
}

bool EngineConnection::Transmit() {
  while (!outbox_.empty()) {
    const std::string& frame = outbox_.front();
    const ssize_t size = send(socket_, frame.data() + sent_, frame.size() - sent_, MSG_NOSIGNAL);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return errno == EAGAIN || errno == EWOULDBLOCK;
    lastProgress_ = steady_clock::now();
    sent_ += static_cast<std::size_t>(size);
    if (sent_ < frame.size()) continue;
    outbox_.pop_front();
    sent_ = 0;
  }
  return true;
}

bool EngineConnection::Receive(Guard& guard) {
  std::array<char, 65536> bytes{};
  const ssize_t size = recv(socket_, bytes.data(), bytes.size(), 0);
  if (size < 0) return errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK;
  if (size == 0) return false;
  inbox_.Feed({bytes.data(), static_cast<std::size_t>(size)});
  while (const auto message = inbox_.Next()) {
    if (!Handle(*message, guard)) return false;
  }
  return !inbox_.Broken();
}

bool EngineConnection::Handle(const engine::Message& message, Guard& guard) {
  const std::uint32_t number = engine::ReadNumber(message.fields).value_or(0);
  switch (message.kind) {
    case engine::Kind::Hello:
      return HandleHello(message, guard);
    case engine::Kind::Started:
      if (number == current_) {
        startLatency_ =
            std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - spokenAt_);
      }
      return true;
    case engine::Kind::Pong:
      pongs_ = number;
      return true;
    case engine::Kind::Ended:
      HandleEnded(message, guard);
      return true;
    case engine::Kind::Word:
      return HandleWord(message, guard);
    case engine::Kind::Notice:
      HandleNotice(number, guard);
      return true;
    case engine::Kind::Remark:
      return HandleRemark(message, guard);
    default:
      return false;
  }
}

bool EngineConnection::HandleWord(const engine::Message& message, Guard& guard) {
  const auto word = engine::ReadWord(message.fields);
  if (!word || word->id != current_) return word.has_value();
  guard.unlock();
  handlers_.heard(*word);
  guard.lock();
  return true;
}

// A process that took the place of another may have found other voices.
bool EngineConnection::HandleHello(const engine::Message& message, Guard& guard) {
  auto capabilities = engine::ReadHello(message.fields);
  if (!capabilities) return false;
  greeted_ = true;
  lastPing_ = steady_clock::now();
  renewing_ = false;
  capabilities_ = std::make_shared<const engine::Capabilities>(std::move(*capabilities));
  told_.notify_all();
  SetCondition("", guard);
  return true;
}

// Every process that takes another's place says the same.
void EngineConnection::LogOnce(std::string_view line) {
  if (!std::exchange(toldRights_, true)) log_.Write(line);
}

void EngineConnection::HandleNotice(std::uint32_t code, Guard& guard) {
  if (code == static_cast<std::uint32_t>(engine::NoticeCode::Unconfined))
    return LogOnce("Sprachausgabe: Dieses System beschränkt den Prozess nicht auf das Nötige");
  if (code == static_cast<std::uint32_t>(engine::NoticeCode::FilesOpen))
    return LogOnce("Sprachausgabe: Dieses System verwehrt dem Prozess keine Dateien (Landlock fehlt)");
  const bool silent = code == static_cast<std::uint32_t>(engine::NoticeCode::NoAudioDevice);
  SetCondition(silent ? kNoDevice : "", guard);
}

// Nothing that keeps the engine from speaking.
bool EngineConnection::HandleRemark(const engine::Message& message, Guard& guard) {
  const auto remark = engine::ReadRemark(message.fields);
  if (!remark) return false;
  log_.Write("Sprachausgabe: " + *remark);
  SetCondition(*remark, guard);
  return true;
}

void EngineConnection::SetCondition(std::string_view text, Guard& guard) {
  if (text == condition_) return;
  condition_ = text;
  guard.unlock();
  handlers_.condition(std::string(text));
  guard.lock();
}

void EngineConnection::HandleEnded(const engine::Message& message, Guard& guard) {
  const auto ended = engine::ReadEnded(message.fields);
  if (ended && ended->id == current_) TellEnd(*ended, guard);
}

}  // namespace lorelin
