#include <string>
#include <vector>

#include "desktop/App.h"
#include "desktop/toolkit/userLocale.h"

int main(int argc, char** argv) {
  lorelin::SetUserLocale();
  // The toolkit owns the application object and would convert the arguments by the locale, which may know no
  // umlauts.
  wxApp::SetInstance(new lorelin::App(std::vector<std::string>(argv + 1, argv + argc)));
  return wxEntry(argc, argv);
}
