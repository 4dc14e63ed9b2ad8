#pragma once

#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/windows/dispatch.h"

namespace lorelin {

// An automation object that a program of ours offers to others: late-bound, by the names or numbers of its
// members. It belongs to those who hold references to it.
class ServedObject : public Counted<IDispatch> {
 public:
  struct Member {
    std::string name;
    DISPID id = DISPID_UNKNOWN;
  };

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID language,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID language, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrongArgument) override;

  // Objects of this process that somebody holds.
  [[nodiscard]] static long LiveObjects();

 protected:
  explicit ServedObject(std::vector<Member> members);
  ~ServedObject() override;

  // `flags` tells whether it is called, read or set (DISPATCH_*). Throws ComError with DISP_E_MEMBERNOTFOUND
  // for what it does not know.
  virtual Variant Perform(DISPID member, WORD flags, std::vector<Variant> arguments) = 0;
  // Interfaces beyond IDispatch, without a reference added; null for none.
  virtual void* Interface(REFIID) { return nullptr; }

 private:
  std::vector<Member> members_;
};

// Makes the objects of one class.
class ServedClass final : public Counted<IClassFactory> {
 public:
  explicit ServedClass(std::function<ServedObject*()> make) : make_(std::move(make)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  std::function<ServedObject*()> make_;
};

}  // namespace lorelin
