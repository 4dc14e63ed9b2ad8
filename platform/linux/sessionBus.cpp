#include "platform/linux/sessionBus.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace lorelin {

bool HasSessionBus() {
  const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address != nullptr && *address != '\0') return true;
  const char* const folder = std::getenv("XDG_RUNTIME_DIR");
  std::error_code error;
  return folder != nullptr && std::filesystem::exists(std::filesystem::path(folder) / "bus", error);
}

}  // namespace lorelin
