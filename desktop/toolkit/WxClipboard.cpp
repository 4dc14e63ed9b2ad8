#include "desktop/toolkit/WxClipboard.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/evtloop.h>

#include "base/textEncoding.h"
#include "desktop/toolkit/text.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>

#include <chrono>
#include <thread>
#elif defined(__WXMSW__)
#include <wx/msw/wrapwin.h>
#endif

namespace lorelin {

struct WxClipboard::Request {
  bool answered = true;
  std::uint64_t asOf = 0;  // the change whose text it is
  std::string text;
};

#ifdef __WXGTK__

WxClipboard::WxClipboard() : request_(std::make_shared<Request>()) {
  GtkClipboard* const clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
  const auto changed =
      +[](GtkClipboard*, GdkEvent*, gpointer self) { ++static_cast<WxClipboard*>(self)->changes_; };
  handler_ = g_signal_connect(clipboard, "owner-change", G_CALLBACK(changed), this);
}
WxClipboard::~WxClipboard() {
  g_signal_handler_disconnect(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), handler_);
}

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

#else

WxClipboard::WxClipboard() : request_(std::make_shared<Request>()) {}
WxClipboard::~WxClipboard() = default;

// A text, which may be large, is fetched once for each change. The number is 0 where it may not be asked for.
std::string WxClipboard::Text() {
  const DWORD now = GetClipboardSequenceNumber();
  if (now != 0 && now == request_->asOf) return request_->text;
  wxClipboardLocker lock;
  if (!lock) return {};
  wxTextDataObject data;
  const bool holdsText = wxTheClipboard->IsSupported(wxDF_UNICODETEXT) && wxTheClipboard->GetData(data);
  request_->text = holdsText ? WithPlainLineEnds(FromWx(data.GetText())) : std::string();
  request_->asOf = now;
  return request_->text;
}

#endif

void WxClipboard::SetText(std::string_view text) {
  wxClipboardLocker lock;
  if (!lock) return;
  ++changes_;  // what the system tells comes later
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

}  // namespace lorelin
