#include "desktop/toolkit/gtkSelection.h"

#include <wx/evtloop.h>

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr auto kPause = std::chrono::milliseconds(1);

struct Request {
  std::function<void(std::string)> received;
  std::shared_ptr<bool> answered;
};

void Answer(GtkClipboard*, const gchar* text, gpointer data) {
  const std::unique_ptr<Request> request(static_cast<Request*>(data));
  *request->answered = true;
  request->received(text != nullptr ? WithPlainLineEnds(text) : std::string());
}

}  // namespace

void LetSelectionEventsIn() {
  if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive(); loop != nullptr) {
    loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_CLIPBOARD);
  } else {
    gtk_main_iteration_do(FALSE);
  }
}

// The toolkit's own way waits for half a minute in an event loop that lets everything in.
void RequestSelection(GdkAtom selection, std::function<void(std::string text)> received) {
  const auto answered = std::make_shared<bool>(false);
  gtk_clipboard_request_text(gtk_clipboard_get(selection), &Answer,
                             new Request{std::move(received), answered});
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (!*answered && std::chrono::steady_clock::now() < end) {
    LetSelectionEventsIn();
    if (!*answered) std::this_thread::sleep_for(kPause);
  }
}

}  // namespace lorelin
