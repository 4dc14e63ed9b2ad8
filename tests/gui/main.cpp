#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <iostream>

#include "desktop/toolkit/toolkit.h"
#include "desktop/toolkit/userLocale.h"
#include "tests/support/FakePorts.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  lorelin::SetUserLocale();
  wxApp::SetInstance(new wxApp);
  if (!wxEntryStart(argc, argv)) return 1;
  lorelin::FakeLog log;
  lorelin::PrepareToolkit(log);
  const int result = RUN_ALL_TESTS();
  for (const std::string& line : log.lines) std::cerr << line << '\n';
  delete wxLog::SetActiveTarget(nullptr);
  wxEntryCleanup();
  return result;
}
