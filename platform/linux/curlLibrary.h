#pragma once

#include <curl/curl.h>

namespace lorelin {

// The functions of libcurl, which is loaded when something is downloaded for the first time: with all that it
// needs itself it is a tenth of the program's libraries, and most runs download nothing.
struct CurlLibrary {
  decltype(&curl_global_init) globalInit = nullptr;
  decltype(&curl_free) free = nullptr;
  decltype(&curl_url) url = nullptr;
  decltype(&curl_url_set) urlSet = nullptr;
  decltype(&curl_url_get) urlGet = nullptr;
  decltype(&curl_url_cleanup) urlCleanup = nullptr;
  decltype(&curl_easy_init) easyInit = nullptr;
  decltype(&curl_easy_setopt) easySetOption = nullptr;
  decltype(&curl_easy_strerror) easyError = nullptr;
  decltype(&curl_easy_getinfo) easyInfo = nullptr;
  decltype(&curl_easy_cleanup) easyCleanup = nullptr;
  decltype(&curl_multi_init) multiInit = nullptr;
  decltype(&curl_multi_add_handle) multiAdd = nullptr;
  decltype(&curl_multi_remove_handle) multiRemove = nullptr;
  decltype(&curl_multi_perform) multiPerform = nullptr;
  decltype(&curl_multi_poll) multiPoll = nullptr;
  decltype(&curl_multi_info_read) multiRead = nullptr;
  decltype(&curl_multi_strerror) multiError = nullptr;
  decltype(&curl_multi_cleanup) multiCleanup = nullptr;
  decltype(&curl_slist_append) listAppend = nullptr;
  decltype(&curl_slist_free_all) listFree = nullptr;
};

// None where it is not installed. User-interface thread only.
[[nodiscard]] const CurlLibrary* Curl();

}  // namespace lorelin
