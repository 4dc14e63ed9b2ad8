#include "ports/ProgramPaths.h"

#include <windows.h>
// the other needs windows.h before it
#include <shlobj.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "base/paths.h"
#include "platform/common/programFolder.h"
#include "platform/windows/executable.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

fs::path KnownFolder(REFKNOWNFOLDERID id) {
  PWSTR name = nullptr;
  const HRESULT result = SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &name);
  fs::path folder = SUCCEEDED(result) ? fs::path(name) : fs::path();
  CoTaskMemFree(name);
  return folder;
}

fs::path NamedFolder() {
  const wchar_t* const name = _wgetenv(L"LORELIN_HOME");
  if (name == nullptr || *name == L'\0') return {};
  std::error_code error;
  return fs::absolute(name, error).lexically_normal();
}

// Rights alone do not tell: a protected folder may be a virtual one.
bool IsWritable(const fs::path& folder) {
  const fs::path probe = folder / (L".lorelin-" + std::to_wstring(GetCurrentProcessId()));
  const HANDLE file = CreateFileW(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

fs::path WritableFolder(const fs::path& wanted) {
  std::error_code error;
  fs::create_directories(wanted, error);
  if (IsWritable(wanted)) return wanted;
  const fs::path temporary = fs::temp_directory_path(error) / "Lorelin";
  fs::create_directories(temporary, error);
  return temporary;
}

}  // namespace

ProgramPaths FindProgramPaths() {
  const fs::path executable = ExecutableFile();
  const fs::path beside = executable.parent_path();
  const fs::path named = NamedFolder();
  std::error_code error;
  const bool own = named.empty() && fs::is_directory(beside / kPagesFolder, error) && IsWritable(beside);
  const fs::path users = KnownFolder(FOLDERID_LocalAppData) / "Lorelin";
  fs::path folder = beside;
  if (!own) {
    folder = WritableFolder(named.empty() ? users : named);
    SeedProgramFolder(folder, beside);
  }
  return {
      .programFolder = PathText(folder),
      .programFile = PathText(executable),
      .engineFile = "",
      .settingsFolder = PathText(named.empty() ? KnownFolder(FOLDERID_RoamingAppData) / "Lorelin" : named),
      .registryFile = "",
      .logFile = PathText((named.empty() ? users : named) / "lorelin.log"),
      .scriptLogFile = PathText(folder / "taskscripts.log"),
      .cacheFolder = PathText((named.empty() ? users : named) / "cache"),
      .lockFile = PathText(named),
      .homeFolder = PathText(KnownFolder(FOLDERID_Profile)),
      .desktopFolder = ""};
}

}  // namespace lorelin
