#include <gio/gio.h>
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "platform/linux/AtspiForegroundWindow.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

constexpr const char* kPath = "/org/a11y/atspi/accessible/1";

// A program with one window on the real accessibility bus, on a thread of its own.
class Program {
 public:
  Program() {
    std::promise<void> ready;
    thread_ = std::thread([this, &ready] { Run(ready); });
    ready.get_future().wait();
  }
  ~Program() {
    g_main_loop_quit(loop_);
    thread_.join();
    g_main_loop_unref(loop_);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void Activate(const std::string& title) {
    name_ = title;
    g_dbus_connection_emit_signal(
        bus_, nullptr, kPath, "org.a11y.atspi.Event.Window", "Activate",
        g_variant_new("(siiva{sv})", "", 0, 0, g_variant_new_string(title.c_str()), nullptr), nullptr);
    g_dbus_connection_flush_sync(bus_, nullptr, nullptr);
  }

 private:
  static GVariant* Get(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GError**,
                       gpointer self) {
    return g_variant_new_string(static_cast<Program*>(self)->name_.c_str());
  }

  void Run(std::promise<void>& ready) {
    GMainContext* const context = g_main_context_new();
    g_main_context_push_thread_default(context);
    loop_ = g_main_loop_new(context, FALSE);
    GDBusConnection* const session = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    GVariant* const address =
        g_dbus_connection_call_sync(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                    nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, 10000, nullptr, nullptr);
    const gchar* text = nullptr;
    g_variant_get(address, "(&s)", &text);
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    bus_ = g_dbus_connection_new_for_address_sync(text, flags, nullptr, nullptr, nullptr);
    g_variant_unref(address);
    g_object_unref(session);
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(
        "<node><interface name='org.a11y.atspi.Accessible'><property name='Name' type='s' access='read'/>"
        "</interface></node>",
        nullptr);
    const GDBusInterfaceVTable table{nullptr, &Get, nullptr, {}};
    g_dbus_connection_register_object(bus_, kPath, node->interfaces[0], &table, this, nullptr, nullptr);
    ready.set_value();
    g_main_loop_run(loop_);
    g_object_unref(bus_);
    g_dbus_node_info_unref(node);
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
  }

  std::thread thread_;
  GMainLoop* loop_ = nullptr;
  GDBusConnection* bus_ = nullptr;
  std::string name_;
};

class Atspi : public testing::Test {
 protected:
  Atspi() {
    g_setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), TRUE);
    g_test_dbus_add_service_dir(bus, "/usr/share/dbus-1/services");
    g_test_dbus_up(bus);
  }
  ~Atspi() override {
    g_test_dbus_stop(bus);
    g_object_unref(bus);
    g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
    g_unsetenv("XDG_RUNTIME_DIR");
  }
  bool Reads(ForegroundWindow& window, const std::string& title) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (window.Title() != title) {
      if (std::chrono::steady_clock::now() > end) return false;
      g_main_context_iteration(nullptr, FALSE);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
  }

  TemporaryFolder folder;
  FakeLog log;
  GTestDBus* bus = g_test_dbus_new(G_TEST_DBUS_NONE);
};

TEST_F(Atspi, TellsTheWindowThatWasActivated) {
  AtspiForegroundWindow window(log);
  EXPECT_EQ(window.Title(), "");
  EXPECT_EQ(window.Obstacle(), "");
  Program program;
  program.Activate("Fenster für Anna");
  EXPECT_TRUE(Reads(window, "Fenster für Anna"));
  program.Activate("Bens Fenster");
  EXPECT_TRUE(Reads(window, "Bens Fenster"));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Atspi, TellsNothingOfAProgramThatHasGone) {
  AtspiForegroundWindow window(log);
  (void)window.Title();
  {
    Program program;
    program.Activate("Kurz da");
    EXPECT_TRUE(Reads(window, "Kurz da"));
  }
  EXPECT_EQ(window.Title(), "");
}

TEST(NoAtspi, IsSaidHonestly) {
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  unsetenv("AT_SPI_BUS_ADDRESS");
  FakeLog log;
  AtspiForegroundWindow window(log);
  EXPECT_EQ(window.Title(), "");
  EXPECT_EQ(window.Obstacle(), "Diese Arbeitsumgebung verrät Lorelin nicht, welches Fenster vorn ist.");
}

}  // namespace
}  // namespace lorelin
