#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

namespace lorelin {

// A web server for one test: answers every request on a port of its own with what the function makes of its
// path. The answer is sent as it stands, then the connection is closed.
class LoopbackServer {
 public:
#ifdef _WIN32
  using Socket = std::uintptr_t;
#else
  using Socket = int;
#endif
  static constexpr Socket kNoSocket = static_cast<Socket>(-1);

  explicit LoopbackServer(std::function<std::string(const std::string& path)> answer);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  [[nodiscard]] std::string Url(const std::string& path) const;
  [[nodiscard]] std::string LastRequest() const {
    return request_;
  }

 private:
  void Serve();
  void Answer(Socket connection);

  std::function<std::string(const std::string&)> answer_;
  Socket listener_ = kNoSocket;
  int port_ = 0;
  std::string request_;
  std::atomic<bool> ending_ = false;
  std::thread thread_;
};

// An answer of HTTP/1.1 with this status line and body.
[[nodiscard]] std::string HttpAnswer(const std::string& status, const std::string& body,
                                     const std::string& headers = "");

}  // namespace lorelin
