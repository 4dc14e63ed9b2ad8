#include "export/fileNames.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

// File systems allow 255 bytes, some 143; a number, an ending and the name of the unfinished file come on
// top.
constexpr std::size_t kMostBytes = 100;

bool IsForbidden(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F ||
         std::string_view("<>:\"/\\|?*").find(c) != std::string_view::npos;
}

std::string WithoutForbidden(std::string_view title) {
  std::string name;
  for (std::size_t at = 0; at < title.size();) {
    const std::size_t length = std::max<std::size_t>(Utf8Length(title.substr(at)), 1);
    const bool whole = Utf8Length(title.substr(at)) > 0;
    const bool blank = !whole || IsForbidden(title[at]) || title[at] == ' ';
    if (!blank) {
      if (name.size() + length > kMostBytes) break;
      name += title.substr(at, length);
    } else if (!name.empty() && name.back() != ' ') {
      name += ' ';
    }
    at += length;
  }
  return name;
}

bool IsDevice(std::string_view name) {
  constexpr std::array<std::string_view, 6> kDevices{"con", "prn", "aux", "nul", "com", "lpt"};
  const std::string stem = LowerAscii(name.substr(0, name.find('.')));
  const bool numbered = stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9';
  return std::any_of(kDevices.begin(), kDevices.end(), [&](std::string_view device) {
    return stem == device || (numbered && device.size() == 3 && stem.starts_with(device));
  });
}

}  // namespace

std::string SafeFileName(std::string_view title) {
  std::string name = WithoutForbidden(title);
  name.erase(0, std::min(name.find_first_not_of(" ."), name.size()));
  while (!name.empty() && (name.back() == ' ' || name.back() == '.')) name.pop_back();
  if (name.empty()) return "Ohne Titel";
  return IsDevice(name) ? "_" + name : name;
}

std::string NumberedName(std::size_t number, std::size_t count, std::string_view title) {
  const std::size_t digits = std::max<std::size_t>(std::to_string(count).size(), 2);
  std::string text = std::to_string(number);
  text.insert(0, digits - std::min(digits, text.size()), '0');
  return text.append(" ").append(title);
}

}  // namespace lorelin
