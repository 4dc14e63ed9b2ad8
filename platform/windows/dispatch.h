#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <wrl/client.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

using Microsoft::WRL::ComPtr;

// Counts the references to an object of ours, which goes with the last one.
template <typename Interface>
class Counted : public Interface {
 public:
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 protected:
  Counted() = default;
  virtual ~Counted() = default;

 private:
  std::atomic<ULONG> references_{0};
};

// A call of an automation object that failed. what() is for the log.
class ComError : public std::runtime_error {
 public:
  ComError(HRESULT code, const std::string& what) : std::runtime_error(what), code_(code) {}
  [[nodiscard]] HRESULT Code() const { return code_; }

 private:
  HRESULT code_;
};

// A VARIANT that clears itself.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  explicit Variant(std::int32_t number);
  explicit Variant(bool truth);
  explicit Variant(std::string_view text);
  explicit Variant(IDispatch* object);
  ~Variant() { VariantClear(&value_); }
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant&&) = delete;
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  // Converted as automation does; 0, "", false and null for what cannot be.
  [[nodiscard]] std::int32_t Number() const;
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] bool Truth() const;
  [[nodiscard]] ComPtr<IDispatch> Object() const;

  [[nodiscard]] VARIANT& Raw() { return value_; }
  [[nodiscard]] const VARIANT& Raw() const { return value_; }

 private:
  VARIANT value_;
};

// A late-bound automation object (IDispatch; [MS-OAUT]). Thread: of the object's apartment. Failures throw
// ComError.
class Dispatch {
 public:
  Dispatch() = default;
  explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  // Creates an object of the class in this process or in a server's.
  [[nodiscard]] static Dispatch Create(const CLSID& classId);
  [[nodiscard]] static Dispatch Create(std::string_view programmaticId);

  explicit operator bool() const { return object_ != nullptr; }
  [[nodiscard]] IDispatch* Get() const { return object_.Get(); }

  // The number of a member; absent when the object has none of this name.
  [[nodiscard]] std::optional<DISPID> Member(std::string_view name) const;

  Variant Call(DISPID member, std::vector<Variant> arguments = {}) const;
  [[nodiscard]] Variant Property(DISPID member, std::vector<Variant> arguments = {}) const;
  void SetProperty(DISPID member, Variant value) const;

  // The same by name; a member that is missing throws DISP_E_UNKNOWNNAME.
  Variant Call(std::string_view name, std::vector<Variant> arguments = {}) const;
  [[nodiscard]] Variant Property(std::string_view name, std::vector<Variant> arguments = {}) const;
  void SetProperty(std::string_view name, Variant value) const;
  void SetObject(std::string_view name, const Dispatch& object) const;

 private:
  Variant Invoke(DISPID member, WORD flags, std::vector<Variant>& arguments) const;
  [[nodiscard]] DISPID RequiredMember(std::string_view name) const;

  ComPtr<IDispatch> object_;
};

// Makes the list of arguments, which cannot be copied.
template <typename... Values>
[[nodiscard]] std::vector<Variant> Arguments(Values... values) {
  std::vector<Variant> list;
  list.reserve(sizeof...(values));
  (list.emplace_back(values), ...);
  return list;
}

// The argument of an event with this index, from 0; 0 where there is none.
[[nodiscard]] std::int32_t NumberAt(const DISPPARAMS& arguments, UINT index);

// A connection to an object's events ([MS-OAUT], connection points); it ends with this.
class EventConnection {
 public:
  using Handler = std::function<void(DISPID event, const DISPPARAMS& arguments)>;

  EventConnection() = default;
  // Throws ComError when the object does not raise these events.
  EventConnection(IUnknown* source, const IID& events, Handler handler);
  ~EventConnection() { Disconnect(); }
  EventConnection(EventConnection&& other) noexcept;
  EventConnection& operator=(EventConnection&& other) noexcept;
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;

  void Disconnect();

 private:
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace lorelin
