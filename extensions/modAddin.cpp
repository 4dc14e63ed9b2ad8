#include "extensions/modAddin.h"

#include <exception>
#include <memory>
#include <utility>

#include "base/RuntimeError.h"
#include "extensions/registrations.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// Nobody waits long for a window to open or to close; otherwise as long as the calls themselves wait.
constexpr milliseconds kStartAndClose{2000};
constexpr milliseconds kWork{9900};
// For one that was late last time, until it answers again. What it makes of a text is worth waiting for.
constexpr milliseconds kHanging{200};
constexpr milliseconds kUnnoticed{300};  // a shorter wait is not worth a word

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
    if (!visit({.active = registry_.ReadString(key, "Active"), .name = name, .key = key})) return;
  }
}

std::unique_ptr<AutomationObject> ModAddin::Create(const Registration& registration) {
  return automation_.CreateObject(registry_.ReadString(registration.key, "ObjectName"));
}

void ModAddin::LogFailure(std::string_view hook, const Registration& registration, std::string_view what) {
  log_.Write("Erweiterung " + registration.key + ", " + std::string(hook) + ": " + std::string(what));
}

void ModAddin::WhileWaiting(Waiting waiting) {
  waiting_.emplace(std::move(waiting));
  automation_.WhileWaiting([this] { return MayGoOn(); });
}

void ModAddin::BeginCall(const Registration& registration, milliseconds limit) {
  called_ = registration.name;
  limit_ = limit;
  told_ = givenUp_ = late_ = false;
  if (waiting_) began_ = waiting_->clock.Steady();
}

bool ModAddin::MayGoOn() {
  const auto elapsed = waiting_->clock.Steady() - began_;
  if (elapsed >= kUnnoticed && !std::exchange(told_, true)) {
    waiting_->tell("Wartet auf die Erweiterung „" + called_ + "“ … (Esc bricht ab)");
  }
  if (elapsed >= limit_) late_ = true;
  if (waiting_->turn && !waiting_->turn()) givenUp_ = true;
  return !late_ && !givenUp_;
}

void ModAddin::EndCall() {
  if (!told_) return;
  waiting_->tell(late_ ? "Die Erweiterung „" + called_ + "“ antwortet nicht." : "");
}

void ModAddin::CallActive(std::string_view method, std::optional<std::string_view> argument,
                          milliseconds limit) {
  std::unique_ptr<AutomationObject> object;  // the one reference of this hook
  Walk([&](const Registration& registration) {
    if (!IsActive(registration.active)) return true;
    BeginCall(registration, hangs_.contains(registration.key) ? kHanging : limit);
    bool done = false;
    try {
      object = Create(registration);
      object->Invoke(method, argument);
      hangs_.erase(registration.key);
      done = true;
    } catch (const std::exception& error) {
      LogFailure(method, registration, error.what());
      if (late_) hangs_.insert(registration.key);
    }
    EndCall();
    return done;
  });
}

void ModAddin::Startup() {
  CallActive("Startup", std::nullopt, kStartAndClose);
}
void ModAddin::Close() {
  CallActive("Close", std::nullopt, kStartAndClose);
}
void ModAddin::NewFile() {
  CallActive("NewFile", std::nullopt, kWork);
}
void ModAddin::OpenFile(const std::string& path) {
  CallActive("Startup", path, kWork);
}
void ModAddin::SaveFile(const std::string& path) {
  CallActive("SaveFile", path, kWork);
}
void ModAddin::TaskScript(const std::string& scriptFile) {
  CallActive("TaskScript", scriptFile, kWork);
}

// An object that cannot be created leaves the reference of the registration before it in place, and that one
// is called again.
void ModAddin::Export(const std::string& path) {
  std::unique_ptr<AutomationObject> object;
  Walk([&](const Registration& registration) {
    if (!IsActiveForExport(registration.active)) return true;
    BeginCall(registration, kWork);
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
    EndCall();
    return true;
  });
}

std::optional<std::string> ModAddin::FilterText(const std::string& text) {
  std::string filtered = text;
  std::unique_ptr<AutomationObject> object;
  givenUp_ = false;
  Walk([&](const Registration& registration) {
    if (!IsActiveForFilter(registration.active)) return true;
    BeginCall(registration, kWork);
    bool done = false;
    try {
      object = Create(registration);
      auto answer = object->Invoke("FilterText", filtered);
      if (!answer) throw RuntimeError(ErrorNumber::AutomationFailed, "Die Antwort ist kein Text.");
      filtered = std::move(*answer);
      done = true;
    } catch (const std::exception& error) {
      LogFailure("FilterText", registration, error.what());
    }
    EndCall();
    return done;
  });
  if (givenUp_) return std::nullopt;
  return filtered;
}

}  // namespace lorelin
