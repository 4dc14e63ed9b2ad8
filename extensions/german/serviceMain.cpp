// The extension "Abkürzungen": filters every text before it is spoken. A program of its own on the session
// bus, started by the bus when Lorelin first asks for it; it ends after some minutes without a call.
//   lorelin-abkuerzungen --install     tells the bus how to start it
//   lorelin-abkuerzungen --home FOLDER the user's own words lie there, as with Lorelin under LORELIN_HOME
#include <gio/gio.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "base/consoleAnswers.h"
#include "extensions/german/abbreviationFilter.h"

namespace {

constexpr const char* kName = lorelin::AbbreviationFilter::kName;
constexpr const char* kPath = "/org/lorelin/Abkuerzungen";
constexpr guint kIdleSeconds = 300;
constexpr guint kIdleLook = 30;

namespace fs = std::filesystem;

std::string BaseFolder(const char* variable, const char* belowHome) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value == '/' ? std::string(value) : std::string(g_get_home_dir()) + belowHome;
}

// The folder that holds everything of Lorelin, by the same variable that Lorelin itself looks at; empty when
// there is none.
fs::path NamedFolder() {
  const char* const name = std::getenv("LORELIN_HOME");
  std::error_code error;
  return name != nullptr && *name != '\0' ? fs::absolute(name, error).lexically_normal() : fs::path();
}

fs::path WordListFile(const fs::path& home) {
  const fs::path folder =
      home.empty() ? fs::path(BaseFolder("XDG_CONFIG_HOME", "/.config")) / "lorelin" : home;
  return folder / "abkuerzungen.txt";
}

struct Service {
  explicit Service(const fs::path& home) : filter(WordListFile(home)) {}

  GMainLoop* loop = nullptr;
  lorelin::AbbreviationFilter filter;
  std::atomic<gint64> lastCall = 0;
};

GDBusMessage* Answer(GDBusMessage* call, Service& service) {
  const std::string method = g_dbus_message_get_member(call);
  GVariant* const body = g_dbus_message_get_body(call);
  const gchar* text = nullptr;
  if (body != nullptr && g_variant_is_of_type(body, G_VARIANT_TYPE("(s)")))
    g_variant_get(body, "(&s)", &text);
  const auto result =
      service.filter.Call(method, text != nullptr ? std::optional<std::string_view>(text) : std::nullopt);
  if (!result) {
    return g_dbus_message_new_method_error(call, "org.freedesktop.DBus.Error.UnknownMethod",
                                           "Unbekannte Methode %s", method.c_str());
  }
  GDBusMessage* const reply = g_dbus_message_new_method_reply(call);
  if (method == "FilterText") g_dbus_message_set_body(reply, g_variant_new("(s)", result->c_str()));
  return reply;
}

// Calls come with one argument or with none; interface descriptions know no such methods.
GDBusMessage* Filter(GDBusConnection* bus, GDBusMessage* message, gboolean incoming, gpointer data) {
  const bool ours = incoming != FALSE &&
                    g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL &&
                    g_strcmp0(g_dbus_message_get_path(message), kPath) == 0 &&
                    g_strcmp0(g_dbus_message_get_interface(message), kName) == 0;
  if (!ours) return message;
  auto& service = *static_cast<Service*>(data);
  service.lastCall = g_get_monotonic_time();
  GDBusMessage* const reply = Answer(message, service);
  g_dbus_connection_send_message(bus, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
  g_object_unref(reply);
  g_object_unref(message);
  return nullptr;
}

gboolean EndWhenIdle(gpointer data) {
  auto& service = *static_cast<Service*>(data);
  if (g_get_monotonic_time() - service.lastCall > gint64{kIdleSeconds} * G_USEC_PER_SEC)
    g_main_loop_quit(service.loop);
  return G_SOURCE_CONTINUE;
}

// A service file's word between quotation marks.
std::string Quoted(const fs::path& path) {
  std::string quoted = "\"";
  for (const char c : path.string()) {
    if (c == '"' || c == '\\' || c == '$' || c == '`') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

// Tells the bus how to start the program. The bus knows none of the variables that are set here, so that the
// folder of a moved Lorelin goes along.
int Install(const fs::path& home) {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  const fs::path folder = fs::path(BaseFolder("XDG_DATA_HOME", "/.local/share")) / "dbus-1" / "services";
  fs::create_directories(folder, error);
  std::ofstream file(folder / (std::string(kName) + ".service"));
  file << "[D-BUS Service]\nName=" << kName << "\nExec=" << Quoted(program)
       << (home.empty() ? "" : " --home " + Quoted(home)) << "\n";
  return file.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int Serve(const fs::path& home) {
  GError* error = nullptr;
  GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (bus == nullptr) {
    g_printerr("lorelin-abkuerzungen: %s\n", error->message);
    g_error_free(error);
    return EXIT_FAILURE;
  }
  Service service(home);
  service.loop = g_main_loop_new(nullptr, FALSE);
  service.lastCall = g_get_monotonic_time();
  g_dbus_connection_add_filter(bus, &Filter, &service, nullptr);
  const auto lost = [](GDBusConnection*, const gchar*, gpointer loop) {
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
  };
  const guint owner = g_bus_own_name_on_connection(bus, kName, G_BUS_NAME_OWNER_FLAGS_NONE, nullptr, lost,
                                                   service.loop, nullptr);
  g_timeout_add_seconds(kIdleLook, &EndWhenIdle, &service);
  g_main_loop_run(service.loop);
  g_bus_unown_name(owner);
  g_main_loop_unref(service.loop);
  g_object_unref(bus);
  return EXIT_SUCCESS;
}

}  // namespace

constexpr std::string_view kHelp =
    "lorelin-abkuerzungen ist eine Erweiterung von Lorelin: Sie schreibt Zahlen und Abkürzungen aus.\n"
    "\n"
    "  lorelin-abkuerzungen                wartet auf dem Sitzungsbus, einige Minuten nach dem letzten "
    "Aufruf\n"
    "                                      endet sie\n"
    "  lorelin-abkuerzungen --install      sagt dem Bus, wie er sie startet\n"
    "  lorelin-abkuerzungen --home ORDNER  die eigenen Wörter liegen dort\n"
    "\n"
    "Optionen:\n"
    "  --help     zeigt diese Hilfe\n"
    "  --version  nennt die Version\n";

int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, kHelp)) return 0;
  const std::string wish = argc > 1 ? argv[1] : "";
  if (wish == "--install") return Install(NamedFolder());
  return Serve(wish == "--home" && argc > 2 ? fs::path(argv[2]) : NamedFolder());
}
