#include "desktop/toolkit/pageSearch.h"

#include <webkit2/webkit2.h>

#include <optional>

namespace lorelin {
namespace {

constexpr unsigned kPatience = 1000;  // milliseconds

struct Search {
  std::optional<bool> found;
  bool late = false;
};

void OnFound(WebKitFindController*, unsigned, gpointer search) {
  static_cast<Search*>(search)->found = true;
}
void OnFailed(WebKitFindController*, gpointer search) {
  static_cast<Search*>(search)->found = false;
}
gboolean OnLate(gpointer search) {
  static_cast<Search*>(search)->late = true;
  return G_SOURCE_REMOVE;
}

}  // namespace

// The toolkit's own Find tells the result of the search before, since the page answers later.
bool FindInPage(wxWebView& view, const wxString& text, bool matchCase, bool backwards) {
  WebKitFindController* const controller =
      webkit_web_view_get_find_controller(WEBKIT_WEB_VIEW(view.GetNativeBackend()));
  Search search;
  const gulong found = g_signal_connect(controller, "found-text", G_CALLBACK(OnFound), &search);
  const gulong failed = g_signal_connect(controller, "failed-to-find-text", G_CALLBACK(OnFailed), &search);
  const unsigned late = g_timeout_add(kPatience, OnLate, &search);
  unsigned options = WEBKIT_FIND_OPTIONS_WRAP_AROUND;
  if (!matchCase) options |= WEBKIT_FIND_OPTIONS_CASE_INSENSITIVE;
  if (backwards) options |= WEBKIT_FIND_OPTIONS_BACKWARDS;
  webkit_find_controller_search(controller, text.utf8_str(), options, G_MAXUINT);
  while (!search.found && !search.late) g_main_context_iteration(nullptr, TRUE);
  if (!search.late) g_source_remove(late);
  g_signal_handler_disconnect(controller, found);
  g_signal_handler_disconnect(controller, failed);
  return search.found.value_or(false);
}

}  // namespace lorelin
