#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>

#include "platform/wx/userLocale.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  lorelin::SetUserLocale();
  wxApp::SetInstance(new wxApp);
  if (!wxEntryStart(argc, argv)) return 1;
  const int result = RUN_ALL_TESTS();
  wxEntryCleanup();
  return result;
}
