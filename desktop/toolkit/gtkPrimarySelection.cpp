#include <gtk/gtk.h>
#include <wx/evtloop.h>

#include <chrono>
#include <memory>
#include <thread>

#include "base/textEncoding.h"
#include "desktop/toolkit/primarySelection.h"

namespace lorelin {
namespace {

constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr auto kPause = std::chrono::milliseconds(1);

struct Answer {
  bool there = false;
  std::string text;
};

// The answer may come when nobody waits for it any more.
void Received(GtkClipboard*, const gchar* text, gpointer data) {
  const std::unique_ptr<std::shared_ptr<Answer>> answer(static_cast<std::shared_ptr<Answer>*>(data));
  (*answer)->there = true;
  if (text != nullptr) (*answer)->text = WithPlainLineEnds(text);
}

}  // namespace

std::string PrimarySelection() {
  auto answer = std::make_shared<Answer>();
  gtk_clipboard_request_text(gtk_clipboard_get(GDK_SELECTION_PRIMARY), &Received,
                             new std::shared_ptr<Answer>(answer));
  const auto end = std::chrono::steady_clock::now() + kLongestWait;
  while (!answer->there && std::chrono::steady_clock::now() < end) {
    if (wxEventLoopBase* const loop = wxEventLoopBase::GetActive(); loop != nullptr) {
      loop->YieldFor(wxEVT_CATEGORY_UI | wxEVT_CATEGORY_CLIPBOARD);
    } else {
      gtk_main_iteration_do(FALSE);
    }
    if (!answer->there) std::this_thread::sleep_for(kPause);
  }
  return answer->text;
}

}  // namespace lorelin
