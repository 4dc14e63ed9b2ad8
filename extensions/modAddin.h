#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "ports/Automation.h"
#include "ports/Clock.h"
#include "ports/Log.h"
#include "ports/Registry.h"
#include "settings/clsRegistryAccess.h"

namespace lorelin {

// The extension host: calls the registered extensions at fixed points of the program's work. Registrations
// are the subkeys of HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Lorelin\Extensions with the
// string values `Active` and `ObjectName`. Objects are created anew for every hook and live no longer than
// it. No hook throws or shows anything; failures go to the log. User-interface thread.
class ModAddin {
 public:
  // Owns none of them; they must outlive the host.
  ModAddin(Registry& registry, FileWriter& files, Automation& automation, Log& log);

  // What goes on while an extension keeps the program waiting.
  struct Waiting {
    Clock& clock;
    std::function<void(const std::string&)> tell;  // which one it is, in German, for the status bar
    std::function<bool()> turn;                    // draws windows; false when the user has had enough
  };
  // Without it nobody is told, and only the time limit of the calls ends them.
  void WhileWaiting(Waiting waiting);

  // Whether an extension is being called: nothing else should begin meanwhile.
  [[nodiscard]] bool IsCalling() const { return calling_ > 0; }

  void Startup();
  void Close();
  void NewFile();
  // Calls the extensions' `Startup` with the path: they tell it from start-up by the argument.
  void OpenFile(const std::string& path);
  void SaveFile(const std::string& path);
  void Export(const std::string& path);
  void TaskScript(const std::string& scriptFile);
  // The text after every active filter, each given the result of the one before; on a failure, an answer that
  // is no text included, the text so far. Nothing when the user did not want to wait any longer.
  [[nodiscard]] std::optional<std::string> FilterText(const std::string& text);

 private:
  struct Registration {
    std::string active;
    std::string name;
    std::string key;
  };

  // Calls `visit` for every registration until it returns false.
  void Walk(const std::function<bool(const Registration&)>& visit);
  [[nodiscard]] std::unique_ptr<AutomationObject> Create(const Registration& registration);
  // The common hook: exactly "true" is active, the first failure ends it.
  void CallActive(std::string_view method, std::optional<std::string_view> argument,
                  std::chrono::milliseconds limit);
  [[nodiscard]] bool MayGoOn();
  // The call that follows may take so long, the making of its object included.
  void BeginCall(const Registration& registration, std::chrono::milliseconds limit);
  void EndCall();
  void LogFailure(std::string_view hook, const Registration& registration, std::string_view what);

  int calling_ = 0;
  std::optional<Waiting> waiting_;
  std::string called_;  // the name of the extension that is being called
  std::chrono::steady_clock::time_point began_;
  std::chrono::milliseconds limit_{};
  bool told_ = false;
  bool givenUp_ = false;         // by the user
  bool late_ = false;            // given up because of the time
  std::set<std::string> hangs_;  // keys of those that were late last time
  ClsRegistryAccess registry_;
  Automation& automation_;
  Log& log_;
};

}  // namespace lorelin
