#include "platform/linux/CurlDownloader.h"

#include <sys/xattr.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "base/paths.h"
#include "base/version.h"
#include "platform/common/unfinishedFile.h"
#include "platform/linux/curlLibrary.h"

namespace lorelin {
namespace {

constexpr int kTurn = 10;  // milliseconds
constexpr long kMostRedirects = 20;
constexpr long kConnectSeconds = 30;
constexpr long kSilentSeconds = 60;

template <auto Function>
struct FreedBy {
  template <typename Handle>
  void operator()(Handle* handle) const {
    (Curl()->*Function)(handle);
  }
};
using Easy = std::unique_ptr<CURL, FreedBy<&CurlLibrary::easyCleanup>>;
using Multi = std::unique_ptr<CURLM, FreedBy<&CurlLibrary::multiCleanup>>;
using List = std::unique_ptr<curl_slist, FreedBy<&CurlLibrary::listFree>>;
using Address = std::unique_ptr<CURLU, FreedBy<&CurlLibrary::urlCleanup>>;

// The address without name and password; nothing of one that is not understood.
std::string PublicAddress(const CurlLibrary& curl, const std::string& url) {
  const Address parsed(curl.url());
  char* text = nullptr;
  if (parsed == nullptr || curl.urlSet(parsed.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK ||
      curl.urlSet(parsed.get(), CURLUPART_USER, nullptr, 0) != CURLUE_OK ||
      curl.urlSet(parsed.get(), CURLUPART_PASSWORD, nullptr, 0) != CURLUE_OK ||
      curl.urlGet(parsed.get(), CURLUPART_URL, &text, 0) != CURLUE_OK) {
    return {};
  }
  std::string address = text;
  curl.free(text);
  return address;
}

struct Body {
  UnfinishedFile& file;
  int error = 0;
};

std::size_t WriteBody(const char* bytes, std::size_t, std::size_t size, void* body) {
  auto& target = *static_cast<Body*>(body);
  target.error = target.file.Write({bytes, size});
  return target.error == 0 ? size : 0;
}

// One transfer on the caller's thread.
class Transfer {
 public:
  Transfer(const CurlLibrary& curl, const std::string& url, Body& body)
      : curl_(curl), easy_(curl.easyInit()), multi_(curl.multiInit()), body_(body) {
    if (easy_ == nullptr || multi_ == nullptr) return;
    Prepare(url);
    curl_.multiAdd(multi_.get(), easy_.get());
  }
  ~Transfer() {
    if (easy_ != nullptr && multi_ != nullptr) curl_.multiRemove(multi_.get(), easy_.get());
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  // The reason of the failure; "" for a success.
  std::string Run(const std::function<bool()>& keepGoing) {
    if (easy_ == nullptr || multi_ == nullptr) return "no memory";
    int running = 1;
    while (running > 0) {
      if (const CURLMcode code = curl_.multiPerform(multi_.get(), &running); code != CURLM_OK) {
        return curl_.multiError(code);
      }
      if (!keepGoing()) return "abgebrochen";
      if (running > 0) curl_.multiPoll(multi_.get(), nullptr, 0, kTurn, nullptr);
    }
    return Result();
  }

 private:
  template <typename Value>
  void Set(CURLoption option, Value value) {
    curl_.easySetOption(easy_.get(), option, value);
  }

  void Prepare(const std::string& url) {
    headers_.reset(curl_.listAppend(headers_.release(), "Cache-Control: no-cache"));
    headers_.reset(curl_.listAppend(headers_.release(), "Pragma: no-cache"));
    Set(CURLOPT_URL, url.c_str());
    Set(CURLOPT_HTTPHEADER, headers_.get());
    Set(CURLOPT_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    Set(CURLOPT_FOLLOWLOCATION, 1L);
    Set(CURLOPT_MAXREDIRS, kMostRedirects);
    Set(CURLOPT_FAILONERROR, 1L);
    Set(CURLOPT_ACCEPT_ENCODING, "");
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    Set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    Set(CURLOPT_LOW_SPEED_TIME, kSilentSeconds);
    Set(CURLOPT_USERAGENT, (std::string("Lorelin/") + kVersionText).c_str());
    Set(CURLOPT_ERRORBUFFER, problem_);
    Set(CURLOPT_WRITEFUNCTION, &WriteBody);
    Set(CURLOPT_WRITEDATA, static_cast<void*>(&body_));
  }

  std::string Result() {
    int left = 0;
    const CURLMsg* const message = curl_.multiRead(multi_.get(), &left);
    if (message == nullptr || message->msg != CURLMSG_DONE) return "no result";
    const CURLcode code = message->data.result;
    if (code == CURLE_OK) return {};
    if (body_.error != 0) return std::strerror(body_.error);
    return problem_[0] != '\0' ? problem_ : curl_.easyError(code);
  }

  const CurlLibrary& curl_;
  Easy easy_;
  Multi multi_;
  List headers_;
  Body& body_;
  char problem_[CURL_ERROR_SIZE] = "";
};

}  // namespace

std::string CurlDownloader::Download(const std::string& url, const std::string& targetFile,
                                     const std::function<bool()>& keepGoing) {
  const CurlLibrary* const curl = Curl();
  const std::string address = curl != nullptr ? PublicAddress(*curl, url) : std::string();
  const auto fail = [&](std::string reason) {
    log_.Write("Download " + (address.empty() ? "(unverständliche Adresse)" : address) + " nach " +
               targetFile + ": " + reason);
    return reason;
  };
  if (curl == nullptr) return fail("libcurl ist nicht installiert");
  if (targetFile.empty()) return fail("kein Dateiname");
  UnfinishedFile file(NativePath(targetFile));
  if (const int error = file.Open(); error != 0) return fail(std::strerror(error));
  Body body{.file = file};
  if (const std::string reason = Transfer(*curl, url, body).Run(keepGoing); !reason.empty())
    return fail(reason);
  // Not every file system has such attributes.
  (void)setxattr(file.Path().c_str(), "user.xdg.origin.url", address.data(), address.size(), 0);
  if (const int error = file.PutInPlace(); error != 0) return fail(std::strerror(error));
  return {};
}

}  // namespace lorelin
