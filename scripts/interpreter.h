#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "ports/Clipboard.h"
#include "ports/Clock.h"
#include "ports/DocumentEditor.h"
#include "ports/Downloader.h"
#include "ports/EventPump.h"
#include "ports/FileSearch.h"
#include "ports/Log.h"
#include "ports/MessageBoxes.h"
#include "ports/ProgramLauncher.h"
#include "ports/StatusBar.h"
#include "settings/SettingsStore.h"
#include "speech/modSpeak.h"

namespace lorelin {

// How the last run ended.
enum class ScriptEnd {
  LastLine,    // every line was walked
  Itself,      // Stopp or a condition that did not hold
  Cancelled,   // from outside: Escape, closing
  AfterError,  // a command failed and the user did not want to go on
  Forbidden,   // scripts may not run
};

// Runs task scripts, one line after the other, on the user-interface thread. Waiting commands let events in,
// so that a script can be cancelled, and another one can begin inside a wait whose script was cancelled.
class Interpreter {
 public:
  // What it works with; it owns none of it.
  struct Parts {
    ModSpeak& speech;
    DocumentEditor& document;
    StatusBar& statusBar;
    MessageBoxes& messageBoxes;
    Clipboard& clipboard;
    EventPump& pump;
    Clock& clock;
    FileSearch& fileSearch;
    ProgramLauncher& launcher;
    Downloader& downloader;
    SettingsStore& settings;
    Log& runLog;  // what was carried out, and how runs ended
    std::string scriptFolder;
    // The file name (with ".vts") behind the item with this number.
    std::function<std::string(std::int32_t)> fileOfItem;
    std::string homeFolder{};     // what "~" stands for at the front of a path; "" for itself
    std::string stopKey = "ESC";  // the key that ends a script, as the user is told
    bool mayExport = true;        // scripts may write WAV files
    // Shows a file in the document, whatever its format; empty for the document's own way.
    std::function<void(const std::string& path)> loadFile{};
  };

  explicit Interpreter(Parts parts) : parts_(std::move(parts)) {}
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  // The file in the script folder that the next run reads.
  void SetCurrentScriptFile(std::string name) { currentScriptFile_ = std::move(name); }

  // Runs the current script file to its end. Throws RuntimeError when it cannot be read.
  void ExecuteSkript(std::int32_t item);

  // Expands the variables in both parameters (in place) and carries the command out. Unknown and forbidden
  // commands do nothing; a failing one asks whether to go on. Throws no RuntimeError.
  void ExecuteCommand(const std::string& command, std::string& parameter1, std::string& parameter2,
                      std::int32_t item);

  [[nodiscard]] bool ScriptRunning() const { return scriptRunning_; }
  // Ends the running script before its next command.
  void Cancel();

  [[nodiscard]] ScriptEnd LastEnd() const { return end_; }
  // Commands of the last run that failed.
  [[nodiscard]] int LastErrors() const { return errors_; }

 private:
  using Action = void (Interpreter::*)(const std::string&, const std::string&);
  struct Entry {
    std::string_view name;
    Action action;
    const SettingKey* permission = nullptr;  // that the command needs
  };

  class Variables;

  [[nodiscard]] static const Entry* EntryOf(std::string_view command);
  [[nodiscard]] bool ScriptsAreAllowed();
  [[nodiscard]] bool IsAllowed(const Entry& command) const;
  [[nodiscard]] std::string FromHome(const std::string& path) const;
  void RunOnce(std::int32_t item);
  void EndExport(int failedBefore);
  void RunAgain(std::int32_t item);
  void WalkLines(std::string_view script);
  void Carry(const std::string& command, std::string& parameter1, std::string& parameter2);
  [[nodiscard]] bool IsCancelledBy(const RuntimeError& error);
  void AskWhetherToGoOn(const std::string& description);
  void LetEventsInNowAndThen();
  void EndBy(ScriptEnd end);
  void Note(std::string_view what);

  void Meldung(const std::string& text, const std::string&);
  void Sprechen(const std::string&, const std::string&);
  void Sprechen2(const std::string& text, const std::string&);
  void Pause(const std::string&, const std::string&);
  void Stopp(const std::string&, const std::string&);
  void Geschwindigkeit(const std::string& percent, const std::string&);
  void Lautstaerke(const std::string& percent, const std::string&);
  void Helligkeit(const std::string& percent, const std::string&);
  void Exportieren(const std::string& path, const std::string&);
  void Laden(const std::string& path, const std::string&);
  void Text(const std::string& text, const std::string&);
  void Dokument(const std::string& text, const std::string& mode);
  void Wiederholen(const std::string&, const std::string&);
  void Wenn(const std::string& left, const std::string& right);
  void WennNicht(const std::string& left, const std::string& right);
  void WartenBis(const std::string& time, const std::string&);
  void Warten(const std::string& seconds, const std::string&);
  void Ersetzen(const std::string& from, const std::string& to);
  void Ausfuehren(const std::string& commandLine, const std::string&);
  void Download(const std::string& url, const std::string& target);
  void Loeschen(const std::string& pattern, const std::string&);

  Parts parts_;
  std::string currentScriptFile_;
  bool scriptRunning_ = false;
  bool restartWanted_ = false;
  std::string waitingUntil_;  // the time that WartenBis waits for; "" when it does not
  std::int32_t scriptItemId_ = 0;
  std::chrono::steady_clock::time_point lastEvents_{};
  ScriptEnd end_ = ScriptEnd::LastLine;
  int errors_ = 0;
};

// The program and its arguments in a command line as a user writes it: blanks part them, double quotes hold
// together and are dropped.
[[nodiscard]] std::vector<std::string> SplitCommandLine(std::string_view commandLine);

// Deletes the files that the pattern names: wildcards in its last component only, never folders, links as
// links; nothing through a folder that is a link, and hidden files only when the pattern begins like them.
// Throws RuntimeError 53 when nothing matches, 70 or 75 when a file cannot be deleted.
void DeleteFiles(const std::string& pattern, FileSearch& fileSearch);

}  // namespace lorelin
