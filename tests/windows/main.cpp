#include <gmock/gmock.h>
#include <windows.h>
// the other needs windows.h before it
#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/windows/MutexSingleInstance.h"
#include "platform/windows/wideText.h"
#include "ports/Platform.h"

// The tests, and what some of them start as another program:
//   --arguments FILE ARGUMENT...    writes the arguments to the file
//   --command-line FILE ...         writes what start-up reads to the file
//   -- FILE                         writes its number to the file and hangs
//   --hold NAME FILE                claims the single instance, says so in the file and stays
namespace {

void Report(const wchar_t* file, const std::string& text) {
  const std::filesystem::path path(file);
  std::filesystem::path unfinished = path;
  unfinished += L".neu";
  std::ofstream(unfinished, std::ios::binary) << text;
  std::filesystem::rename(unfinished, path);
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::wstring wish = count > 2 ? arguments[1] : L"";
  if (wish == L"--arguments") {
    std::string text;
    for (int i = 3; i < count; ++i) text += '[' + lorelin::Utf8(arguments[i]) + ']';
    Report(arguments[2], text);
    return 0;
  }
  if (wish == L"--command-line") {
    Report(arguments[2], lorelin::CommandLineText({}));
    return 0;
  }
  if (wish == L"--") {
    Report(arguments[2], std::to_string(GetCurrentProcessId()));
    Sleep(600000);
    return 0;
  }
  if (wish == L"--hold" && count > 3) {
    lorelin::MutexSingleInstance instance(lorelin::Utf8(arguments[2]));
    Report(arguments[3], instance.IsAlreadyRunning() ? "nein" : "ja");
    Sleep(60000);
    return 0;
  }
  LocalFree(arguments);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
