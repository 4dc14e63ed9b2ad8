#include "platform/windows/executable.h"

#include <windows.h>

#include <string>

namespace lorelin {

std::filesystem::path ExecutableFile() {
  std::wstring name(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) return name.substr(0, length);
    name.resize(name.size() * 2);
  }
}

}  // namespace lorelin
