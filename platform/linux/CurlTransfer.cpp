#include "platform/linux/CurlTransfer.h"

#include <cstring>
#include <utility>

#include "base/version.h"

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

struct FreeAddress {
  void operator()(CURLU* address) const { Curl()->urlCleanup(address); }
};

}  // namespace

// The address without name and password; nothing of one that is not understood.
std::string PublicAddress(const CurlLibrary& curl, const std::string& url) {
  const std::unique_ptr<CURLU, FreeAddress> parsed(curl.url());
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

CurlTransfer::CurlTransfer(const CurlLibrary& curl, Order order)
    : curl_(curl), order_(std::move(order)), easy_(curl.easyInit()), multi_(curl.multiInit()) {
  if (easy_ == nullptr || multi_ == nullptr) return;
  Prepare();
  PrepareBody();
  curl_.multiAdd(multi_.get(), easy_.get());
}

CurlTransfer::~CurlTransfer() {
  if (easy_ != nullptr && multi_ != nullptr) curl_.multiRemove(multi_.get(), easy_.get());
}

std::size_t CurlTransfer::WriteBody(const char* bytes, std::size_t, std::size_t size, void* transfer) {
  auto& self = *static_cast<CurlTransfer*>(transfer);
  self.writeError_ = self.order_.write({bytes, size});
  return self.writeError_ == 0 ? size : 0;
}

std::string CurlTransfer::Run(const std::function<bool()>& keepGoing) {
  if (easy_ == nullptr || multi_ == nullptr) return "no memory";
  int running = 1;
  while (running > 0) {
    if (const CURLMcode code = curl_.multiPerform(multi_.get(), &running); code != CURLM_OK) {
      code_ = CURLE_FAILED_INIT;
      return curl_.multiError(code);
    }
    if (!keepGoing()) {
      cancelled_ = true;
      return "abgebrochen";
    }
    if (running > 0) curl_.multiPoll(multi_.get(), nullptr, 0, kTurn, nullptr);
  }
  return Result();
}

long CurlTransfer::Status() const {
  long status = 0;
  curl_.easyInfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
  return status;
}

std::string CurlTransfer::ContentType() const {
  const char* type = nullptr;
  curl_.easyInfo(easy_.get(), CURLINFO_CONTENT_TYPE, &type);
  return type != nullptr ? type : "";
}

void CurlTransfer::Prepare() {
  headers_.reset(curl_.listAppend(headers_.release(), "Cache-Control: no-cache"));
  headers_.reset(curl_.listAppend(headers_.release(), "Pragma: no-cache"));
  Set(CURLOPT_URL, order_.url.c_str());
  Set(CURLOPT_HTTPHEADER, headers_.get());
  Set(CURLOPT_PROTOCOLS_STR, "http,https");
  Set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  Set(CURLOPT_FOLLOWLOCATION, 1L);
  Set(CURLOPT_MAXREDIRS, kMostRedirects);
  Set(CURLOPT_FAILONERROR, 1L);
  Set(CURLOPT_NOSIGNAL, 1L);
  Set(CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  Set(CURLOPT_LOW_SPEED_LIMIT, 1L);
  Set(CURLOPT_LOW_SPEED_TIME, kSilentSeconds);
  Set(CURLOPT_USERAGENT, (std::string("Lorelin/") + kVersionText).c_str());
  Set(CURLOPT_ERRORBUFFER, problem_);
}

// A place within a file is one of the file as it is, not of a compressed form.
void CurlTransfer::PrepareBody() {
  if (order_.packed) Set(CURLOPT_ACCEPT_ENCODING, "");
  if (order_.from > 0) Set(CURLOPT_RESUME_FROM_LARGE, static_cast<curl_off_t>(order_.from));
  Set(CURLOPT_WRITEFUNCTION, &WriteBody);
  Set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

std::string CurlTransfer::Result() {
  int left = 0;
  const CURLMsg* const message = curl_.multiRead(multi_.get(), &left);
  if (message == nullptr || message->msg != CURLMSG_DONE) {
    code_ = CURLE_FAILED_INIT;
    return "no result";
  }
  code_ = message->data.result;
  if (code_ == CURLE_OK) return {};
  if (writeError_ != 0) return std::strerror(writeError_);
  return problem_[0] != '\0' ? problem_ : curl_.easyError(code_);
}

}  // namespace lorelin
