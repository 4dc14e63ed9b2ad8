#pragma once

#include <curl/curl.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/linux/curlLibrary.h"

namespace lorelin {

// One transfer through libcurl, on the caller's thread.
class CurlTransfer {
 public:
  struct Order {
    std::string url;                                   // http or https
    std::function<int(std::string_view bytes)> write;  // takes what arrives; 0 or an errno
    bool packed = false;                               // it may come compressed
    std::uintmax_t from = 0;                           // the first byte that is wanted
  };

  CurlTransfer(const CurlLibrary& curl, Order order);
  ~CurlTransfer();
  CurlTransfer(const CurlTransfer&) = delete;
  CurlTransfer& operator=(const CurlTransfer&) = delete;

  // The reason of the failure; "" for a success.
  [[nodiscard]] std::string Run(const std::function<bool()>& keepGoing);

  // After Run: what `keepGoing` ended, the number of the library's error, that of `write`, the server's
  // answer.
  [[nodiscard]] bool Cancelled() const { return cancelled_; }
  [[nodiscard]] CURLcode Code() const { return code_; }
  [[nodiscard]] int WriteError() const { return writeError_; }
  [[nodiscard]] long Status() const;
  // What the server says of what it sent; "" when it says nothing.
  [[nodiscard]] std::string ContentType() const;

 private:
  template <auto Function>
  struct FreedBy {
    template <typename Handle>
    void operator()(Handle* handle) const {
      (Curl()->*Function)(handle);
    }
  };

  static std::size_t WriteBody(const char* bytes, std::size_t, std::size_t size, void* transfer);
  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_.easySetOption(easy_.get(), option, value);
  }
  void Prepare();
  void PrepareBody();
  std::string Result();

  const CurlLibrary& curl_;
  const Order order_;
  std::unique_ptr<CURL, FreedBy<&CurlLibrary::easyCleanup>> easy_;
  std::unique_ptr<CURLM, FreedBy<&CurlLibrary::multiCleanup>> multi_;
  std::unique_ptr<curl_slist, FreedBy<&CurlLibrary::listFree>> headers_;
  bool cancelled_ = false;
  CURLcode code_ = CURLE_OK;
  int writeError_ = 0;
  char problem_[CURL_ERROR_SIZE] = "";
};

// The address without name and password; nothing of one that is not understood.
[[nodiscard]] std::string PublicAddress(const CurlLibrary& curl, const std::string& url);

}  // namespace lorelin
