#include "platform/windows/User32ForegroundWindow.h"

#include <windows.h>

#include <array>

#include "platform/windows/wideText.h"

namespace lorelin {

std::string User32ForegroundWindow::Title() {
  std::array<char, 255> title{};
  const int length = GetWindowTextA(GetForegroundWindow(), title.data(), static_cast<int>(title.size()));
  std::string text = FromSystemCodePage({title.data(), static_cast<std::size_t>(length)});
  // Where the code page is UTF-8 the last character may have been cut.
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  while (length + 1 == static_cast<int>(title.size()) && text.ends_with(kReplacement)) {
    text.resize(text.size() - kReplacement.size());
  }
  return text;
}

}  // namespace lorelin
