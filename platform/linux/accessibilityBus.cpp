#include "platform/linux/accessibilityBus.h"

#include "platform/linux/gioPointers.h"
#include "platform/linux/sessionBus.h"

namespace lorelin {
namespace {

constexpr int kJoinTimeout = 2000;  // milliseconds

}  // namespace

GDBusConnection* JoinAccessibilityBus() {
  if (!HasSessionBus()) return nullptr;
  GDBusConnection* const session = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (session == nullptr) return nullptr;
  g_dbus_connection_set_exit_on_close(session, FALSE);
  const Variant address(g_dbus_connection_call_sync(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                                    "GetAddress", nullptr, G_VARIANT_TYPE("(s)"),
                                                    G_DBUS_CALL_FLAGS_NONE, kJoinTimeout, nullptr, nullptr));
  g_object_unref(session);
  if (!address) return nullptr;
  const gchar* text = nullptr;
  g_variant_get(address.get(), "(&s)", &text);
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  return g_dbus_connection_new_for_address_sync(text, flags, nullptr, nullptr, nullptr);
}

}  // namespace lorelin
