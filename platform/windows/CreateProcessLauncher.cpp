#include "platform/windows/CreateProcessLauncher.h"

#include <windows.h>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr DWORD kElevationRequired = 740;  // ERROR_ELEVATION_REQUIRED, which not every winerror.h has

ErrorNumber NumberOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
      return ErrorNumber::FileNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_BAD_EXE_FORMAT:
    case ERROR_EXE_MACHINE_TYPE_MISMATCH:
    case kElevationRequired:
      return ErrorNumber::PermissionDenied;
    default:
      return ErrorNumber::InvalidCall;
  }
}

bool NamesAFolder(const std::string& program) {
  return program.find_first_of("/\\:") != std::string::npos;
}

std::wstring InSearchPath(const std::string& program) {
  const std::wstring name = Wide(program);
  std::wstring found(MAX_PATH, L'\0');
  DWORD length =
      SearchPathW(nullptr, name.c_str(), L".exe", static_cast<DWORD>(found.size()), found.data(), nullptr);
  if (length > found.size()) {
    found.resize(length);
    length = SearchPathW(nullptr, name.c_str(), L".exe", length, found.data(), nullptr);
  }
  if (length == 0) throw RuntimeError(ErrorNumber::FileNotFound);
  found.resize(length);
  return found;
}

std::wstring WithEnding(const std::string& program) {
  const std::filesystem::path path = NativePath(program);
  std::error_code error;
  if (std::filesystem::exists(path, error) || path.has_extension()) return path.wstring();
  return path.wstring() + L".exe";
}

bool IsBatchFile(const std::wstring& program) {
  const std::string name = LowerAscii(Utf8(program));
  return name.ends_with(".bat") || name.ends_with(".cmd");
}

void AppendArgument(std::string& line, std::string_view argument) {
  if (!argument.empty() && argument.find_first_of(" \t\n\v\"") == std::string_view::npos) {
    line += argument;
    return;
  }
  line.push_back('"');
  std::size_t backslashes = 0;
  for (const char character : argument) {
    if (character == '"') line.append(backslashes + 1, '\\');  // they would escape the quote otherwise
    backslashes = character == '\\' ? backslashes + 1 : 0;
    line.push_back(character);
  }
  line.append(backslashes, '\\');
  line.push_back('"');
}

}  // namespace

std::string CommandLineOf(const std::vector<std::string>& arguments) {
  std::string line;
  for (const std::string& argument : arguments) {
    if (!line.empty()) line.push_back(' ');
    AppendArgument(line, argument);
  }
  return line;
}

void CreateProcessLauncher::Start(const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments[0].empty()) throw RuntimeError(ErrorNumber::InvalidCall);
  const std::wstring program =
      NamesAFolder(arguments[0]) ? WithEnding(arguments[0]) : InSearchPath(arguments[0]);
  const DWORD attributes = GetFileAttributesW(program.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw RuntimeError(ErrorNumber::FileNotFound);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw RuntimeError(ErrorNumber::PermissionDenied);
  if (IsBatchFile(program) && arguments.size() > 1) throw RuntimeError(ErrorNumber::PermissionDenied);
  std::wstring line = Wide(CommandLineOf(arguments));
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &process) == FALSE) {
    throw RuntimeError(NumberOf(GetLastError()));
  }
  // The new program may bring its window to the front.
  AllowSetForegroundWindow(process.dwProcessId);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

}  // namespace lorelin
