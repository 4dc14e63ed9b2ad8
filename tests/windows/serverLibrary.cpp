// The test servers as a library that COM loads into whatever program asks for them: regsvr32 registers it.
#include <windows.h>
// the other needs windows.h before it
#include <objbase.h>

#include <array>
#include <fstream>

#include "base/paths.h"
#include "platform/windows/AdvapiRegistry.h"
#include "platform/windows/wideText.h"
#include "ports/Log.h"
#include "tests/windows/extensionServers.h"
#include "tests/windows/speechServers.h"

namespace {

struct Offer {
  const CLSID& id;
  const char* idText;
  const char* name;
  lorelin::ServedObject* (*make)();
};

const std::array kOffers{Offer{lorelin::kDirectSSClass, "{EEE78591-FE22-11D0-8BEF-0060081841DE}",
                               "ActiveVoice.ActiveVoice", &lorelin::MakeDirectSS},
                         Offer{lorelin::kSpVoiceClass, "{96749377-3391-11D2-9EE3-00C04F797396}",
                               "SAPI.SpVoice", &lorelin::MakeSpVoice},
                         Offer{lorelin::kSpFileStreamClass, "{947812B3-2AE1-4644-BA86-9E90DED7EC91}",
                               "SAPI.SpFileStream", &lorelin::MakeSpFileStream},
                         Offer{lorelin::kExtensionClass, lorelin::kExtensionClassText,
                               lorelin::kExtensionName, &lorelin::MakeExtension}};

HINSTANCE library = nullptr;

class NoLog final : public lorelin::Log {
 public:
  void Write(std::string_view) override {}
};

// Which of them are registered: all, or the one that LORELIN_TEST_SERVER names.
bool IsWanted(const Offer& offer) {
  const wchar_t* const only = _wgetenv(L"LORELIN_TEST_SERVER");
  return only == nullptr || lorelin::Utf8(only) == offer.name;
}

}  // namespace

extern "C" {

// It stays once it is there: the run-time library in it does not survive being unloaded with the thread that
// asked for it.
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  library = instance;
  if (reason == DLL_PROCESS_ATTACH) {
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCWSTR>(&DllMain), &pinned);
  }
  return TRUE;
}

__declspec(dllexport) HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** object) {
  *object = nullptr;
  for (const Offer& offer : kOffers) {
    if (offer.id != id) continue;
    auto* const factory = new lorelin::ServedClass(offer.make);
    factory->AddRef();
    const HRESULT result = factory->QueryInterface(interfaceId, object);
    factory->Release();
    return result;
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

__declspec(dllexport) HRESULT WINAPI DllCanUnloadNow() {
  return lorelin::ServedObject::LiveObjects() > 0 ? S_FALSE : S_OK;
}

__declspec(dllexport) HRESULT WINAPI DllRegisterServer() {
  std::wstring file(MAX_PATH, L'\0');
  file.resize(GetModuleFileNameW(library, file.data(), static_cast<DWORD>(file.size())));
  NoLog log;
  lorelin::AdvapiRegistry registry(log);
  const auto write = [&](const std::string& key, const char* name, const std::string& text) {
    registry.WriteValue(lorelin::RegistryHive::ClassesRoot, key, name, {lorelin::RegistryType::String, text});
  };
  for (const Offer& offer : kOffers) {
    if (!IsWanted(offer)) continue;
    const std::string classKey = std::string("CLSID\\") + offer.idText;
    write(std::string(offer.name) + "\\CLSID", "", offer.idText);
    write(classKey + "\\InprocServer32", "", lorelin::Utf8(file));
    write(classKey + "\\InprocServer32", "ThreadingModel", "Apartment");
  }
  return S_OK;
}

}  // extern "C"
