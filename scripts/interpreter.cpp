#include "scripts/interpreter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>
#include <utility>

#include "base/RuntimeError.h"
#include "base/conversion.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "scripts/scriptLanguage.h"

namespace lorelin {
namespace {

// Between commands that do not wait, events are let in this often: Escape acts soon and long loops lose
// little.
constexpr std::chrono::milliseconds kEventInterval{50};

std::string ClockText(const LocalTime& time) {
  const std::string second = std::to_string(time.second);
  return FormatTimeOfDay(time) + (second.size() < 2 ? ":0" : ":") + second;
}

// Seconds of the wall clock, leaps of its zone included, as whoever reads the clock counts them.
std::chrono::sys_seconds WallSeconds(const LocalTime& time) {
  namespace chrono = std::chrono;
  return chrono::sys_days(chrono::year(time.year) / time.month / time.day) + chrono::hours(time.hour) +
         chrono::minutes(time.minute) + chrono::seconds(time.second);
}

// What a script reads or writes can be anybody's secret: a log tells how much it was.
std::string LengthOf(const std::string& text) {
  return std::to_string(CharacterCount(text)) + " Zeichen";
}

// The command as the log has it.
std::string Described(const std::string& command, const std::string& parameter1,
                      const std::string& parameter2) {
  std::string lengths;
  if (!parameter1.empty() || !parameter2.empty()) lengths = LengthOf(parameter1);
  if (!parameter2.empty()) lengths += ", " + LengthOf(parameter2);
  return command + "(" + lengths + ")";
}

std::string_view EndText(ScriptEnd end) {
  switch (end) {
    case ScriptEnd::LastLine:
      return "zu Ende";
    case ScriptEnd::Itself:
      return "durch das Skript beendet";
    case ScriptEnd::Cancelled:
      return "abgebrochen";
    case ScriptEnd::AfterError:
      return "nach einem Fehler abgebrochen";
    case ScriptEnd::Forbidden:
      return "nicht erlaubt";
  }
  return "";
}

// The flag must not survive a run that an exception ends.
class Running {
 public:
  explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
  ~Running() { flag_ = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& flag_;
};

}  // namespace

// The values as the running program has them.
class Interpreter::Variables final : public ScriptVariables {
 public:
  explicit Variables(Parts& parts) : parts_(parts) {}
  std::string Clipboard() override { return parts_.clipboard.Text(); }
  std::string TimeOfDay() override { return FormatTimeOfDay(parts_.clock.Now()); }
  std::string Date() override { return FormatDate(parts_.clock.Now()); }
  std::string WindowsFolder() override {
    const char* const folder = std::getenv("windir");
    return folder != nullptr ? folder : "";
  }
  std::string Selection() override { return parts_.document.SelectedText(); }
  std::string DocumentText() override { return parts_.document.Text(); }

 private:
  Parts& parts_;
};

const Interpreter::Entry* Interpreter::EntryOf(std::string_view command) {
  static constexpr std::array kEntries{
      Entry{"Meldung", &Interpreter::Meldung},
      Entry{"Sprechen", &Interpreter::Sprechen},
      Entry{"Sprechen2", &Interpreter::Sprechen2},
      Entry{"Pause", &Interpreter::Pause},
      Entry{"Stopp", &Interpreter::Stopp},
      Entry{"Geschwindigkeit", &Interpreter::Geschwindigkeit},
      Entry{"Lautstärke", &Interpreter::Lautstaerke},
      Entry{"Helligkeit", &Interpreter::Helligkeit},
      Entry{"Exportieren", &Interpreter::Exportieren},
      Entry{"Laden", &Interpreter::Laden, &setting::VTSAllowRead},
      Entry{"Text", &Interpreter::Text},
      Entry{"Dokument", &Interpreter::Dokument},
      Entry{"Wiederholen", &Interpreter::Wiederholen},
      Entry{"Wenn", &Interpreter::Wenn},
      Entry{"Wenn_nicht", &Interpreter::WennNicht},
      Entry{"WartenBis", &Interpreter::WartenBis},
      Entry{"Warten", &Interpreter::Warten},
      Entry{"Ersetzen", &Interpreter::Ersetzen},
      Entry{"Ausführen", &Interpreter::Ausfuehren, &setting::VTSAllowRead},
      Entry{"Download", &Interpreter::Download, &setting::VTSAllowDownload},
      Entry{"Löschen", &Interpreter::Loeschen, &setting::VTSAllowRead},
  };
  const auto* const found =
      std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& e) { return e.name == command; });
  return found != kEntries.end() ? found : nullptr;
}

