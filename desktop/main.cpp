#include <string>
#include <string_view>
#include <vector>

#include "base/consoleAnswers.h"
#include "desktop/App.h"
#include "desktop/toolkit/userLocale.h"

namespace {

constexpr std::string_view kHelp =
    "lorelin liest Texte, Bücher und Dokumente vor.\n"
    "\n"
    "  lorelin                   öffnet das Fenster\n"
    "  lorelin DATEI             öffnet die Datei\n"
    "  lorelin DATEI /t          öffnet sie im Textmodus\n"
    "  lorelin DATEI /s          öffnet sie im Textmodus und liest sie gleich vor\n"
    "  lorelin --auswahl         liest vor, was im Programm davor markiert ist\n"
    "  lorelin --auswahl DATEI…  liest diese Dateien vor, im Fenster, das schon da ist\n"
    "\n"
    "Optionen:\n"
    "  --help     zeigt diese Hilfe\n"
    "  --version  nennt die Version\n"
    "\n"
    "Ohne Fenster arbeitet lorelin-cli. Was Lorelin speichert, liegt unter ~/.config/lorelin und\n"
    "~/.local/share/lorelin, oder dort, wohin die Variable LORELIN_HOME zeigt.\n";

}  // namespace

int main(int argc, char** argv) {
  if (lorelin::AnswerOnConsole(argc, argv, kHelp)) return 0;
  lorelin::SetUserLocale();
  // The toolkit owns the application object and would convert the arguments by the locale, which may know no
  // umlauts.
  wxApp::SetInstance(new lorelin::App(std::vector<std::string>(argv + 1, argv + argc)));
  return wxEntry(argc, argv);
}
