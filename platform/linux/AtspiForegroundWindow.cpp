#include "platform/linux/AtspiForegroundWindow.h"

#include <memory>
#include <utility>

#include "platform/linux/accessibilityBus.h"
#include "platform/linux/gioPointers.h"

namespace lorelin {
namespace {

constexpr int kTimeout = 200;       // milliseconds
constexpr int kJoinTimeout = 2000;  // the registry may have to be started
constexpr const char* kEvent = "window:activate";

Variant Call(GDBusConnection* bus, const char* name, const char* path, const char* interface,
             const char* method, GVariant* arguments, int timeout) {
  return Variant(g_dbus_connection_call_sync(bus, name, path, interface, method, arguments, nullptr,
                                             G_DBUS_CALL_FLAGS_NONE, timeout, nullptr, nullptr));
}

}  // namespace

AtspiForegroundWindow::~AtspiForegroundWindow() {
  if (bus_ == nullptr) return;
  g_dbus_connection_signal_unsubscribe(bus_, subscription_);
  g_object_unref(bus_);
}

bool AtspiForegroundWindow::Connected() {
  if (!std::exchange(tried_, true)) Join();
  return bus_ != nullptr && g_dbus_connection_is_closed(bus_) == FALSE;
}

void AtspiForegroundWindow::Join() {
  bus_ = JoinAccessibilityBus();
  if (bus_ == nullptr) return;
  subscription_ = g_dbus_connection_signal_subscribe(
      bus_, nullptr, "org.a11y.atspi.Event.Window", "Activate", nullptr, nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
      [](GDBusConnection*, const gchar* sender, const gchar* path, const gchar*, const gchar*, GVariant*,
         gpointer self) { static_cast<AtspiForegroundWindow*>(self)->Activated(sender, path); },
      this, nullptr);
  RegisterEvent();
}

// Programs send nothing that nobody has asked for. Older registries take the event alone.
void AtspiForegroundWindow::RegisterEvent() {
  constexpr const char* kRegistry = "org.a11y.atspi.Registry";
  constexpr const char* kPath = "/org/a11y/atspi/registry";
  if (Call(bus_, kRegistry, kPath, kRegistry, "RegisterEvent", g_variant_new("(sass)", kEvent, nullptr, ""),
           kJoinTimeout)) {
    return;
  }
  if (!Call(bus_, kRegistry, kPath, kRegistry, "RegisterEvent", g_variant_new("(s)", kEvent), kJoinTimeout)) {
    log_.Write("Der Dienst für Bedienungshilfen nimmt keine Anmeldung an.");
  }
}

void AtspiForegroundWindow::Activated(const char* sender, const char* path) {
  sender_ = sender;
  path_ = path;
}

std::string AtspiForegroundWindow::Title() {
  if (!Connected() || path_.empty()) return {};
  const Variant answer = Call(bus_, sender_.c_str(), path_.c_str(), "org.freedesktop.DBus.Properties", "Get",
                              g_variant_new("(ss)", "org.a11y.atspi.Accessible", "Name"), kTimeout);
  if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(v)"))) return {};
  GVariant* inner = nullptr;
  g_variant_get(answer.get(), "(v)", &inner);
  const Variant value(inner);
  return g_variant_is_of_type(inner, G_VARIANT_TYPE_STRING) ? g_variant_get_string(inner, nullptr) : "";
}

std::string AtspiForegroundWindow::Obstacle() {
  return Connected() ? "" : "Diese Arbeitsumgebung verrät Lorelin nicht, welches Fenster vorn ist.";
}

}  // namespace lorelin
