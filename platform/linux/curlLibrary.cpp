#include "platform/linux/curlLibrary.h"

#include <dlfcn.h>

#include <optional>

namespace lorelin {
namespace {

constexpr const char* kName = "libcurl.so.4";

// Whether all of them are there.
class Functions {
 public:
  explicit Functions(void* library) : library_(library) {}

  template <typename Function>
  Functions& Find(const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library_, name));
    complete_ = complete_ && function != nullptr;
    return *this;
  }
  [[nodiscard]] bool Complete() const { return complete_; }

 private:
  void* library_;
  bool complete_ = true;
};

std::optional<CurlLibrary> Load() {
  void* const library = dlopen(kName, RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return std::nullopt;
  CurlLibrary curl;
  Functions functions(library);
  functions.Find("curl_global_init", curl.globalInit)
      .Find("curl_free", curl.free)
      .Find("curl_url", curl.url)
      .Find("curl_url_set", curl.urlSet)
      .Find("curl_url_get", curl.urlGet)
      .Find("curl_url_cleanup", curl.urlCleanup)
      .Find("curl_slist_append", curl.listAppend)
      .Find("curl_slist_free_all", curl.listFree);
  functions.Find("curl_easy_init", curl.easyInit)
      .Find("curl_easy_setopt", curl.easySetOption)
      .Find("curl_easy_strerror", curl.easyError)
      .Find("curl_easy_getinfo", curl.easyInfo)
      .Find("curl_easy_cleanup", curl.easyCleanup);
  functions.Find("curl_multi_init", curl.multiInit)
      .Find("curl_multi_add_handle", curl.multiAdd)
      .Find("curl_multi_remove_handle", curl.multiRemove)
      .Find("curl_multi_perform", curl.multiPerform)
      .Find("curl_multi_poll", curl.multiPoll)
      .Find("curl_multi_info_read", curl.multiRead)
      .Find("curl_multi_strerror", curl.multiError)
      .Find("curl_multi_cleanup", curl.multiCleanup);
  if (!functions.Complete() || curl.globalInit(CURL_GLOBAL_DEFAULT) != CURLE_OK) return std::nullopt;
  return curl;
}

}  // namespace

const CurlLibrary* Curl() {
  static const std::optional<CurlLibrary> curl = Load();
  return curl ? &*curl : nullptr;
}

}  // namespace lorelin
