#include "desktop/toolkit/WxClipboard.h"

#include <wx/evtloop.h>

#include <gtk/gtk.h>

#include <chrono>
#include <thread>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr auto kPause = std::chrono::milliseconds(1);

bool IsToldOfChanges() {
  return gdk_display_supports_selection_notification(gdk_display_get_default()) != FALSE;
}

void LetClipboardEventsIn() {
  if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive(); loop != nullptr) {
    loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_CLIPBOARD);
  } else {
    gtk_main_iteration_do(FALSE);
  }
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

// The toolkit's own way waits for half a minute in an event loop that lets everything in. A text, which
// may be large, is fetched once for each change.
std::string WxClipboard::Text() {
  LetClipboardEventsIn();
  const bool upToDate = request_->asOf == changes_ && IsToldOfChanges();
  if (!upToDate && request_->answered) {
    auto next = std::make_shared<Request>();
    next->answered = false;
    next->asOf = changes_;
    next->text = request_->text;
    request_ = next;
    gtk_clipboard_request_text(
        gtk_clipboard_get(GDK_SELECTION_CLIPBOARD),
        [](GtkClipboard*, const gchar* text, gpointer data) {
          const std::unique_ptr<std::shared_ptr<Request>> request(
              static_cast<std::shared_ptr<Request>*>(data));
          (*request)->answered = true;
          (*request)->text = text != nullptr ? WithPlainLineEnds(text) : std::string();
        },
        new std::shared_ptr<Request>(next));
    const auto end = std::chrono::steady_clock::now() + kLongestWait;
    while (!next->answered && std::chrono::steady_clock::now() < end) {
      LetClipboardEventsIn();
      if (!next->answered) std::this_thread::sleep_for(kPause);
    }
  }
  return request_->text;
}

}  // namespace lorelin
