#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <map>
#include <vector>

#include "platform/windows/servedObject.h"

namespace lorelin {

// An automation object that raises events through a connection point.
class EventSource : public ServedObject, public IConnectionPointContainer, public IConnectionPoint {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return ServedObject::QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ServedObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ServedObject::Release(); }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    *point = nullptr;
    if (id != events_) return CONNECT_E_NOCONNECTION;
    *point = this;
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override {
    *id = events_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    ComPtr<IDispatch> listener;
    if (FAILED(sink->QueryInterface(events_, reinterpret_cast<void**>(listener.GetAddressOf())))) {
      return CONNECT_E_CANNOTCONNECT;
    }
    *cookie = ++lastCookie_;
    listeners_[*cookie] = listener;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    return listeners_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 protected:
  EventSource(std::vector<Member> members, const IID& events)
      : ServedObject(std::move(members)), events_(events) {}

  void* Interface(REFIID id) override {
    return id == IID_IConnectionPointContainer ? static_cast<IConnectionPointContainer*>(this) : nullptr;
  }
  void Raise(DISPID event, std::vector<Variant> arguments) {
    const auto listeners = listeners_;  // one may leave meanwhile
    for (const auto& [cookie, listener] : listeners) {
      std::vector<VARIANT> reversed;
      for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        reversed.push_back(argument->Raw());
      }
      DISPPARAMS parameters{.rgvarg = reversed.data(),
                            .rgdispidNamedArgs = nullptr,
                            .cArgs = static_cast<UINT>(reversed.size()),
                            .cNamedArgs = 0};
      listener->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                       nullptr);
    }
  }

 private:
  const IID events_;
  std::map<DWORD, ComPtr<IDispatch>> listeners_;
  DWORD lastCookie_ = 0;
};

}  // namespace lorelin
