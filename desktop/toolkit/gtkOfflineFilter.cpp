#include "desktop/toolkit/offlineFilter.h"

#include <webkit2/webkit2.h>

namespace lorelin {
namespace {

// Content blocker rules as WebKit reads them (https://webkit.org/blog/3476/content-blockers-first-look/).
constexpr const char* kRules = R"([
  {"trigger": {"url-filter": "^https?://.*"}, "action": {"type": "block"}},
  {"trigger": {"url-filter": "^wss?://.*"}, "action": {"type": "block"}},
  {"trigger": {"url-filter": "^ftp://.*"}, "action": {"type": "block"}}
])";

void AddFilter(GObject* store, GAsyncResult* result, gpointer view) {
  WebKitUserContentFilter* const filter =
      webkit_user_content_filter_store_save_finish(WEBKIT_USER_CONTENT_FILTER_STORE(store), result, nullptr);
  if (filter != nullptr) {
    webkit_user_content_manager_add_filter(webkit_web_view_get_user_content_manager(WEBKIT_WEB_VIEW(view)),
                                           filter);
    webkit_user_content_filter_unref(filter);
  }
  g_object_unref(view);
  g_object_unref(store);
}

}  // namespace

void BlockNetwork(wxWebView& view, const std::string& folder) {
  auto* const native = static_cast<GObject*>(view.GetNativeBackend());
  if (native == nullptr) return;
  // Pages have no programs of their own; ours still runs in them.
  webkit_settings_set_enable_javascript_markup(webkit_web_view_get_settings(WEBKIT_WEB_VIEW(native)), FALSE);
  WebKitUserContentFilterStore* const store = webkit_user_content_filter_store_new(folder.c_str());
  GBytes* const rules = g_bytes_new_static(kRules, std::char_traits<char>::length(kRules));
  webkit_user_content_filter_store_save(store, "offline", rules, nullptr, &AddFilter, g_object_ref(native));
  g_bytes_unref(rules);
}

}  // namespace lorelin
