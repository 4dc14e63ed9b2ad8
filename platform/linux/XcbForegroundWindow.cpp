#include "platform/linux/XcbForegroundWindow.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

#include "base/textEncoding.h"
#include "platform/linux/compoundText.h"

namespace lorelin {
namespace {

constexpr std::uint32_t kMostWords = 1024;  // of a property, four bytes each

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply) {
  return {reply, &std::free};
}

}  // namespace

class XcbForegroundWindow::Display {
 public:
  Display() : connection_(xcb_connect(nullptr, &screen_)) {
    if (xcb_connection_has_error(connection_) != 0) return;
    root_ = RootOf(screen_);
    activeWindow_ = Atom("_NET_ACTIVE_WINDOW");
    name_ = Atom("_NET_WM_NAME");
  }
  ~Display() { xcb_disconnect(connection_); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  [[nodiscard]] bool Works() const { return xcb_connection_has_error(connection_) == 0 && root_ != 0; }

  // Whether a window manager keeps the property.
  [[nodiscard]] bool TellsActiveWindow() {
    return activeWindow_ != 0 && !Property(root_, Atom("_NET_SUPPORTING_WM_CHECK")).empty();
  }

  std::string ActiveTitle() {
    const std::string bytes = Property(root_, activeWindow_);
    xcb_window_t window = 0;
    if (bytes.size() < sizeof window) return {};
    std::memcpy(&window, bytes.data(), sizeof window);
    if (window == 0) return {};
    const std::string title = Property(window, name_);
    return title.empty() ? OldTitle(window) : DecodeText(title);
  }

 private:
  [[nodiscard]] xcb_window_t RootOf(int number) const {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (; screens.rem > 0 && number > 0; --number) xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : 0;
  }

  [[nodiscard]] xcb_atom_t Atom(std::string_view name) const {
    const auto reply = Owned(xcb_intern_atom_reply(
        connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{0};
  }

  // As programs set it that know nothing of the newer property.
  [[nodiscard]] std::string OldTitle(xcb_window_t window) const {
    xcb_atom_t type = 0;
    const std::string title = Property(window, XCB_ATOM_WM_NAME, &type);
    return type != 0 && type == Atom("COMPOUND_TEXT") ? FromCompoundText(title) : DecodeText(title);
  }

  // The window may have gone meanwhile; then it has no properties.
  [[nodiscard]] std::string Property(xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t* type = nullptr) const {
    xcb_generic_error_t* error = nullptr;
    const auto reply = Owned(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
        &error));
    std::free(error);
    if (!reply) return {};
    if (type != nullptr) *type = reply->type;
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

  int screen_ = 0;
  xcb_connection_t* connection_;
  xcb_window_t root_ = 0;
  xcb_atom_t activeWindow_ = 0;
  xcb_atom_t name_ = 0;
};

XcbForegroundWindow::XcbForegroundWindow(Log& log) : log_(log) {}
XcbForegroundWindow::~XcbForegroundWindow() = default;

bool XcbForegroundWindow::Connected() {
  if (display_ && display_->Works()) return true;
  display_.reset();
  const char* const name = std::getenv("DISPLAY");
  if (name == nullptr || *name == '\0') return false;
  display_ = std::make_unique<Display>();
  return display_->Works();
}

std::string XcbForegroundWindow::Title() {
  if (Connected()) return display_->ActiveTitle();
  if (!told_) log_.Write(Obstacle());
  told_ = true;
  return {};
}

std::string XcbForegroundWindow::Obstacle() {
  if (!Connected()) return "Diese Arbeitsumgebung verrät Lorelin nicht, welches Fenster vorn ist.";
  if (!display_->TellsActiveWindow())
    return "Der Fenstermanager verrät Lorelin nicht, welches Fenster vorn ist.";
  return {};
}

}  // namespace lorelin
