#include "tests/windows/extensionServers.h"

namespace lorelin {

const CLSID kExtensionClass = {0x1E2C0E6B, 0x6A54, 0x4F0B, {0x9A, 0x57, 0x3D, 0x0C, 0x7C, 0x1B, 0x5A, 0x11}};

namespace {

class Extension final : public ServedObject {
 public:
  Extension();

  // A base that copies arguments cannot tell whether they came by reference.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID language, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong) override {
    byReference_ = parameters->cArgs == 1 && parameters->rgvarg[0].vt == (VT_BSTR | VT_BYREF);
    return ServedObject::Invoke(member, reserved, language, flags, parameters, result, exception, wrong);
  }

 protected:
  Variant Perform(DISPID member, WORD, std::vector<Variant> arguments) override {
    static const char* const kNames[] = {"Startup", "Close",      "NewFile",   "SaveFile",
                                         "Export",  "TaskScript", "FilterText"};
    const std::string name = kNames[member - 1];
    const std::string text = arguments.empty() ? "" : arguments[0].Text();
    ExtensionCalls().push_back(name + "(" + (byReference_ ? "&" : "") + text + ")");
    if (name == "Export" && text == "fehler") throw ComError(E_FAIL, "so gewollt");
    return name == "FilterText" ? Variant(std::string_view("<" + text + ">")) : Variant();
  }

 private:
  bool byReference_ = false;
};

Extension::Extension()
    : ServedObject({{"Startup", 1},
                    {"Close", 2},
                    {"NewFile", 3},
                    {"SaveFile", 4},
                    {"Export", 5},
                    {"TaskScript", 6},
                    {"FilterText", 7}}) {}

}  // namespace

ServedObject* MakeExtension() {
  return new Extension;
}
std::vector<std::string>& ExtensionCalls() {
  static std::vector<std::string> calls;
  return calls;
}

}  // namespace lorelin
