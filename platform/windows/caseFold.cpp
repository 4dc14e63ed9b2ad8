#include "platform/common/caseFold.h"

#include <windows.h>

#include "platform/windows/wideText.h"

namespace lorelin {

std::string FoldCase(std::string_view name) {
  std::wstring wide = Wide(name);
  if (wide.empty()) return {};
  // Linguistic casing would join letters that the registry keeps apart.
  std::wstring folded(wide.size(), L'\0');
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                folded.data(), static_cast<int>(folded.size()), nullptr, nullptr, 0);
  return Utf8(folded);
}

}  // namespace lorelin