bool Interpreter::ScriptsAreAllowed() {
  if (parts_.settings.Get(setting::VTSAllow) != "0") return true;
  const std::string reason = parts_.settings.WhyForbidden();
  parts_.messageBoxes.Show(
      "Sie haben das Ausführen von Voice Taskscripts in den Einstellungen unterbunden. Die Ausführung wurde "
      "abgebrochen." +
          (reason.empty() ? "" : "\n\n" + reason),
      "Warnung", MessageIcon::Exclamation, MessageButtons::Ok);
  end_ = ScriptEnd::Forbidden;
  return false;
}

bool Interpreter::IsAllowed(const Entry& command) const {
  if (command.action == &Interpreter::Exportieren) return parts_.mayExport;
  return command.permission == nullptr || IsOn(*command.permission, parts_.settings.Get(*command.permission));
}

// A repetition is a run in the place of the one before: permission, file and values are read anew, and the
// stack stays as deep as it was.
void Interpreter::ExecuteSkript(std::int32_t item) {
  if (!ScriptsAreAllowed()) return;
  errors_ = 0;
  const int failedFiles = parts_.speech.FailedFiles();
  RunOnce(item);
  while (std::exchange(restartWanted_, false)) RunAgain(item);
  EndExport(failedFiles);
  Note(EndText(end_));
  parts_.statusBar.SetMessage("Ausführung des Taskscripts beendet.");
}

// The file that Exportieren named is for the speech of this script only.
void Interpreter::EndExport(int failedBefore) {
  parts_.speech.EndNamedWaveFile();
  parts_.speech.Status().ScriptRuns("");
  const int failed = parts_.speech.FailedFiles() - failedBefore;
  if (failed > 0)
    parts_.runLog.Write(currentScriptFile_ + ": Exportieren misslang " + std::to_string(failed) + "-mal");
}

void Interpreter::RunAgain(std::int32_t item) {
  if (!ScriptsAreAllowed()) return;
  try {
    RunOnce(item);
  } catch (const RuntimeError& error) {
    AskWhetherToGoOn(error.what());
  }
}

void Interpreter::RunOnce(std::int32_t item) {
  scriptItemId_ = item;
  const std::string script = DecodeText(ReadFileBytes(JoinPath(parts_.scriptFolder, {currentScriptFile_})));
  parts_.statusBar.SetMessage("Drücken Sie " + parts_.stopKey + " um die Ausführung von '" +
                              parts_.fileOfItem(item) + "' zu beenden.");
  parts_.speech.Status().ScriptRuns(parts_.fileOfItem(item));
  end_ = ScriptEnd::LastLine;
  const Running running(scriptRunning_);
  WalkLines(script);
}

void Interpreter::WalkLines(std::string_view script) {
  ForEachScriptLine(script, [this](std::string_view line) {
    if (scriptRunning_) LetEventsInNowAndThen();
    if (!scriptRunning_) return false;
    if (auto cut = CutLine(line)) {
      ExecuteCommand(cut->command, cut->parameter1, cut->parameter2, scriptItemId_);
    }
    return true;
  });
}

