#include "desktop/toolkit/userLocale.h"

#include <wx/utils.h>

#include <clocale>
#include <string_view>

namespace lorelin {

void SetUserLocale() {
  wxSetEnv("LANGUAGE", "de");
  const char* const locale = std::setlocale(LC_ALL, "");
  if (locale == nullptr || std::string_view(locale) == "C" || std::string_view(locale) == "POSIX") {
    wxSetEnv("LC_ALL", "C.UTF-8");
  }
}

}  // namespace lorelin
