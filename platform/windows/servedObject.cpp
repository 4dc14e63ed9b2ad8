#include "platform/windows/servedObject.h"

#include <algorithm>
#include <atomic>

#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

std::atomic<long> liveObjects{0};

std::vector<Variant> ArgumentsOf(const DISPPARAMS& parameters) {
  std::vector<Variant> arguments(parameters.cArgs);
  for (UINT i = 0; i < parameters.cArgs; ++i) {
    // The last one stands first; references are followed.
    VariantCopyInd(&arguments[parameters.cArgs - 1 - i].Raw(), &parameters.rgvarg[i]);
  }
  return arguments;
}

void Complain(EXCEPINFO* exception, const ComError& error) {
  if (exception == nullptr) return;
  *exception = {};
  exception->scode = error.Code();
  exception->bstrDescription = SysAllocString(Wide(error.what()).c_str());
}

}  // namespace

long ServedObject::LiveObjects() {
  return liveObjects;
}

ServedObject::ServedObject(std::vector<Member> members) : members_(std::move(members)) {
  ++liveObjects;
}
ServedObject::~ServedObject() {
  --liveObjects;
}

HRESULT ServedObject::QueryInterface(REFIID id, void** object) {
  *object = id == IID_IUnknown || id == IID_IDispatch ? static_cast<IDispatch*>(this) : Interface(id);
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}
HRESULT ServedObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}
HRESULT ServedObject::GetTypeInfo(UINT, LCID, ITypeInfo**) {
  return E_NOTIMPL;
}

// Names count without case, as automation has it.
HRESULT ServedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (count != 1) return DISP_E_UNKNOWNNAME;
  const auto member = std::find_if(members_.begin(), members_.end(), [&](const Member& candidate) {
    return _wcsicmp(Wide(candidate.name).c_str(), names[0]) == 0;
  });
  ids[0] = member != members_.end() ? member->id : DISPID_UNKNOWN;
  return member != members_.end() ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ServedObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT*) {
  try {
    Variant value = Perform(member, flags, ArgumentsOf(*parameters));
    if (result != nullptr) VariantCopy(result, &value.Raw());
    return S_OK;
  } catch (const ComError& error) {
    if (error.Code() == DISP_E_MEMBERNOTFOUND) return DISP_E_MEMBERNOTFOUND;
    Complain(exception, error);
    return DISP_E_EXCEPTION;
  }
}

HRESULT ServedClass::QueryInterface(REFIID id, void** object) {
  *object = id == IID_IUnknown || id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}
HRESULT ServedClass::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  const ComPtr<IDispatch> made(make_());
  return made->QueryInterface(id, object);
}

}  // namespace lorelin
