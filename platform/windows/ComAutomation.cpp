#include "platform/windows/ComAutomation.h"

#include <utility>

#include "base/RuntimeError.h"
#include "platform/windows/dispatch.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr DWORD kLongestCall = 10000;  // milliseconds
constexpr UINT kTurn = 50;             // milliseconds

ErrorNumber NumberOf(HRESULT code) {
  return code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND ? ErrorNumber::NoSuchMethod
                                                                     : ErrorNumber::AutomationFailed;
}

// While a call waits, COM asks only when a message arrives; this one does.
class Ticking {
 public:
  Ticking() : timer_(SetTimer(nullptr, 0, kTurn, nullptr)) {}
  ~Ticking() { KillTimer(nullptr, timer_); }
  Ticking(const Ticking&) = delete;
  Ticking& operator=(const Ticking&) = delete;

 private:
  UINT_PTR timer_;
};

class ComObject final : public AutomationObject {
 public:
  ComObject(Dispatch object, Log& log) : object_(std::move(object)), log_(log) {}

  std::optional<std::string> Invoke(std::string_view method,
                                    std::optional<std::string_view> argument) override {
    try {
      const Ticking ticking;
      const auto member = object_.Member(method);
      if (!member) throw RuntimeError(ErrorNumber::NoSuchMethod);
      if (!argument) return TextOf(object_.Call(*member));
      return CallWithText(*member, *argument);
    } catch (const ComError& error) {
      log_.Write("Erweiterung, " + std::string(method) + ": " + error.what());
      throw RuntimeError(NumberOf(error.Code()));
    }
  }

 private:
  static std::optional<std::string> TextOf(const Variant& result) {
    if (result.Raw().vt != VT_BSTR) return std::nullopt;
    return result.Text();
  }

  // The text goes by reference; what the method makes of it there is its own affair.
  [[nodiscard]] std::optional<std::string> CallWithText(DISPID member, std::string_view text) const {
    const std::wstring wide = Wide(text);
    BSTR value = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    std::vector<Variant> arguments(1);
    arguments[0].Raw().vt = VT_BSTR | VT_BYREF;
    arguments[0].Raw().pbstrVal = &value;
    try {
      auto result = TextOf(object_.Call(member, std::move(arguments)));
      SysFreeString(value);
      return result;
    } catch (...) {
      SysFreeString(value);
      throw;
    }
  }

  Dispatch object_;
  Log& log_;
};

}  // namespace

// Decides how long a call into another process may take.
class ComAutomation::Patience final : public Counted<IMessageFilter> {
 public:
  explicit Patience(ComAutomation& owner) : owner_(&owner) {}
  void Forget() { owner_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id == IID_IUnknown || id == IID_IMessageFilter) {
      *object = static_cast<IMessageFilter*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override {
    return SERVERCALL_ISHANDLED;
  }
  // A server that is busy is asked again for as long as it may take.
  DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD elapsed, DWORD) override {
    constexpr DWORD kAgain = 100;
    constexpr auto kCancel = static_cast<DWORD>(-1);
    return elapsed < kLongestCall ? kAgain : kCancel;
  }
  DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD elapsed, DWORD) override {
    if (elapsed > kLongestCall) return PENDINGMSG_CANCELCALL;
    if (owner_ != nullptr && owner_->work_ && !owner_->work_()) return PENDINGMSG_CANCELCALL;
    return PENDINGMSG_WAITNOPROCESS;
  }

 private:
  ComAutomation* owner_;
};

ComAutomation::ComAutomation(Log& log) : log_(log), patience_(new Patience(*this)) {
  patience_->AddRef();
  CoRegisterMessageFilter(patience_, nullptr);
}

ComAutomation::~ComAutomation() {
  patience_->Forget();
  CoRegisterMessageFilter(nullptr, nullptr);
  patience_->Release();
}

std::unique_ptr<AutomationObject> ComAutomation::CreateObject(std::string_view identifier) {
  try {
    const Ticking ticking;
    return std::make_unique<ComObject>(Dispatch::Create(identifier), log_);
  } catch (const ComError& error) {
    log_.Write("Erweiterung " + std::string(identifier) + ": " + error.what());
    throw RuntimeError(ErrorNumber::CannotCreateObject);
  }
}

}  // namespace lorelin
