#include "platform/windows/wideText.h"

#include <windows.h>

namespace lorelin {
namespace {

std::wstring WideFrom(UINT codePage, std::string_view bytes) {
  if (bytes.empty()) return {};
  const auto size = static_cast<int>(bytes.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string BytesIn(UINT codePage, std::wstring_view wide) {
  if (wide.empty()) return {};
  const auto size = static_cast<int>(wide.size());
  const int needed = WideCharToMultiByte(codePage, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(codePage, 0, wide.data(), size, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  return WideFrom(CP_UTF8, utf8);
}
std::string Utf8(std::wstring_view wide) {
  return BytesIn(CP_UTF8, wide);
}
std::string SystemCodePage(std::string_view utf8) {
  return BytesIn(CP_ACP, Wide(utf8));
}
std::string FromSystemCodePage(std::string_view bytes) {
  return Utf8(WideFrom(CP_ACP, bytes));
}

}  // namespace lorelin
