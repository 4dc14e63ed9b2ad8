#include "platform/linux/XdgShell.h"

#include <gio/gio.h>

#include <array>

namespace lorelin {

bool XdgShell::OpenFolder(const std::string& folder) {
  std::string program = "xdg-open";
  std::string argument = folder;
  std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
  GError* error = nullptr;
  // The child is handed to init, so that no zombie remains.
  const auto flags =
      static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  const gboolean started =
      g_spawn_async(nullptr, arguments.data(), nullptr, flags, nullptr, nullptr, nullptr, &error);
  if (error != nullptr) {
    log_.Write("xdg-open: " + std::string(error->message));
    g_error_free(error);
  }
  return started != FALSE;
}

}  // namespace lorelin
