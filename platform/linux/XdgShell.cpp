#include "platform/linux/XdgShell.h"

#include <gio/gio.h>

#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::string_view kProgramEnding = ".exe";
constexpr const char* kOpener = "xdg-open";

}  // namespace

bool XdgShell::Start(std::vector<std::string> arguments, const std::string& folder) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  GError* error = nullptr;
  // The child is handed to init, so that no zombie remains.
  const auto flags =
      static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  const gboolean started = g_spawn_async(folder.empty() ? nullptr : folder.c_str(), pointers.data(), nullptr,
                                         flags, nullptr, nullptr, nullptr, &error);
  if (error != nullptr) {
    log_.Write(arguments.front() + ": " + std::string(error->message));
    g_error_free(error);
  }
  return started != FALSE;
}

bool XdgShell::OpenFolder(const std::string& folder) {
  return Start({kOpener, folder}, "");
}

bool XdgShell::Open(const std::string& item, const std::string& folder, ShowCommand) {
  if (!item.ends_with(kProgramEnding)) return Start({kOpener, item}, folder);
  const std::string name = item.substr(0, item.size() - kProgramEnding.size());
  return Start({JoinPath(programsFolder_, {name})}, folder);
}

}  // namespace lorelin
