#include "engine/ProgramStarter.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <optional>

namespace lorelin::engine {
namespace {

using Outcome = ProgramStarter::Outcome;

constexpr std::size_t kDescriptors = 4;  // input, output, errors, control

// What is asked of the other process, beside the descriptors.
struct Request {
  std::uint32_t voice = 0;
  std::int32_t pitch = 0;
  std::int32_t speed = 0;
  std::int32_t volume = 0;
};

// The space that descriptors take beside a message.
union Passage {
  cmsghdr head;
  std::array<char, CMSG_SPACE(kDescriptors * sizeof(int))> bytes;
};

msghdr MessageOf(iovec& part, Passage& passage) {
  msghdr message{};
  message.msg_iov = &part;
  message.msg_iovlen = 1;
  message.msg_control = passage.bytes.data();
  message.msg_controllen = passage.bytes.size();
  return message;
}

bool SendRequest(int socket, Request request, const ChildProgram::Ends& ends) {
  const std::array<int, kDescriptors> numbers{ends.input, ends.output, ends.errors, ends.control};
  iovec part{&request, sizeof request};
  Passage passage{};
  const msghdr message = MessageOf(part, passage);
  cmsghdr* const head = CMSG_FIRSTHDR(&message);
  head->cmsg_level = SOL_SOCKET;
  head->cmsg_type = SCM_RIGHTS;
  head->cmsg_len = CMSG_LEN(sizeof numbers);
  std::memcpy(CMSG_DATA(head), numbers.data(), sizeof numbers);
  return sendmsg(socket, &message, MSG_NOSIGNAL) == sizeof request;
}

// Nothing at the end of the connection.
std::optional<Request> ReceiveRequest(int socket, std::array<Descriptor, kDescriptors>& ends) {
  Request request;
  iovec part{&request, sizeof request};
  Passage passage{};
  msghdr message = MessageOf(part, passage);
  ssize_t size = -1;
  do {
    size = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
  } while (size < 0 && errno == EINTR);
  const cmsghdr* const head = CMSG_FIRSTHDR(&message);
  if (size != sizeof request || head == nullptr || head->cmsg_type != SCM_RIGHTS) return std::nullopt;
  std::array<int, kDescriptors> numbers{};
  if (head->cmsg_len != CMSG_LEN(sizeof numbers)) return std::nullopt;
  std::memcpy(numbers.data(), CMSG_DATA(head), sizeof numbers);
  for (std::size_t i = 0; i < kDescriptors; ++i) ends[i] = Descriptor(numbers[i]);
  return request;
}

Outcome StartFor(const CommandVoice& voice, const Request& request,
                 const std::array<Descriptor, kDescriptors>& ends) {
  Utterance utterance;
  utterance.pitch = request.pitch;
  utterance.speed = request.speed;
  utterance.volumeLeft = request.volume;
  const auto arguments = FilledCommand(voice, utterance);
  const auto file = FindProgram(arguments.front(), voice.folder);
  if (file.empty()) return Outcome::NotFound;
  const pid_t guard =
      ChildProgram::StartBehind({.file = file, .arguments = arguments, .folder = voice.folder},
                                {ends[0].Number(), ends[1].Number(), ends[2].Number(), ends[3].Number()});
  return guard < 0 ? Outcome::Failed : Outcome::Started;
}

[[noreturn]] void Serve(int socket, std::span<const CommandVoice> voices) {
  constexpr int kFirstOther = 3;
  prctl(PR_SET_NAME, "lorelin-starter");
  std::signal(SIGCHLD, SIG_IGN);  // nobody waits for the guards
  if (socket > kFirstOther) close_range(kFirstOther, static_cast<unsigned>(socket) - 1, 0);
  close_range(static_cast<unsigned>(socket) + 1, UINT_MAX, 0);
  for (;;) {
    std::array<Descriptor, kDescriptors> ends;
    const auto request = ReceiveRequest(socket, ends);
    if (!request) _exit(0);
    Outcome outcome = Outcome::Failed;
    if (request->voice < voices.size()) outcome = StartFor(voices[request->voice], *request, ends);
    (void)send(socket, &outcome, sizeof outcome, MSG_NOSIGNAL);
  }
}

}  // namespace

ProgramStarter::ProgramStarter(std::span<const CommandVoice> voices) : voices_(voices) {
  std::array<int, 2> ends{-1, -1};
  if (voices.empty() || socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
  socket_ = Descriptor(ends[0]);
  const Descriptor other(ends[1]);
  process_ = fork();
  if (process_ == 0) Serve(other.Number(), voices);
}

ProgramStarter::~ProgramStarter() {
  socket_.Close();
  while (process_ > 0 && waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
  }
}

Outcome ProgramStarter::Start(const CommandVoice& voice, const Utterance& utterance,
                              std::unique_ptr<ChildProgram>& program) const {
  Outcome outcome = Outcome::Failed;
  program = ChildProgram::StartWith([&](const ChildProgram::Ends& ends) -> pid_t {
    const Request request{static_cast<std::uint32_t>(&voice - voices_.data()), utterance.pitch,
                          utterance.speed, utterance.volumeLeft};
    if (!SendRequest(socket_.Number(), request, ends)) return -1;
    ssize_t size = -1;
    do {
      size = recv(socket_.Number(), &outcome, sizeof outcome, 0);
    } while (size < 0 && errno == EINTR);
    if (size != sizeof outcome) outcome = Outcome::Failed;
    return outcome == Outcome::Started ? 0 : -1;
  });
  return outcome;
}

}  // namespace lorelin::engine
