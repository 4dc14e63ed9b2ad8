#include "platform/linux/dbusAnswer.h"

#include <array>

#include "base/RuntimeError.h"
#include "platform/linux/gioPointers.h"

namespace lorelin {
namespace {

constexpr std::size_t kLongestText = std::size_t{16} << 20;  // bytes of an answer

}  // namespace

GVariant* TextArgument(std::string_view text) {
  gchar* const valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
  GVariant* const arguments = g_variant_new("(s)", valid);
  g_free(valid);
  return arguments;
}

std::optional<std::string> FirstText(GVariant* answer) {
  if (answer == nullptr || !g_variant_is_container(answer) || g_variant_n_children(answer) == 0)
    return std::nullopt;
  const Variant first(g_variant_get_child_value(answer, 0));
  if (!g_variant_is_of_type(first.get(), G_VARIANT_TYPE_STRING)) return std::nullopt;
  gsize size = 0;
  const gchar* const text = g_variant_get_string(first.get(), &size);
  if (size > kLongestText) throw RuntimeError(ErrorNumber::AutomationFailed, "Die Antwort ist zu lang.");
  return std::string(text, size);
}

bool IsMissingMethod(std::string_view errorName) {
  return errorName == "org.freedesktop.DBus.Error.UnknownMethod" ||
         errorName == "org.freedesktop.DBus.Error.UnknownInterface" ||
         errorName == "org.freedesktop.DBus.Error.UnknownObject";
}

std::string ReasonOfFailure(std::string_view errorName, std::string_view message) {
  struct Known {
    std::string_view part;  // of the error's name
    const char* text;
  };
  static constexpr std::array kKnown{
      Known{"ServiceUnknown", "Unter diesem Namen ist kein Programm angemeldet."},
      Known{"NameHasNoOwner", "Unter diesem Namen ist kein Programm angemeldet."},
      Known{"Spawn.", "Das Programm der Erweiterung lässt sich nicht starten."},
      Known{"NoReply", "Die Erweiterung antwortet nicht."},
      Known{"Timeout", "Die Erweiterung antwortet nicht."},
      Known{"TimedOut", "Die Erweiterung antwortet nicht."},
      Known{"AccessDenied", "Der Sitzungsbus (D-Bus) erlaubt den Aufruf nicht."},
      Known{"Disconnected", "Die Verbindung zum Sitzungsbus (D-Bus) ist abgebrochen."},
      Known{"LimitsExceeded", "Der Text ist zu lang für den Sitzungsbus (D-Bus)."}};
  if (errorName.empty()) return "Die Erweiterung antwortet nicht.";
  for (const auto& [part, text] : kKnown) {
    if (errorName.starts_with("org.freedesktop.DBus.") && errorName.find(part) != std::string_view::npos)
      return text;
  }
  return "Die Erweiterung meldet: " + std::string(message);
}

}  // namespace lorelin
