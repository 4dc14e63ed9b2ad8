#include "platform/linux/MprisRemoteControl.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/gioPointers.h"
#include "platform/linux/sessionBus.h"

namespace lorelin {
namespace {

constexpr int kTimeout = 5000;  // milliseconds
constexpr const char* kPlayerName = "org.mpris.MediaPlayer2.lorelin";
constexpr const char* kPlayerPath = "/org/mpris/MediaPlayer2";
constexpr const char* kRoot = "org.mpris.MediaPlayer2";
constexpr const char* kPlayer = "org.mpris.MediaPlayer2.Player";
constexpr const char* kOwnName = "org.lorelin.Lorelin";
constexpr const char* kOwnPath = "/org/lorelin/Lorelin";

constexpr const char* kInterfaces = R"(<node>
<interface name="org.mpris.MediaPlayer2">
 <method name="Raise"/><method name="Quit"/>
 <property name="CanQuit" type="b" access="read"/><property name="CanRaise" type="b" access="read"/>
 <property name="HasTrackList" type="b" access="read"/><property name="Identity" type="s" access="read"/>
 <property name="DesktopEntry" type="s" access="read"/>
 <property name="SupportedUriSchemes" type="as" access="read"/>
 <property name="SupportedMimeTypes" type="as" access="read"/>
</interface>
<interface name="org.mpris.MediaPlayer2.Player">
 <method name="Next"/><method name="Previous"/><method name="Pause"/><method name="PlayPause"/>
 <method name="Stop"/><method name="Play"/>
 <method name="Seek"><arg name="Offset" type="x" direction="in"/></method>
 <method name="SetPosition"><arg name="TrackId" type="o" direction="in"/>
  <arg name="Position" type="x" direction="in"/></method>
 <method name="OpenUri"><arg name="Uri" type="s" direction="in"/></method>
 <signal name="Seeked"><arg name="Position" type="x"/></signal>
 <property name="PlaybackStatus" type="s" access="read"/><property name="Rate" type="d" access="readwrite"/>
 <property name="Metadata" type="a{sv}" access="read"/><property name="Volume" type="d" access="readwrite"/>
 <property name="Position" type="x" access="read"/><property name="MinimumRate" type="d" access="read"/>
 <property name="MaximumRate" type="d" access="read"/><property name="CanGoNext" type="b" access="read"/>
 <property name="CanGoPrevious" type="b" access="read"/><property name="CanPlay" type="b" access="read"/>
 <property name="CanPause" type="b" access="read"/><property name="CanSeek" type="b" access="read"/>
 <property name="CanControl" type="b" access="read"/>
</interface>
<interface name="org.lorelin.Lorelin">
 <method name="ReadSelection"/>
 <method name="ReadFiles"><arg name="Paths" type="as" direction="in"/></method>
</interface>
</node>)";

struct Request {
  std::string_view method;
  RemoteRequest request;
};
constexpr std::array kRequests{
    Request{"Play", RemoteRequest::Play},
    Request{"Pause", RemoteRequest::Pause},
    Request{"PlayPause", RemoteRequest::PlayPause},
    Request{"Stop", RemoteRequest::Stop},
    Request{"Next", RemoteRequest::Next},
    Request{"Previous", RemoteRequest::Previous},
    Request{"Raise", RemoteRequest::Raise},
    Request{"Quit", RemoteRequest::Quit},
    Request{"ReadSelection", RemoteRequest::ReadSelection},
    Request{"ReadFiles", RemoteRequest::ReadFiles},
};

// What is so whatever the program does. A text can be left for its next sentence at any time.
bool IsAble(std::string_view property) {
  return property != "HasTrackList" && property != "CanSeek";
}

const char* StatusText(Playback playback) {
  switch (playback) {
    case Playback::Playing:
      return "Playing";
    case Playback::Paused:
      return "Paused";
    case Playback::Stopped:
      break;
  }
  return "Stopped";
}

GDBusNodeInfo* Interfaces() {
  static GDBusNodeInfo* const info = g_dbus_node_info_new_for_xml(kInterfaces, nullptr);
  return info;
}

// The only list that a call brings along.
std::vector<std::string> Paths(GVariant* arguments) {
  std::vector<std::string> paths;
  if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(as)"))) return paths;
  GVariantIter* list = nullptr;
  g_variant_get(arguments, "(as)", &list);
  const gchar* path = nullptr;
  while (g_variant_iter_next(list, "&s", &path) != FALSE) paths.emplace_back(path);
  g_variant_iter_free(list);
  return paths;
}

GVariant* PathList(const std::vector<std::string>& paths) {
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE("as"));
  for (const std::string& path : paths) g_variant_builder_add(&list, "s", path.c_str());
  return g_variant_new("(as)", &list);
}

