#pragma once

#include <gio/gio.h>

#include <functional>

#include "ports/Automation.h"
#include "ports/Log.h"

namespace lorelin {

// Objects of other programs on the session bus (D-Bus Specification 0.41). The identifier is the well-known
// bus name, which may be activatable; the object's path is the name with slashes for dots, the interface is
// the name itself. The argument goes out as one string, the first string of the answer is the result.
class DBusAutomation final : public Automation {
 public:
  // Does not own the log.
  explicit DBusAutomation(Log& log) : log_(log) {}
  ~DBusAutomation() override;
  DBusAutomation(const DBusAutomation&) = delete;
  DBusAutomation& operator=(const DBusAutomation&) = delete;

  [[nodiscard]] std::unique_ptr<AutomationObject> CreateObject(std::string_view identifier) override;
  void WhileWaiting(const std::function<bool()>& turn) override { turn_ = turn; }

 private:
  // Throws RuntimeError 429 when there is no bus.
  [[nodiscard]] GDBusConnection* Connection();

  Log& log_;
  GDBusConnection* connection_ = nullptr;
  std::function<bool()> turn_;
};

}  // namespace lorelin
