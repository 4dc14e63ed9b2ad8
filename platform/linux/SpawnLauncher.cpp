#include "platform/linux/SpawnLauncher.h"

#include <gio/gio.h>

#include "base/RuntimeError.h"
#include "base/paths.h"

namespace lorelin {
namespace {

ErrorNumber NumberOf(const GError& error) {
  if (error.domain != G_SPAWN_ERROR) return ErrorNumber::InvalidCall;
  switch (error.code) {
    case G_SPAWN_ERROR_NOENT:
    case G_SPAWN_ERROR_NOTDIR:
      return ErrorNumber::FileNotFound;
    case G_SPAWN_ERROR_ACCES:
    case G_SPAWN_ERROR_PERM:
    case G_SPAWN_ERROR_ISDIR:
      return ErrorNumber::PermissionDenied;
    default:
      return ErrorNumber::InvalidCall;
  }
}

bool NamesAFolder(const std::string& program) {
  return program.find_first_of("/\\") != std::string::npos;
}

}  // namespace

void SpawnLauncher::Start(const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments[0].empty()) throw RuntimeError(ErrorNumber::InvalidCall);
  std::vector<std::string> owned = arguments;
  if (NamesAFolder(owned[0])) owned[0] = NativePath(owned[0]).string();
  std::vector<char*> pointers;
  pointers.reserve(owned.size() + 1);
  for (std::string& argument : owned) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const auto flags =
      static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
  GError* error = nullptr;
  if (g_spawn_async(nullptr, pointers.data(), nullptr, flags, nullptr, nullptr, nullptr, &error) != FALSE)
    return;
  const ErrorNumber number = NumberOf(*error);
  g_error_free(error);
  throw RuntimeError(number);
}

}  // namespace lorelin
