#include "tests/support/LoopbackServer.h"

#ifdef _WIN32
#include <winsock2.h>
// the other needs winsock2.h before it
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <array>

namespace lorelin {
namespace {

#ifdef _WIN32
constexpr int SOCK_CLOEXEC = 0;
constexpr int MSG_NOSIGNAL = 0;
using ssize_t = long long;

void StartNetwork() {
  static const int started = [] {
    WSADATA data{};
    return WSAStartup(MAKEWORD(2, 2), &data);
  }();
  (void)started;
}
int poll(pollfd* entries, unsigned long count, int milliseconds) {
  return WSAPoll(entries, count, milliseconds);
}
int close(std::uintptr_t socket) {
  return closesocket(socket);
}
#else
void StartNetwork() {}
#endif

#ifdef _WIN32
using Size = int;
#else
using Size = std::size_t;
#endif

constexpr int kTurn = 20;  // milliseconds

bool IsReadable(LoopbackServer::Socket descriptor) {
  pollfd entry{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&entry, 1, kTurn) > 0;
}

void SendAll(LoopbackServer::Socket connection, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(connection, bytes.data(), static_cast<Size>(bytes.size()), MSG_NOSIGNAL);
    if (sent <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

}  // namespace

LoopbackServer::LoopbackServer(std::function<std::string(const std::string&)> answer)
    : answer_(std::move(answer)) {
  StartNetwork();
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  listen(listener_, 8);
  socklen_t size = sizeof address;
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

LoopbackServer::~LoopbackServer() {
  ending_ = true;
  thread_.join();
  close(listener_);
}

std::string LoopbackServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void LoopbackServer::Serve() {
  while (!ending_) {
    if (!IsReadable(listener_)) continue;
    const Socket connection = accept(listener_, nullptr, nullptr);
    if (connection == kNoSocket) continue;
    Answer(connection);
    close(connection);
  }
}

void LoopbackServer::Answer(Socket connection) {
  std::string request;
  std::array<char, 4096> block{};
  while (!ending_ && request.find("\r\n\r\n") == std::string::npos) {
    if (!IsReadable(connection)) continue;
    const ssize_t size = recv(connection, block.data(), static_cast<Size>(block.size()), 0);
    if (size <= 0) return;
    request.append(block.data(), static_cast<std::size_t>(size));
  }
  request_ = request;
  const auto begin = request.find(' ') + 1;
  const std::string answer = answer_(request.substr(begin, request.find(' ', begin) - begin));
  if (!answer.empty()) return SendAll(connection, answer);
  while (!ending_) IsReadable(connection);  // no answer: silence until the end
}

std::string HttpAnswer(const std::string& status, const std::string& body, const std::string& headers) {
  return "HTTP/1.1 " + status + "\r\nConnection: close\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\n" + headers + "\r\n" + body;
}

}  // namespace lorelin