bool TakeName(GDBusConnection* bus, const std::string& name) {
  constexpr guint32 kDoNotQueue = 4;
  constexpr guint32 kPrimaryOwner = 1;
  const Variant answer(g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                   "org.freedesktop.DBus", "RequestName",
                                                   g_variant_new("(su)", name.c_str(), kDoNotQueue), nullptr,
                                                   G_DBUS_CALL_FLAGS_NONE, kTimeout, nullptr, nullptr));
  if (!answer) return false;
  guint32 result = 0;
  g_variant_get(answer.get(), "(u)", &result);
  return result == kPrimaryOwner;
}

}  // namespace

// What the bus calls; `self` is the object.
struct MprisCalls {
  static void Method(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                     GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
    const auto* const found = std::find_if(kRequests.begin(), kRequests.end(),
                                           [&](const Request& each) { return each.method == method; });
    if (found != kRequests.end()) {
      static_cast<MprisRemoteControl*>(self)->Later({found->request, Paths(arguments)});
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
  }
  static GVariant* Get(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name,
                       GError**, gpointer self) {
    return static_cast<MprisRemoteControl*>(self)->Property(name);
  }
  // Speed and volume are set in the program; MPRIS lets a player ignore it.
  static gboolean Set(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*,
                      GError**, gpointer) {
    return TRUE;
  }
};

MprisRemoteControl::~MprisRemoteControl() {
  Leave();
}

void MprisRemoteControl::Leave() {
  if (source_ != 0) g_source_remove(std::exchange(source_, 0));
  asked_.clear();
  if (bus_ == nullptr) return;
  g_dbus_connection_close_sync(bus_, nullptr, nullptr);
  g_clear_object(&bus_);
}

// A connection of its own: what is left of it goes with it.
void MprisRemoteControl::Join() {
  if (std::exchange(tried_, true) || !HasSessionBus()) return;
  gchar* const address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (address == nullptr) return;
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  bus_ = g_dbus_connection_new_for_address_sync(address, flags, nullptr, nullptr, nullptr);
  g_free(address);
  if (bus_ != nullptr) g_dbus_connection_set_exit_on_close(bus_, FALSE);
}

void MprisRemoteControl::OnRequest(std::function<void(const RemoteOrder&)> handler) {
  handler_ = std::move(handler);
  if (!handler_) return Leave();
  Join();
  if (bus_ == nullptr) return;
  Publish(kPlayerPath, kRoot);
  Publish(kPlayerPath, kPlayer);
  Publish(kOwnPath, kOwnName);
  OwnNames();
}

void MprisRemoteControl::Publish(const char* path, const char* interface) {
  static constexpr GDBusInterfaceVTable kCalls{&MprisCalls::Method, &MprisCalls::Get, &MprisCalls::Set, {}};
  GDBusInterfaceInfo* const info = g_dbus_node_info_lookup_interface(Interfaces(), interface);
  if (g_dbus_connection_register_object(bus_, path, info, &kCalls, this, nullptr, nullptr) == 0)
    log_.Write(std::string("Sitzungsbus: ") + interface + " lässt sich nicht anmelden.");
}

void MprisRemoteControl::OwnNames() {
  if (!TakeName(bus_, kPlayerName) &&
      !TakeName(bus_, std::string(kPlayerName) + ".instance" + std::to_string(getpid()))) {
    log_.Write("Sitzungsbus: Lorelin lässt sich dort nicht als Abspieler anmelden.");
  }
  (void)TakeName(bus_, kOwnName);
}

// The one who asks is not kept waiting for a text to be prepared, and the handler may let events in.
void MprisRemoteControl::Later(RemoteOrder order) {
  asked_.push_back(std::move(order));
  if (source_ != 0) return;
  source_ = g_idle_add_full(
      G_PRIORITY_DEFAULT, [](gpointer self) { return static_cast<MprisRemoteControl*>(self)->Serve(); }, this,
      nullptr);
}

gboolean MprisRemoteControl::Serve() {
  source_ = 0;
  for (const RemoteOrder& order : std::exchange(asked_, {})) {
    if (handler_) handler_(order);
  }
  return G_SOURCE_REMOVE;
}

gint64 MprisRemoteControl::Position() const {
  const gint64 since = state_.playback == Playback::Playing ? g_get_monotonic_time() - told_ : 0;
  return state_.position.count() + since;
}

GVariant* MprisRemoteControl::Metadata() const {
  GVariantBuilder builder;
  g_variant_builder_init(&builder, G_VARIANT_TYPE_VARDICT);
  g_variant_builder_add(&builder, "{sv}", "mpris:trackid", g_variant_new_object_path("/org/lorelin/Text"));
  g_variant_builder_add(&builder, "{sv}", "xesam:title", g_variant_new_string(state_.title.c_str()));
  return g_variant_builder_end(&builder);
}

GVariant* MprisRemoteControl::Property(const char* name) const {
  const std::string_view property = name;
  if (property == "Identity") return g_variant_new_string("Lorelin");
  if (property == "DesktopEntry") return g_variant_new_string("lorelin");
  if (property.starts_with("Supported")) return g_variant_new_strv(nullptr, 0);
  if (property == "PlaybackStatus") return g_variant_new_string(StatusText(state_.playback));
  if (property == "Metadata") return Metadata();
  if (property == "Position") return g_variant_new_int64(Position());
  if (property == "Volume" || property.ends_with("Rate")) return g_variant_new_double(1);
  return g_variant_new_boolean(IsAble(property) ? TRUE : FALSE);
}

void MprisRemoteControl::Tell(const RemoteState& state) {
  state_ = state;
  // The bus takes nothing else for a text.
  if (g_utf8_validate(state_.title.c_str(), -1, nullptr) == FALSE) state_.title = "Lorelin";
  told_ = g_get_monotonic_time();
  if (bus_ == nullptr) return;
  GVariantBuilder changed;
  g_variant_builder_init(&changed, G_VARIANT_TYPE_VARDICT);
  for (const char* const name : {"PlaybackStatus", "Metadata"})
    g_variant_builder_add(&changed, "{sv}", name, Property(name));
  g_dbus_connection_emit_signal(bus_, nullptr, kPlayerPath, "org.freedesktop.DBus.Properties",
                                "PropertiesChanged", g_variant_new("(sa{sv}as)", kPlayer, &changed, nullptr),
                                nullptr);
}

bool MprisRemoteControl::AskRunning(const RemoteOrder& order) {
  Join();
  const bool files = order.request == RemoteRequest::ReadFiles;
  if (bus_ == nullptr || (!files && order.request != RemoteRequest::ReadSelection)) return false;
  const Variant answer(
      g_dbus_connection_call_sync(bus_, kOwnName, kOwnPath, kOwnName, files ? "ReadFiles" : "ReadSelection",
                                  files ? PathList(order.files) : nullptr, nullptr,
                                  G_DBUS_CALL_FLAGS_NO_AUTO_START, kTimeout, nullptr, nullptr));
  return answer != nullptr;
}

}  // namespace lorelin
