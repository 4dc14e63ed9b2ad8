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
#endif

namespace lorelin {

struct WxClipboard::Request {
  bool answered = true;
  std::string text;
};

WxClipboard::WxClipboard() : request_(std::make_shared<Request>()) {}
WxClipboard::~WxClipboard() = default;

#ifdef __WXGTK__

namespace {

constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr auto kPause = std::chrono::milliseconds(1);

}  // namespace

// The toolkit's own way waits for half a minute in an event loop that lets everything in.
std::string WxClipboard::Text() {
  if (request_->answered) {
    auto next = std::make_shared<Request>();
    next->answered = false;
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
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    while (!next->answered && std::chrono::steady_clock::now() < end) {
      if (loop != nullptr) {
        loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_CLIPBOARD);
      } else {
        gtk_main_iteration_do(FALSE);
      }
      if (!next->answered) std::this_thread::sleep_for(kPause);
    }
  }
  return request_->text;
}

#else

std::string WxClipboard::Text() {
  wxClipboardLocker lock;
  wxTextDataObject data;
  if (!lock || !wxTheClipboard->IsSupported(wxDF_UNICODETEXT) || !wxTheClipboard->GetData(data)) return {};
  return WithPlainLineEnds(FromWx(data.GetText()));
}

#endif

void WxClipboard::SetText(std::string_view text) {
  wxClipboardLocker lock;
  if (!lock) return;
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

}  // namespace lorelin
