#include "platform/windows/dispatch.h"

#include <utility>

#include "platform/windows/systemErrors.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

void Require(HRESULT result, const std::string& what) {
  if (FAILED(result))
    throw ComError(result, what + ": " + SystemErrorText(static_cast<unsigned long>(result)));
}

BSTR MakeText(std::string_view text) {
  const std::wstring wide = Wide(text);
  return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

// What the object itself says about its failure.
struct Complaint {
  EXCEPINFO info{};
  Complaint() = default;
  ~Complaint() {
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
  }
  Complaint(const Complaint&) = delete;
  Complaint& operator=(const Complaint&) = delete;
  [[nodiscard]] std::string Text() {
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
    return info.bstrDescription != nullptr ? Utf8({info.bstrDescription, SysStringLen(info.bstrDescription)})
                                           : std::string();
  }
};

// Converts a copy; empty when it cannot be converted.
Variant Converted(const VARIANT& value, VARTYPE type) {
  Variant result;
  if (FAILED(VariantChangeType(&result.Raw(), const_cast<VARIANT*>(&value), 0, type)))
    VariantClear(&result.Raw());
  return result;
}

// Receives events by their number.
class EventSink final : public Counted<IDispatch> {
 public:
  EventSink(const IID& events, EventConnection::Handler handler)
      : events_(events), handler_(std::move(handler)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id == IID_IUnknown || id == IID_IDispatch || id == events_) {
      *object = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    if (arguments == nullptr) return E_POINTER;
    handler_(event, *arguments);
    return S_OK;
  }

 private:
  const IID events_;
  EventConnection::Handler handler_;
};

}  // namespace

Variant::Variant(std::int32_t number) : Variant() {
  value_.vt = VT_I4;
  value_.lVal = number;
}
Variant::Variant(bool truth) : Variant() {
  value_.vt = VT_BOOL;
  value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}
Variant::Variant(std::string_view text) : Variant() {
  value_.vt = VT_BSTR;
  value_.bstrVal = MakeText(text);
}
Variant::Variant(IDispatch* object) : Variant() {
  value_.vt = VT_DISPATCH;
  value_.pdispVal = object;
  if (object != nullptr) object->AddRef();
}
Variant::Variant(Variant&& other) noexcept : value_(other.value_) {
  VariantInit(&other.value_);
}

std::int32_t Variant::Number() const {
  const Variant number = Converted(value_, VT_I4);
  return number.value_.vt == VT_I4 ? number.value_.lVal : 0;
}
std::string Variant::Text() const {
  const Variant text = Converted(value_, VT_BSTR);
  if (text.value_.vt != VT_BSTR || text.value_.bstrVal == nullptr) return {};
  return Utf8({text.value_.bstrVal, SysStringLen(text.value_.bstrVal)});
}
bool Variant::Truth() const {
  const Variant truth = Converted(value_, VT_BOOL);
  return truth.value_.vt == VT_BOOL && truth.value_.boolVal != VARIANT_FALSE;
}
ComPtr<IDispatch> Variant::Object() const {
  const Variant object = Converted(value_, VT_DISPATCH);
  return object.value_.vt == VT_DISPATCH ? ComPtr<IDispatch>(object.value_.pdispVal) : ComPtr<IDispatch>();
}

Dispatch Dispatch::Create(const CLSID& classId) {
  ComPtr<IDispatch> object;
  Require(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                           reinterpret_cast<void**>(object.GetAddressOf())),
          "CoCreateInstance");
  return Dispatch(object);
}

Dispatch Dispatch::Create(std::string_view programmaticId) {
  CLSID classId{};
  Require(CLSIDFromProgID(Wide(programmaticId).c_str(), &classId), std::string(programmaticId));
  return Create(classId);
}

std::optional<DISPID> Dispatch::Member(std::string_view name) const {
  std::wstring wide = Wide(name);
  LPOLESTR names = wide.data();
  DISPID member = DISPID_UNKNOWN;
  const HRESULT result = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
  if (result == DISP_E_UNKNOWNNAME) return std::nullopt;
  Require(result, std::string(name));
  return member;
}

