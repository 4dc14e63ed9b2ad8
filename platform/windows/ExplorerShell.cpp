#include "platform/windows/ExplorerShell.h"

#include <windows.h>
// shellapi.h needs windows.h before it
#include <shellapi.h>

#include "base/paths.h"
#include "platform/windows/systemErrors.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr std::string_view kProgramEnding = ".exe";

bool NamesAFolder(const std::string& item) {
  return item.find_first_of("/\\") != std::string::npos;
}

}  // namespace

bool ExplorerShell::Execute(const std::string& item, const std::string& parameters, const std::string& folder,
                            ShowCommand show) {
  constexpr INT_PTR kLastFailure = 32;
  const HINSTANCE result = ShellExecuteW(
      nullptr, L"open", Wide(item).c_str(), parameters.empty() ? nullptr : Wide(parameters).c_str(),
      folder.empty() ? nullptr : Wide(folder).c_str(), static_cast<int>(show));
  if (reinterpret_cast<INT_PTR>(result) > kLastFailure) return true;
  log_.Write(item + ": " + SystemErrorText(GetLastError()));
  return false;
}

bool ExplorerShell::OpenFolder(const std::string& folder) {
  return Execute("explorer.exe", '"' + folder + '"', "", ShowCommand::Normal);
}

bool ExplorerShell::Open(const std::string& item, const std::string& folder, ShowCommand show) {
  if (!item.ends_with(kProgramEnding) || NamesAFolder(item)) return Execute(item, "", folder, show);
  return Execute(JoinPath(programsFolder_, {item}), "", folder, show);
}

}  // namespace lorelin
