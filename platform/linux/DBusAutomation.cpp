#include "platform/linux/DBusAutomation.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <string>
#include <utility>

#include "base/RuntimeError.h"
#include "platform/linux/dbusAnswer.h"
#include "platform/linux/gioPointers.h"
#include "platform/linux/sessionBus.h"

namespace lorelin {
namespace {

constexpr int kTimeout = 10'000;  // milliseconds
constexpr auto kTurn = std::chrono::milliseconds(10);
constexpr std::size_t kLongestArgument = std::size_t{64} << 20;

struct CancellableDeleter {
  void operator()(GCancellable* cancellable) const { g_object_unref(cancellable); }
};
using Cancellable = std::unique_ptr<GCancellable, CancellableDeleter>;

struct Answer {
  Variant value;
  std::string errorName;  // of the bus; "" for other failures
  std::string message;    // "" when it worked
};

using CallFunction = std::function<Answer(GCancellable*)>;

// One call, answered or failed after the time limit at the latest. Runs on any thread.
Answer Call(GDBusConnection* bus, const std::string& name, const std::string& path,
            const std::string& interface, const std::string& method, GVariant* arguments,
            GCancellable* givenUp) {
  GError* error = nullptr;
  Answer answer;
  answer.value.reset(g_dbus_connection_call_sync(bus, name.c_str(), path.c_str(), interface.c_str(),
                                                 method.c_str(), arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
                                                 kTimeout, givenUp, &error));
  if (error == nullptr) return answer;
  if (gchar* const remote = g_dbus_error_get_remote_error(error); remote != nullptr) {
    answer.errorName = remote;
    g_free(remote);
    g_dbus_error_strip_remote_error(error);
  }
  answer.message = error->message;
  g_error_free(error);
  return answer;
}

class DBusObject final : public AutomationObject {
 public:
  DBusObject(GDBusConnection* bus, std::string name, std::function<Answer(CallFunction)> wait)
      : bus_(G_DBUS_CONNECTION(g_object_ref(bus))),
        name_(std::move(name)),
        path_("/" + name_),
        wait_(std::move(wait)) {
    std::replace(path_.begin(), path_.end(), '.', '/');
  }
  ~DBusObject() override { g_object_unref(bus_); }
  DBusObject(const DBusObject&) = delete;
  DBusObject& operator=(const DBusObject&) = delete;

  std::optional<std::string> Invoke(std::string_view method,
                                    std::optional<std::string_view> argument) override {
    if (argument && argument->size() > kLongestArgument) throw RuntimeError(ErrorNumber::AutomationFailed);
    if (!g_dbus_is_member_name(std::string(method).c_str())) throw RuntimeError(ErrorNumber::NoSuchMethod);
    GVariant* const arguments = argument ? TextArgument(*argument) : nullptr;
    const Answer answer = wait_([this, name = std::string(method), arguments](GCancellable* givenUp) {
      return Call(bus_, name_, path_, name_, name, arguments, givenUp);
    });
    if (IsMissingMethod(answer.errorName)) throw RuntimeError(ErrorNumber::NoSuchMethod);
    if (!answer.message.empty())
      throw RuntimeError(ErrorNumber::AutomationFailed, ReasonOfFailure(answer.errorName, answer.message));
    return FirstText(answer.value.get());
  }

 private:
  GDBusConnection* bus_;
  std::string name_;
  std::string path_;
  std::function<Answer(CallFunction)> wait_;
};

}  // namespace

DBusAutomation::~DBusAutomation() {
  if (connection_ != nullptr) g_object_unref(connection_);
}

GDBusConnection* DBusAutomation::Connection() {
  if (connection_ != nullptr && g_dbus_connection_is_closed(connection_)) {
    g_object_unref(std::exchange(connection_, nullptr));
  }
  if (connection_ != nullptr) return connection_;
  if (!HasSessionBus()) {
    throw RuntimeError(ErrorNumber::CannotCreateObject, "Es läuft kein Sitzungsbus (D-Bus).");
  }
  GError* error = nullptr;
  connection_ = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (connection_ == nullptr) {
    const std::string message = error->message;
    g_error_free(error);
    throw RuntimeError(ErrorNumber::CannotCreateObject, message);
  }
  g_dbus_connection_set_exit_on_close(connection_, FALSE);
  return connection_;
}

std::unique_ptr<AutomationObject> DBusAutomation::CreateObject(std::string_view identifier) {
  const std::string name(identifier);
  if (!g_dbus_is_name(name.c_str()) || g_dbus_is_unique_name(name.c_str())) {
    throw RuntimeError(ErrorNumber::CannotCreateObject);
  }
  GDBusConnection* const bus = Connection();
  // The answer is fetched beside the caller, so that its window can be drawn meanwhile.
  const auto wait = [this](const CallFunction& call) {
    const Cancellable givenUp(g_cancellable_new());
    std::future<Answer> answer = std::async(std::launch::async, call, givenUp.get());
    while (answer.wait_for(kTurn) != std::future_status::ready) {
      if (turn_ && !turn_()) g_cancellable_cancel(givenUp.get());
    }
    return answer.get();
  };
  const auto ask = [&](const char* method, GVariant* arguments) {
    return wait([bus, method, arguments](GCancellable* givenUp) {
      return Call(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method,
                  arguments, givenUp);
    });
  };
  const Answer started = ask("StartServiceByName", g_variant_new("(su)", name.c_str(), 0U));
  // The bus knows how to start it only from a file; one that runs without does as well.
  const bool runs =
      started.message.empty() || (started.errorName == "org.freedesktop.DBus.Error.ServiceUnknown" &&
                                  ask("GetNameOwner", g_variant_new("(s)", name.c_str())).message.empty());
  if (!runs) {
    log_.Write(name + ": " + started.message);
    throw RuntimeError(ErrorNumber::CannotCreateObject, ReasonOfFailure(started.errorName, started.message));
  }
  return std::make_unique<DBusObject>(bus, name, wait);
}

}  // namespace lorelin
