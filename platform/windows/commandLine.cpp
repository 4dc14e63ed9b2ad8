#include <windows.h>

#include <cwctype>

#include "platform/windows/wideText.h"
#include "ports/Platform.h"

namespace lorelin {
namespace {

// Behind the program's name, which ends at its closing quotation mark or at a blank.
std::wstring_view WithoutProgram(std::wstring_view line) {
  const bool quoted = line.starts_with(L'"');
  const auto end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  if (end == std::wstring_view::npos) return {};
  line.remove_prefix(end + (quoted ? 1 : 0));
  const auto begin = line.find_first_not_of(L" \t");
  return begin == std::wstring_view::npos ? std::wstring_view() : line.substr(begin);
}

}  // namespace

// The system's own text: what was in quotation marks still is.
std::string CommandLineText(std::span<char* const>) {
  return Utf8(WithoutProgram(GetCommandLineW()));
}

}  // namespace lorelin
