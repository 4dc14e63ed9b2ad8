#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace lorelin {

[[nodiscard]] inline wxString ToWx(std::string_view text) {
  return wxString::FromUTF8(text.data(), text.size());
}

[[nodiscard]] inline std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer bytes = text.utf8_str();
  return {bytes.data(), bytes.length()};
}

}  // namespace lorelin
