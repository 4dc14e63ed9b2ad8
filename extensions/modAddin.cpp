#include "extensions/modAddin.h"

#include <exception>
#include <memory>

#include "base/text.h"
#include "extensions/registrations.h"

namespace lorelin {
namespace {

bool IsActiveFilter(std::string_view active) {
  return LowerAscii(WithoutBlanks(active)).starts_with("true");
}

}  // namespace

ModAddin::ModAddin(Registry& registry, FileWriter& files, Automation& automation, Log& log)
    : registry_(registry, files), automation_(automation), log_(log) {}

namespace {

struct Calling {
  explicit Calling(int& counter) : count(counter) { ++count; }
  ~Calling() { --count; }
  Calling(const Calling&) = delete;
  Calling& operator=(const Calling&) = delete;
  int& count;
};

}  // namespace

void ModAddin::Walk(const std::function<bool(const Registration&)>& visit) {
  const Calling calling(calling_);
  std::vector<std::string> names;
  std::size_t count = 0;
  if (!registry_.EnumKeys(kExtensionRoot, names, count)) return;
  for (const std::string& name : names) {
    const std::string key = std::string(kExtensionRoot) + "\\" + name;
    if (!visit({.active = registry_.ReadString(key, "Active"), .key = key})) return;
  }
}

std::unique_ptr<AutomationObject> ModAddin::Create(const Registration& registration) {
  return automation_.CreateObject(registry_.ReadString(registration.key, "ObjectName"));
}

void ModAddin::LogFailure(std::string_view hook, const Registration& registration, std::string_view what) {
  log_.Write("Erweiterung " + registration.key + ", " + std::string(hook) + ": " + std::string(what));
}

void ModAddin::CallActive(std::string_view method, std::optional<std::string_view> argument) {
  std::unique_ptr<AutomationObject> object;  // the one reference of this hook
  Walk([&](const Registration& registration) {
    if (registration.active != "true") return true;
    try {
      object = Create(registration);
      object->Invoke(method, argument);
      return true;
    } catch (const std::exception& error) {
      LogFailure(method, registration, error.what());
      return false;
    }
  });
}

void ModAddin::Startup() {
  CallActive("Startup", std::nullopt);
}
void ModAddin::Close() {
  CallActive("Close", std::nullopt);
}
void ModAddin::NewFile() {
  CallActive("NewFile", std::nullopt);
}
void ModAddin::OpenFile(const std::string& path) {
  CallActive("Startup", path);
}
void ModAddin::SaveFile(const std::string& path) {
  CallActive("SaveFile", path);
}
void ModAddin::TaskScript(const std::string& scriptFile) {
  CallActive("TaskScript", scriptFile);
}

// An object that cannot be created leaves the reference of the registration before it in place, and that one
// is called again.
void ModAddin::Export(const std::string& path) {
  std::unique_ptr<AutomationObject> object;
  Walk([&](const Registration& registration) {
    if (registration.active.find("true") == std::string::npos) return true;
    try {
      object = Create(registration);
    } catch (const std::exception& error) {
      LogFailure("Export", registration, error.what());
    }
    try {
      if (object) object->Invoke("Export", path);
    } catch (const std::exception& error) {
      LogFailure("Export", registration, error.what());
    }
    return true;
  });
}

std::string ModAddin::FilterText(const std::string& text) {
  std::string filtered = text;
  std::unique_ptr<AutomationObject> object;
  Walk([&](const Registration& registration) {
    if (!IsActiveFilter(registration.active)) return true;
    try {
      object = Create(registration);
      filtered = object->Invoke("FilterText", filtered);
      return true;
    } catch (const std::exception& error) {
      LogFailure("FilterText", registration, error.what());
      return false;
    }
  });
  return filtered;
}

}  // namespace lorelin
