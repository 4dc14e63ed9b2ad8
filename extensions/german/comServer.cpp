// The extension "Abkürzungen" for Windows: filters every text before it is spoken. A COM server of its own,
// which COM starts when Lorelin first asks for it; it ends some minutes after the last of its objects.
//   lorelin-abkuerzungen --install | --uninstall    registers it for the user, or takes that back
//   lorelin-abkuerzungen --home FOLDER              the user's own words lie there, as with Lorelin under
//                                                   LORELIN_HOME
#include <windows.h>
// the other needs windows.h before it
#include <shellapi.h>
#include <shlobj.h>

#include <string>
#include <string_view>

#include "base/paths.h"
#include "extensions/german/abbreviationFilter.h"
#include "platform/windows/AdvapiRegistry.h"
#include "platform/windows/executable.h"
#include "platform/windows/servedObject.h"
#include "platform/windows/wideText.h"
#include "ports/Log.h"

namespace {

constexpr CLSID kClass = {0x6B1C2F5E, 0x93D7, 0x4A0B, {0x8E, 0x55, 0x2D, 0x71, 0xC4, 0x0A, 0xE9, 0x13}};
constexpr const char* kClassText = "{6B1C2F5E-93D7-4A0B-8E55-2D71C40AE913}";
constexpr UINT kLook = 30'000;        // milliseconds
constexpr ULONGLONG kIdle = 300'000;  // milliseconds

// The folder that holds everything of Lorelin: what was named when the class was registered, else by the same
// variable that Lorelin itself looks at; empty when there is none.
std::filesystem::path& Home() {
  static std::filesystem::path home = [] {
    const wchar_t* const name = _wgetenv(L"LORELIN_HOME");
    std::error_code error;
    return name != nullptr && *name != L'\0' ? std::filesystem::absolute(name, error).lexically_normal()
                                             : std::filesystem::path();
  }();
  return home;
}

std::filesystem::path SecondArgument() {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::filesystem::path second = words != nullptr && count > 2 ? words[2] : L"";
  LocalFree(words);
  return second;
}

std::filesystem::path WordListFile() {
  if (!Home().empty()) return Home() / "abkuerzungen.txt";
  PWSTR name = nullptr;
  SHGetKnownFolderPath(FOLDERID_RoamingAppData, 0, nullptr, &name);
  const std::filesystem::path folder =
      name != nullptr ? std::filesystem::path(name) : std::filesystem::path();
  CoTaskMemFree(name);
  return folder / "Lorelin" / "abkuerzungen.txt";
}

class Filter final : public lorelin::ServedObject {
 public:
  Filter() : ServedObject(Hooks()) {}

 protected:
  lorelin::Variant Perform(DISPID member, WORD, std::vector<lorelin::Variant> arguments) override {
    for (const Member& hook : Hooks()) {
      if (hook.id != member) continue;
      const std::string text = arguments.empty() ? std::string() : arguments[0].Text();
      const auto result =
          filter_.Call(hook.name, arguments.empty() ? std::nullopt : std::optional<std::string_view>(text));
      if (result) return lorelin::Variant(std::string_view(*result));
    }
    throw lorelin::ComError(DISP_E_MEMBERNOTFOUND, "Unbekannte Methode");
  }

 private:
  static std::vector<Member> Hooks() {
    return {{"Startup", 1}, {"Close", 2},      {"NewFile", 3},   {"SaveFile", 4},
            {"Export", 5},  {"TaskScript", 6}, {"FilterText", 7}};
  }

  lorelin::AbbreviationFilter filter_{WordListFile()};
};

class NoLog final : public lorelin::Log {
 public:
  void Write(std::string_view) override {}
};

bool Install() {
  NoLog log;
  lorelin::AdvapiRegistry registry(log);
  const auto write = [&](const std::string& key, const std::string& text) {
    return registry.WriteValue(lorelin::RegistryHive::ClassesRoot, key, "",
                               {lorelin::RegistryType::String, text});
  };
  // COM starts it with none of the variables that are set here.
  const std::string home = Home().empty() ? "" : " --home \"" + lorelin::PathText(Home()) + '"';
  const std::string command = '"' + lorelin::PathText(lorelin::ExecutableFile()) + '"' + home;
  const std::string name = lorelin::AbbreviationFilter::kName;
  const std::string classKey = std::string("CLSID\\") + kClassText;
  return write(name, "Lorelin Abkürzungen") && write(name + "\\CLSID", kClassText) &&
         write(classKey, "Lorelin Abkürzungen") && write(classKey + "\\ProgID", name) &&
         write(classKey + "\\LocalServer32", command);
}

bool Uninstall() {
  NoLog log;
  lorelin::AdvapiRegistry registry(log);
  const std::string name = lorelin::AbbreviationFilter::kName;
  const std::string classKey = std::string("CLSID\\") + kClassText;
  bool removed = true;
  for (const std::string& key :
       {name + "\\CLSID", name, classKey + "\\LocalServer32", classKey + "\\ProgID", classKey}) {
    removed = registry.DeleteKey(lorelin::RegistryHive::ClassesRoot, key) && removed;
  }
  return removed;
}

int Serve() {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return EXIT_FAILURE;
  DWORD registration = 0;
  auto* const factory = new lorelin::ServedClass([] { return new Filter; });
  factory->AddRef();
  const HRESULT result =
      CoRegisterClassObject(kClass, factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &registration);
  factory->Release();
  if (FAILED(result)) return EXIT_FAILURE;
  SetTimer(nullptr, 0, kLook, nullptr);
  ULONGLONG lastUse = GetTickCount64();
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (lorelin::ServedObject::LiveObjects() > 0 || message.message != WM_TIMER) lastUse = GetTickCount64();
    if (GetTickCount64() - lastUse > kIdle) break;
    DispatchMessageW(&message);
  }
  CoRevokeClassObject(registration);
  CoUninitialize();
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view wish = argc > 1 ? argv[1] : "";
  if (wish == "--install") return Install() ? EXIT_SUCCESS : EXIT_FAILURE;
  if (wish == "--uninstall") return Uninstall() ? EXIT_SUCCESS : EXIT_FAILURE;
  if (wish == "--home" && argc > 2) Home() = SecondArgument();
  return Serve();
}
