#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// An object of another program, called by method name. Destroying it releases it.
class AutomationObject {
 public:
  virtual ~AutomationObject() = default;
  // Invokes the method, with one text by reference when `argument` is given. Returns the result when it is a
  // text; a method without one, or with one of another kind, answers nothing. Throws RuntimeError: 438 when
  // the object has no such method, 440 when the call failed, was not answered in 10 s or was given up.
  virtual std::optional<std::string> Invoke(std::string_view method,
                                            std::optional<std::string_view> argument) = 0;
};

// Port: creates objects from their programmatic identifier. User-interface thread only.
class Automation {
 public:
  virtual ~Automation() = default;
  // Throws RuntimeError 429 when the identifier names no class that can be created, or when it takes too
  // long.
  [[nodiscard]] virtual std::unique_ptr<AutomationObject> CreateObject(std::string_view identifier) = 0;
  // Called every now and then while an answer is awaited, to draw windows; it must not let input in, since
  // the caller goes on as if nothing had happened meanwhile. When it answers false the call is given up.
  virtual void WhileWaiting(const std::function<bool()>&) {}
};

}  // namespace lorelin