void Interpreter::LetEventsInNowAndThen() {
  const auto now = parts_.clock.Steady();
  if (now - lastEvents_ < kEventInterval) return;
  parts_.pump.RunPendingEvents();
  lastEvents_ = parts_.clock.Steady();
}

void Interpreter::Cancel() {
  if (!scriptRunning_) return;
  EndBy(ScriptEnd::Cancelled);
  parts_.speech.Status().ScriptRuns("");
  if (waitingUntil_.empty()) return;
  parts_.statusBar.SetMessage("Das Warten bis " + waitingUntil_ +
                              " ist abgebrochen. Das Taskscript führt nichts mehr aus.");
}

void Interpreter::EndBy(ScriptEnd end) {
  scriptRunning_ = false;
  end_ = end;
}

void Interpreter::ExecuteCommand(const std::string& command, std::string& parameter1, std::string& parameter2,
                                 std::int32_t item) {
  scriptItemId_ = item;
  try {
    Carry(command, parameter1, parameter2);
  } catch (const std::bad_alloc&) {
    AskWhetherToGoOn(ErrorText(ErrorNumber::OutOfMemory));
  } catch (const std::length_error&) {
    AskWhetherToGoOn(ErrorText(ErrorNumber::OutOfMemory));
  } catch (const RuntimeError& error) {
    if (!IsCancelledBy(error)) AskWhetherToGoOn(error.what());
  } catch (const std::exception& error) {
    AskWhetherToGoOn(error.what());
  }
}

// The key that made a command give up ends the script, and is still to be handled.
bool Interpreter::IsCancelledBy(const RuntimeError& error) {
  if (error.Number() != static_cast<int>(ErrorNumber::Cancelled) || !scriptRunning_) return false;
  parts_.pump.RunPendingEvents();
  return !scriptRunning_;
}

void Interpreter::Carry(const std::string& command, std::string& parameter1, std::string& parameter2) {
  const Entry* const entry = EntryOf(WithoutBlanks(command));
  Variables values(parts_);
  ExpandVariables(parameter1, values);
  ExpandVariables(parameter2, values);
  RestoreCommas(parameter1);
  RestoreCommas(parameter2);
  if (entry == nullptr) return;
  const std::string described = Described(command, parameter1, parameter2);
  if (!IsAllowed(*entry)) return Note(described + ": nicht erlaubt");
  Note(described);
  (this->*entry->action)(parameter1, parameter2);
}

void Interpreter::Note(std::string_view what) {
  parts_.runLog.Write(currentScriptFile_ + ": " + std::string(what));
}

void Interpreter::AskWhetherToGoOn(const std::string& description) {
  ++errors_;
  Note(description);
  const MessageAnswer answer =
      parts_.messageBoxes.Show("Folgender Fehler trat während der Ausführung des Taskscripts auf:\n\n" +
                                   description + "\n\nMöchten Sie mit der Ausführung fortfahren?",
                               "Fehler", MessageIcon::Critical, MessageButtons::YesNo);
  if (answer == MessageAnswer::No) EndBy(ScriptEnd::AfterError);
}

void Interpreter::Meldung(const std::string& text, const std::string&) {
  parts_.messageBoxes.Show(text, "Lorelin", MessageIcon::None, MessageButtons::Ok);
}

void Interpreter::Sprechen(const std::string&, const std::string&) {
  std::string text = parts_.document.Text();
  parts_.speech.Speak(text, true, "-1", true);
}

void Interpreter::Sprechen2(const std::string& text, const std::string&) {
  std::string spoken = text;
  parts_.speech.Speak(spoken, false, "", true);
}

void Interpreter::Pause(const std::string&, const std::string&) {
  parts_.speech.PauseSpeech();
}

// Only what is heard stops: the rendering of the text runs on to its end.
void Interpreter::Stopp(const std::string&, const std::string&) {
  EndBy(ScriptEnd::Itself);
  parts_.speech.StopHearing();
}

void Interpreter::Geschwindigkeit(const std::string& percent, const std::string&) {
  parts_.settings.Save(setting::Speed, percent);
}

