#include "platform/linux/AtspiSelectedText.h"

#include <gio/gio.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/accessibilityBus.h"
#include "platform/linux/gioPointers.h"

namespace lorelin {
namespace {

constexpr int kTimeout = 200;  // milliseconds for one answer
constexpr auto kLongest = std::chrono::milliseconds(800);
constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr const char* kText = "org.a11y.atspi.Text";
constexpr guint32 kActive = 1;  // numbers of AtspiStateType
constexpr guint32 kFocused = 12;
constexpr guint32 kPassword = 40;  // of AtspiRole

struct ConnectionDeleter {
  void operator()(GDBusConnection* bus) const { g_object_unref(bus); }
};
using Connection = std::unique_ptr<GDBusConnection, ConnectionDeleter>;

struct Object {
  std::string owner;
  std::string path;
};

// Asks one program after the other; those that do not answer in time are left out.
class Desktop {
 public:
  explicit Desktop(GDBusConnection* bus) : bus_(bus) {}

  [[nodiscard]] std::optional<Object> ActiveWindow() const {
    for (const Object& program : Children({"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"})) {
      if (IsOwn(program)) continue;  // it could not answer while it asks
      for (const Object& window : Children(program)) {
        if (HasState(window, kActive)) return window;
      }
    }
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Object> FocusedIn(const Object& window) const {
    constexpr gint32 kAll = 1;
    constexpr guint32 kCanonical = 1;
    const Variant answer =
        Call(window, "org.a11y.atspi.Collection", "GetMatches",
             g_variant_new_parsed("((%@ai, %i, @a{ss} {}, %i, @ai [], %i, @as [], %i, false), %u, 1, true)",
                                  States(kFocused), kAll, kAll, kAll, kAll, kCanonical),
             "(a(so))");
    const std::vector<Object> found = ObjectsOf(answer);
    return found.empty() ? std::nullopt : std::optional(found.front());
  }

  [[nodiscard]] std::string SelectedIn(const Object& control) const {
    if (Role(control) == kPassword) return {};
    const Variant range = Call(control, kText, "GetSelection", g_variant_new("(i)", 0), "(ii)");
    if (!range) return {};
    gint32 begin = 0;
    gint32 end = 0;
    g_variant_get(range.get(), "(ii)", &begin, &end);
    if (begin < 0 || end <= begin) return {};
    const Variant text = Call(control, kText, "GetText", g_variant_new("(ii)", begin, end), "(s)");
    const gchar* characters = "";
    if (text) g_variant_get(text.get(), "(&s)", &characters);
    return characters;
  }

 private:
  Variant Call(const Object& object, const char* interface, const char* method, GVariant* arguments,
               const char* type) const {
    const bool late = std::chrono::steady_clock::now() > begin_ + kLongest;
    const Variant taken(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr);
    if (late) return nullptr;
    return Variant(g_dbus_connection_call_sync(bus_, object.owner.c_str(), object.path.c_str(), interface,
                                               method, taken.get(), G_VARIANT_TYPE(type),
                                               G_DBUS_CALL_FLAGS_NO_AUTO_START, kTimeout, nullptr, nullptr));
  }

  static std::vector<Object> ObjectsOf(const Variant& answer) {
    std::vector<Object> objects;
    if (!answer) return objects;
    GVariantIter* entries = nullptr;
    g_variant_get(answer.get(), "(a(so))", &entries);
    const gchar* owner = nullptr;
    const gchar* path = nullptr;
    while (g_variant_iter_next(entries, "(&s&o)", &owner, &path) != FALSE) objects.push_back({owner, path});
    g_variant_iter_free(entries);
    return objects;
  }

  [[nodiscard]] std::vector<Object> Children(const Object& object) const {
    return ObjectsOf(Call(object, kAccessible, "GetChildren", nullptr, "(a(so))"));
  }

  [[nodiscard]] bool HasState(const Object& object, guint32 state) const {
    const Variant answer = Call(object, kAccessible, "GetState", nullptr, "(au)");
    if (!answer) return false;
    const Variant words(g_variant_get_child_value(answer.get(), 0));
    gsize count = 0;
    const auto* const bits =
        static_cast<const guint32*>(g_variant_get_fixed_array(words.get(), &count, sizeof(guint32)));
    return count > state / 32 && ((bits[state / 32] >> (state % 32)) & 1U) != 0;
  }

  [[nodiscard]] guint32 Role(const Object& object) const {
    const Variant answer = Call(object, kAccessible, "GetRole", nullptr, "(u)");
    guint32 role = 0;
    if (answer) g_variant_get(answer.get(), "(u)", &role);
    return role;
  }

  [[nodiscard]] bool IsOwn(const Object& program) const {
    const Variant answer =
        Call({"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
             "GetConnectionUnixProcessID", g_variant_new("(s)", program.owner.c_str()), "(u)");
    guint32 process = 0;
    if (answer) g_variant_get(answer.get(), "(u)", &process);
    return process == static_cast<guint32>(getpid());
  }

  static GVariant* States(guint32 state) {
    const std::array<gint32, 2> words{gint32{1} << state, 0};
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, words.data(), words.size(), sizeof(gint32));
  }

  GDBusConnection* bus_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace

std::string AtspiSelectedText::Text() {
  const Connection bus(JoinAccessibilityBus());
  if (!bus) return {};
  const Desktop desktop(bus.get());
  const auto window = desktop.ActiveWindow();
  const auto control = window ? desktop.FocusedIn(*window) : std::nullopt;
  return control ? desktop.SelectedIn(*control) : std::string();
}

}  // namespace lorelin
