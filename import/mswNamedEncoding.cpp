#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "import/namedEncoding.h"

namespace lorelin {
namespace {

constexpr auto kPages = std::to_array<std::pair<std::string_view, UINT>>({
    {"big5", 950},
    {"cp437", 437},
    {"cp850", 850},
    {"cp866", 866},
    {"ibm866", 866},
    {"euc-jp", 20932},
    {"euc-kr", 51949},
    {"gb18030", 54936},
    {"iso-2022-jp", 50220},
    {"koi8-r", 20866},
    {"koi8-u", 21866},
    {"macintosh", 10000},
    {"shift_jis", 932},
    {"shift-jis", 932},
    {"sjis", 932},
    {"tis-620", 874},
    {"windows-874", 874},
    {"utf-7", 65000},
});

std::optional<UINT> NumberBehind(std::string_view name, std::string_view begin) {
  if (!name.starts_with(begin)) return {};
  name.remove_prefix(begin.size());
  UINT number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size()) return {};
  return number;
}

// 0 for none.
UINT CodePageOf(std::string_view name) {
  const auto* const known =
      std::find_if(kPages.begin(), kPages.end(), [&](const auto& page) { return page.first == name; });
  if (known != kPages.end()) return known->second;
  for (const std::string_view begin : {"windows-125", "cp125"})
    if (const auto number = NumberBehind(name, begin); number && *number <= 8) return 1250 + *number;
  for (const std::string_view begin : {"iso-8859-", "iso_8859-", "iso8859-"})
    if (const auto number = NumberBehind(name, begin); number && *number > 0 && *number <= 16)
      return 28590 + *number;
  return 0;
}

std::wstring Decoded(std::string_view bytes, UINT page) {
  const int size = static_cast<int>(bytes.size());
  std::wstring wide(
      static_cast<std::size_t>(std::max(MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0), 0)),
      L'\0');
  MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string InUtf8(const std::wstring& wide) {
  const int size = static_cast<int>(wide.size());
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), length, nullptr, nullptr);
  return text;
}

}  // namespace

std::optional<std::string> DecodedBySystem(std::string_view bytes, const std::string& encoding) {
  const UINT page = CodePageOf(encoding);
  if (page == 0 || IsValidCodePage(page) == FALSE || bytes.size() > (std::size_t{1} << 30)) return {};
  return InUtf8(Decoded(bytes, page));
}

}  // namespace lorelin
