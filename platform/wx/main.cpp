#include <wx/utils.h>

#include <clocale>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wx/App.h"

namespace {

// The toolkit's own dialogs speak German like the rest of the program, whatever the system's language is.
// Without any locale it would not translate at all and know no umlauts in file names.
void SpeakGerman() {
  wxSetEnv("LANGUAGE", "de");
  const char* const locale = std::setlocale(LC_ALL, "");
  if (locale == nullptr || std::string_view(locale) == "C" || std::string_view(locale) == "POSIX") {
    wxSetEnv("LC_ALL", "C.UTF-8");
  }
}

}  // namespace

int main(int argc, char** argv) {
  SpeakGerman();
  // The toolkit owns the application object and would convert the arguments by the locale, which may know no
  // umlauts.
  wxApp::SetInstance(new lorelin::App(std::vector<std::string>(argv + 1, argv + argc)));
  return wxEntry(argc, argv);
}