void Interpreter::Lautstaerke(const std::string& percent, const std::string&) {
  parts_.settings.Save(setting::Volume, percent);
}

void Interpreter::Helligkeit(const std::string& percent, const std::string&) {
  parts_.settings.Save(setting::Pitch, percent);
}

// "~" is the user's own folder, on every system.
std::string Interpreter::FromHome(const std::string& path) const {
  const bool below = path.starts_with("~/") || path.starts_with("~\\");
  return below && !parts_.homeFolder.empty() ? parts_.homeFolder + path.substr(1) : path;
}

void Interpreter::Exportieren(const std::string& path, const std::string&) {
  parts_.speech.SetWaveFile(FromHome(path));
}

void Interpreter::Laden(const std::string& path, const std::string&) {
  if (parts_.loadFile) return parts_.loadFile(FromHome(path));
  parts_.document.LoadFile(FromHome(path));
}

void Interpreter::Text(const std::string& text, const std::string&) {
  parts_.statusBar.SetMessage(text);
}

void Interpreter::Dokument(const std::string& text, const std::string& mode) {
  if (mode == "0") return parts_.document.SetText(text);
  const std::string before = parts_.document.Text();
  RequireTextSize(before.size() + text.size());
  parts_.document.Revise(before + text);
}

void Interpreter::Wiederholen(const std::string&, const std::string&) {
  scriptRunning_ = false;
  restartWanted_ = true;
}

void Interpreter::Wenn(const std::string& left, const std::string& right) {
  if (left != right) {
    EndBy(ScriptEnd::Itself);
  } else {
    parts_.pump.RunPendingEvents();
  }
}

void Interpreter::WennNicht(const std::string& left, const std::string& right) {
  if (left == right) EndBy(ScriptEnd::Itself);
}

// Escape alone does not end this wait: the time has to come while a script runs.
void Interpreter::WartenBis(const std::string& time, const std::string&) {
  struct Waiting {
    std::string& until;
    std::string before;
    ~Waiting() { until = std::move(before); }
  } const waiting{waitingUntil_, std::exchange(waitingUntil_, time)};
  do {
    parts_.pump.WaitForEvents();
  } while (!scriptRunning_ || ClockText(parts_.clock.Now()) != time);
}

// The second itself has to be met; one that has passed is not waited for again.
void Interpreter::Warten(const std::string& seconds, const std::string&) {
  const auto start = WallSeconds(parts_.clock.Now());
  const double wanted = std::nearbyint(ToDouble(seconds));
  if (std::abs(wanted) > kLongestWait) throw RuntimeError(ErrorNumber::Overflow);
  const auto target = start + std::chrono::seconds(static_cast<std::int64_t>(wanted));
  do {
    parts_.pump.WaitForEvents();
  } while (scriptRunning_ && WallSeconds(parts_.clock.Now()) != target);
}

void Interpreter::Ersetzen(const std::string& from, const std::string& to) {
  std::string text = parts_.document.Text();
  ReplaceWithinLimit(text, from, to);
  parts_.document.Revise(text);
}

void Interpreter::Ausfuehren(const std::string& commandLine, const std::string&) {
  // A path with blanks that names a program needs no quotes.
  parts_.launcher.Start(FileExists(commandLine) ? std::vector{commandLine} : SplitCommandLine(commandLine));
}

void Interpreter::Download(const std::string& url, const std::string& target) {
  const std::string failure = parts_.downloader.Download(url, FromHome(target), [this] {
    parts_.pump.RunPendingEvents();
    return scriptRunning_;
  });
  if (!failure.empty()) Note("Download fehlgeschlagen: " + failure);
  parts_.pump.RunPendingEvents();
}

void Interpreter::Loeschen(const std::string& pattern, const std::string&) {
  DeleteFiles(FromHome(pattern), parts_.fileSearch);
}

}  // namespace lorelin
