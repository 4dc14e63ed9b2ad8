#include <utility>

#include "desktop/toolkit/WxClipboard.h"
#include "desktop/toolkit/gtkSelection.h"

namespace lorelin {
namespace {

bool IsToldOfChanges() {
  return gdk_display_supports_selection_notification(gdk_display_get_default()) != FALSE;
}

}  // namespace

WxClipboard::WxClipboard() : request_(std::make_shared<Request>()) {
  GtkClipboard* const clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
  const auto changed =
      +[](GtkClipboard*, GdkEvent*, gpointer self) { ++static_cast<WxClipboard*>(self)->changes_; };
  handler_ = g_signal_connect(clipboard, "owner-change", G_CALLBACK(changed), this);
}
WxClipboard::~WxClipboard() {
  g_signal_handler_disconnect(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), handler_);
}

// A text, which may be large, is fetched once for each change.
std::string WxClipboard::Text() {
  LetSelectionEventsIn();
  const bool upToDate = request_->asOf == changes_ && IsToldOfChanges();
  if (!upToDate && request_->answered) {
    auto next = std::make_shared<Request>();
    next->answered = false;
    next->asOf = changes_;
    next->text = request_->text;
    request_ = next;
    RequestSelection(GDK_SELECTION_CLIPBOARD, [next](std::string text) {
      next->answered = true;
      next->text = std::move(text);
    });
  }
  return request_->text;
}

}  // namespace lorelin