DISPID Dispatch::RequiredMember(std::string_view name) const {
  const auto member = Member(name);
  if (!member) Require(DISP_E_UNKNOWNNAME, std::string(name));
  return *member;
}

Variant Dispatch::Invoke(DISPID member, WORD flags, std::vector<Variant>& arguments) const {
  // The last argument stands first.
  std::vector<VARIANT> reversed;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
    reversed.push_back(argument->Raw());
  DISPID put = DISPID_PROPERTYPUT;
  const bool putting = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{.rgvarg = reversed.data(),
                        .rgdispidNamedArgs = putting ? &put : nullptr,
                        .cArgs = static_cast<UINT>(reversed.size()),
                        .cNamedArgs = putting ? 1U : 0U};
  Variant result;
  Complaint complaint;
  const HRESULT outcome = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                          putting ? nullptr : &result.Raw(), &complaint.info, nullptr);
  if (outcome == DISP_E_EXCEPTION) {
    const std::string text = complaint.Text();
    const HRESULT code = complaint.info.scode != 0 ? complaint.info.scode : outcome;
    throw ComError(code, "Element " + std::to_string(member) + ": " +
                             (text.empty() ? SystemErrorText(static_cast<unsigned long>(code)) : text));
  }
  Require(outcome, "Element " + std::to_string(member));
  return result;
}

Variant Dispatch::Call(DISPID member, std::vector<Variant> arguments) const {
  return Invoke(member, DISPATCH_METHOD, arguments);
}
Variant Dispatch::Property(DISPID member, std::vector<Variant> arguments) const {
  return Invoke(member, DISPATCH_PROPERTYGET, arguments);
}
void Dispatch::SetProperty(DISPID member, Variant value) const {
  std::vector<Variant> arguments;
  arguments.push_back(std::move(value));
  Invoke(member, DISPATCH_PROPERTYPUT, arguments);
}

Variant Dispatch::Call(std::string_view name, std::vector<Variant> arguments) const {
  return Call(RequiredMember(name), std::move(arguments));
}
Variant Dispatch::Property(std::string_view name, std::vector<Variant> arguments) const {
  return Property(RequiredMember(name), std::move(arguments));
}
void Dispatch::SetProperty(std::string_view name, Variant value) const {
  SetProperty(RequiredMember(name), std::move(value));
}
void Dispatch::SetObject(std::string_view name, const Dispatch& object) const {
  std::vector<Variant> arguments;
  arguments.emplace_back(object.Get());
  Invoke(RequiredMember(name), DISPATCH_PROPERTYPUTREF, arguments);
}

std::int32_t NumberAt(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return 0;
  Variant value;
  VariantCopyInd(&value.Raw(), &arguments.rgvarg[arguments.cArgs - 1 - index]);
  return value.Number();
}

EventConnection::EventConnection(IUnknown* source, const IID& events, Handler handler) {
  ComPtr<IConnectionPointContainer> container;
  Require(source->QueryInterface(IID_IConnectionPointContainer,
                                 reinterpret_cast<void**>(container.GetAddressOf())),
          "IConnectionPointContainer");
  Require(container->FindConnectionPoint(events, point_.GetAddressOf()), "FindConnectionPoint");
  const ComPtr<IDispatch> sink(new EventSink(events, std::move(handler)));
  Require(point_->Advise(sink.Get(), &cookie_), "Advise");
}

EventConnection::EventConnection(EventConnection&& other) noexcept
    : point_(std::move(other.point_)), cookie_(std::exchange(other.cookie_, 0)) {}

EventConnection& EventConnection::operator=(EventConnection&& other) noexcept {
  Disconnect();
  point_ = std::move(other.point_);
  cookie_ = std::exchange(other.cookie_, 0);
  return *this;
}

void EventConnection::Disconnect() {
  if (point_ != nullptr && cookie_ != 0) point_->Unadvise(cookie_);
  cookie_ = 0;
  point_.Reset();
}

}  // namespace lorelin
