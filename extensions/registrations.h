#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/clsRegistryAccess.h"

namespace lorelin {

// Below it every subkey is an extension, with the string values `Active` and `ObjectName`.
inline constexpr std::string_view kExtensionRoot =
    "HKEY_CURRENT_USER\\Software\\VB and VBA Program Settings\\Lorelin\\Extensions";

// The hooks read the value `Active` in different ways. All but the two that follow call an extension when it
// is exactly "true".
[[nodiscard]] bool IsActive(std::string_view active);
[[nodiscard]] bool IsActiveForExport(std::string_view active);
[[nodiscard]] bool IsActiveForFilter(std::string_view active);

struct Registration {
  std::string name;  // of the subkey
  std::string objectName;
  std::string active;

  // Whether any hook calls it.
  [[nodiscard]] bool IsCalled() const { return IsActiveForExport(active) || IsActiveForFilter(active); }
};

// What the extension manager does with the registrations. User-interface thread only.
class Registrations {
 public:
  // Does not own the registry.
  explicit Registrations(ClsRegistryAccess& registry) : registry_(registry) {}

  // In the registry's order.
  [[nodiscard]] std::vector<Registration> List();
  // False when the registry refuses.
  bool SetActive(const std::string& name, bool active);
  // Switched on; "" when it worked, else why not, in German.
  [[nodiscard]] std::string Add(std::string_view name, std::string_view objectName);
  bool Remove(const std::string& name);

 private:
  ClsRegistryAccess& registry_;
};

}  // namespace lorelin
