#include "engine/ChildProgram.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <system_error>
#include <utility>

#include "base/textEncoding.h"
#include "engine/programGuard.h"

namespace lorelin::engine {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::size_t kMostComplaints = 4096;
constexpr std::size_t kLongestComplaint = 160;
constexpr int kFirstOther = 3;

// Not one of the numbers that a program's own input, output and errors get.
Descriptor Raised(int number) {
  if (number < 0 || number >= kFirstOther) return Descriptor(number);
  const Descriptor low(number);
  return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, kFirstOther));
}

struct BothEnds {
  Descriptor here;
  Descriptor there;

  [[nodiscard]] bool Open() const { return here.IsOpen() && there.IsOpen(); }
};

BothEnds MakePipe(bool writesHere) {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return {};
  if (writesHere) std::swap(ends[0], ends[1]);
  fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return {Raised(ends[0]), Raised(ends[1])};
}

BothEnds MakeControl() {
  std::array<int, 2> ends{-1, -1};
  if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) return {};
  return {Raised(ends[0]), Raised(ends[1])};
}

int Left(ChildProgram::Time until) {
  const auto left = std::chrono::ceil<milliseconds>(until - steady_clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT_MAX));
}

// write() to a program that has closed its input raises a signal; here it is only an error.
ssize_t WriteQuietly(int descriptor, std::string_view bytes) {
  sigset_t broken;
  sigset_t before;
  sigemptyset(&broken);
  sigaddset(&broken, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &broken, &before);
  const ssize_t size = write(descriptor, bytes.data(), bytes.size());
  const int error = errno;
  if (size < 0 && error == EPIPE) {
    const timespec now{};
    (void)sigtimedwait(&broken, nullptr, &now);
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  errno = error;
  return size;
}

bool MayComeLater(int error) {
  return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

}  // namespace

ChildProgram::ChildProgram(pid_t guard, Descriptor input, Descriptor output, Descriptor errors,
                           Descriptor control)
    : guard_(guard),
      input_(std::move(input)),
      outputEnd_(std::move(output)),
      errors_(std::move(errors)),
      control_(std::move(control)) {}

std::unique_ptr<ChildProgram> ChildProgram::Start(const Command& command) {
  return StartWith([&](const Ends& ends) { return StartBehind(command, ends); });
}

std::unique_ptr<ChildProgram> ChildProgram::StartWith(const std::function<pid_t(const Ends&)>& start) {
  BothEnds input = MakePipe(true);
  BothEnds output = MakePipe(false);
  BothEnds errors = MakePipe(false);
  BothEnds control = MakeControl();
  if (!input.Open() || !output.Open() || !errors.Open() || !control.Open()) return nullptr;
  const pid_t guard =
      start({input.there.Number(), output.there.Number(), errors.there.Number(), control.there.Number()});
  if (guard < 0) return nullptr;
  return std::unique_ptr<ChildProgram>(new ChildProgram(guard, std::move(input.here), std::move(output.here),
                                                        std::move(errors.here), std::move(control.here)));
}

pid_t ChildProgram::StartBehind(const Command& command, const Ends& ends) {
  std::vector<std::string> texts = command.arguments;
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  return StartGuarded({.file = command.file.c_str(),
                       .arguments = arguments.data(),
                       .folder = command.folder.c_str(),
                       .input = ends.input,
                       .output = ends.output,
                       .errors = ends.errors,
                       .control = ends.control});
}

// The guard closes its end when nothing of the program's group is left.
ChildProgram::~ChildProgram() {
  shutdown(control_.Number(), SHUT_WR);
  GuardMessage message;
  ssize_t size = 0;
  do {
    size = recv(control_.Number(), &message, sizeof message, 0);
  } while (size > 0 || (size < 0 && errno == EINTR));
  while (guard_ > 0 && waitpid(guard_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

void ChildProgram::Write(std::string_view& input, bool last) {
  if (!input.empty()) {
    const ssize_t size = WriteQuietly(input_.Number(), input);
    if (size < 0 && MayComeLater(errno)) return;
    if (size < 0) return input_.Close();  // it wants no more
    input.remove_prefix(static_cast<std::size_t>(size));
  }
  if (input.empty() && last) input_.Close();
}

// False behind the end.
bool ChildProgram::ReadOutput() {
  std::array<char, 65536> bytes{};
  const ssize_t size = read(outputEnd_.Number(), bytes.data(), bytes.size());
  if (size < 0) return MayComeLater(errno);
  output_.append(bytes.data(), static_cast<std::size_t>(size));
  return size > 0;
}

// False when there was nothing more.
bool ChildProgram::ReadErrors() {
  std::array<char, 4096> bytes{};
  const ssize_t size = read(errors_.Number(), bytes.data(), bytes.size());
  if (size < 0 && MayComeLater(errno)) return false;
  if (size <= 0) return errors_.Close(), false;
  complaints_.append(bytes.data(), static_cast<std::size_t>(size));
  if (complaints_.size() > kMostComplaints) complaints_.erase(0, complaints_.size() - kMostComplaints);
  return true;
}

ChildProgram::Outcome ChildProgram::Exchange(std::string_view input, bool last,
                                             const std::function<bool()>& enough, Time until,
                                             const Interruption& interruption) {
  if (input_.IsOpen()) Write(input, last);
  while (!enough()) {
    if (interruption.IsSet()) return Outcome::Stopped;
    if (output_.size() > kMostOutput) return Outcome::TooMuch;
    if (steady_clock::now() >= until) return Outcome::Late;
    std::array<pollfd, 4> ready{
        pollfd{.fd = outputEnd_.Number(), .events = POLLIN, .revents = 0},
        pollfd{.fd = errors_.Number(), .events = POLLIN, .revents = 0},
        pollfd{.fd = input.empty() ? -1 : input_.Number(), .events = POLLOUT, .revents = 0},
        pollfd{.fd = interruption.Descriptor(), .events = POLLIN, .revents = 0}};
    poll(ready.data(), ready.size(), Left(until));
    if (ready[1].revents != 0) (void)ReadErrors();
    if (ready[2].revents != 0) Write(input, last);
    if (ready[0].revents != 0 && !ReadOutput()) return enough() ? Outcome::Enough : Outcome::Ended;
  }
  return Outcome::Enough;
}

std::string ChildProgram::Complaint() const {
  std::string_view text = complaints_;
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' '))
    text.remove_suffix(1);
  const std::size_t begin = text.find_last_of("\r\n");
  if (begin != std::string_view::npos) text.remove_prefix(begin + 1);
  std::string line;
  while (!text.empty() && line.size() < kLongestComplaint) {
    const std::size_t length = Utf8Length(text);
    const bool plain =
        length > 1 || (length == 1 && static_cast<unsigned char>(text[0]) >= 0x20 && text[0] != 0x7F);
    line += plain ? text.substr(0, length) : "?";
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return text.empty() ? line : line + " …";
}

ChildProgram::Fate ChildProgram::AwaitEnd(Time until) {
  while (!fate_) {
    pollfd told{.fd = control_.Number(), .events = POLLIN, .revents = 0};
    const int found = poll(&told, 1, Left(until));
    if (found < 0 && errno == EINTR) continue;
    if (found <= 0) return {};
    GuardMessage message;
    const ssize_t size = recv(control_.Number(), &message, sizeof message, 0);
    using Kind = Fate::Kind;
    if (size != sizeof message) {
      fate_ = Fate{Kind::Crashed, SIGKILL};  // somebody has ended the guard
    } else if (message.kind == GuardMessage::Kind::NotStarted) {
      fate_ = Fate{Kind::NotStarted, message.number};
    } else if (WIFEXITED(message.number)) {
      fate_ = Fate{Kind::Exited, WEXITSTATUS(message.number)};
    } else {
      fate_ = Fate{Kind::Crashed, WTERMSIG(message.number)};
    }
  }
  while (errors_.IsOpen() && ReadErrors()) {
  }
  return *fate_;
}

fs::path FindProgram(const std::string& name, const fs::path& folder) {
  const auto runs = [](const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
  };
  if (name.find('/') != std::string::npos) return runs(folder / name) ? folder / name : fs::path();
  const char* const set = std::getenv("PATH");
  std::string_view places = set != nullptr && *set != '\0' ? set : "/usr/local/bin:/usr/bin:/bin";
  while (!places.empty()) {
    const std::string_view place = places.substr(0, places.find(':'));
    const fs::path file = fs::path(place) / name;
    if (place.starts_with('/') && runs(file)) return file;
    places.remove_prefix(std::min(place.size() + 1, places.size()));
  }
  return {};
}

}  // namespace lorelin::engine
