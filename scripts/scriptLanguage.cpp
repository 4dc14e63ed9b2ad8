#include "scripts/scriptLanguage.h"

#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::string_view kNames =
    "Sprechen,Sprechen2,Stopp,Pause,Laden,Speichern,Stimme,Geschwindigkeit,Helligkeit,Exportieren,Beenden,"
    "Wiederholen,Springe,Text,Meldung,WartenBis,Ersetzen,Warten,Wenn_nicht,Wenn,Ausführen,Dokument,Download";

// One entry more than there are commands; the last belongs to none.
constexpr std::string_view kKinds =
    "Nichts,Text,Nichts,Nichts,Text,Text,Text,Prozent,Prozent,Text,Modus,Nichts,Zahl,Text,Text,Zeit,Text,"
    "Zahl,Text,"
    "Text,Text,Text,Text,Text";

constexpr std::string_view kCounts = "0,1,0,1,1,1,1,1,1,1,1,0,1,1,1,1,2,1,2,2,1,2,2";

constexpr std::string_view kDescriptions =
    "Spricht den aktuellen vom Benutzer eingegebenen oder geladenen Text.,"
    "Spricht den Text 'Text'.,"
    "Stoppt die Sprachausgabe.,"
    "Pausiert die Sprachausgabe.,"
    "Öffnet die Datei 'Text' und zeigt sie an.,"
    "Speichert den aktuellen Text in die Datei 'Text'.,"
    "Wählt die Stimme mit den Namen 'Text' (sofern installiert).,"
    "Setzt die Geschwindigkeit des Sprechers auf 'Prozent' % der maximalen Geschwindigkeit. 'Prozent' muss "
    "hierbei "
    "eine gerundete Zahl sein.,"
    "Setzt die Helligkeit der aktuellen Stimme auf 'Prozent' % der maximalen Helligkeit. 'Prozent' muss "
    "hierbei eine "
    "gerundete Zahl sein.,"
    "Speichert die aktuelle Sprachausgabe als WAV-Datei mit dem Dateinamen 'Text' ab. Nach dem Aufrufen "
    "dieser "
    "Funktion muss Sprechen(); aufgerufen werden!,"
    "Beendet Lorelin.,"
    "Startet das Skript von vorne. Achtung: Skript kann dann nur noch vom Benutzer beendet werden.,"
    "Springt zur Zeile 'Zahl' des Skripts und führt es von dort an wieder aus.,"
    "Zeigt den Text 'Text' in der Statusbar des Hauptdialoges an.,"
    "Zeigt die Meldung mit dem Text 'Text'. Solange die Meldung nicht weggeklickt wurde bleibt das Programm "
    "stehen.,"
    "Wartet mit der Ausführung des Taskscriptes bis die Zeit 'Zeit' erreicht ist. Parameter muss in der Form "
    "HH:MM:SS "
    "übergeben werden (z.B 21:05:11),"
    "Ersetzt den Text 'Text' mit 'Text2' im Dokument.,"
    "Wartet 'Zahl' Sekunden bis zur weiteren Ausführung des Taskscripts.,"
    "Überprüft ob 'Text' und 'Text2' den selben Inhalt haben. Wenn nicht wird die Ausführung des Skriptes "
    "abgebrochen. "
    "'Text' oder 'Text2' sollten hier Variablen sein.,"
    "Überprüft ob 'Text' und 'Text2' den selben Inhalt haben. Wenn dies zutrifft wird die Ausführung des "
    "Skriptes "
    "abgebrochen. 'Text' oder 'Text2' sollten hier Variablen sein.,"
    "Führt die Datei oder den Befehl 'Text' aus. 'Text' kann entweder ein Pfad zu einer Ausführbare Datei "
    "sein (.exe "
    ".com .scr .bat) oder ein MS-DOS Befehl.,"
    "Setzt den Dokumenttext auf 'Text' oder fügt 'Text' an das aktuelle Dokument an. Wenn 'Text2' 0 ist wird "
    "der Text "
    "im Dokument durch 'Text' ersetzt. Wenn 'Text2' 1 ist wird der 'Text' angehängt.,"
    "Lädt die Datei 'Text' aus dem Internet und speicher Sie als 'Text2. Eine aktive Internetverbindung wird "
    "benötigt.'";

constexpr std::size_t kCommandCount = 23;
constexpr std::size_t kShortestLine = 6;
constexpr std::string_view kComma = "%KOMMA%";

// The entry at the front of a comma-separated list, which loses it.
constexpr std::string_view TakeEntry(std::string_view& list) {
  const std::string_view entry = list.substr(0, list.find(','));
  list.remove_prefix(std::min(entry.size() + 1, list.size()));
  return entry;
}

constexpr std::array<ScriptCommand, kCommandCount> CutTable() {
  std::array<ScriptCommand, kCommandCount> table{};
  std::string_view names = kNames;
  std::string_view kinds = kKinds;
  std::string_view counts = kCounts;
  std::string_view descriptions = kDescriptions;
  for (ScriptCommand& command : table) {
    command = {.name = TakeEntry(names),
               .kind = TakeEntry(kinds),
               .count = TakeEntry(counts),
               .description = TakeEntry(descriptions)};
  }
  return table;
}

constexpr auto kTable = CutTable();

constexpr std::array kTypedCommands{
    ScriptCommand{.name = "Lautstärke", .kind = "Prozent", .count = "1", .description = ""},
    ScriptCommand{.name = "Löschen", .kind = "Text", .count = "1", .description = ""}};

constexpr std::array<std::string_view, 6> kVariableNames{"$Zwischenablage", "$Zeit",     "$Datum",
                                                         "$Windows",        "$Markiert", "$Text"};

bool IsComment(std::string_view command) {
  return command.starts_with('#') || command.starts_with("//");
}

void RemoveLineEnd(std::string& parameter) {
  ReplaceAll(parameter, ");", "");
}

std::string DateField(int number, int digits) {
  std::string text = std::to_string(number);
  text.insert(0, static_cast<std::size_t>(std::max(0, digits - static_cast<int>(text.size()))), '0');
  return text;
}

}  // namespace

std::string FormatTimeOfDay(const LocalTime& time) {
  return DateField(time.hour, 2) + ":" + DateField(time.minute, 2);
}

std::string FormatDate(const LocalTime& time) {
  return DateField(time.day, 2) + "." + DateField(time.month, 2) + "." + DateField(time.year, 4);
}

std::span<const ScriptCommand> ScriptCommands() {
  return kTable;
}

std::span<const ScriptCommand> TypedCommands() {
  return kTypedCommands;
}

std::span<const std::string_view> ScriptVariableNames() {
  return kVariableNames;
}

void ForEachScriptLine(std::string_view text, const std::function<bool(std::string_view)>& line) {
  for (auto end = text.find("\r\n"); end != std::string_view::npos; end = text.find("\r\n")) {
    if (!line(text.substr(0, end))) return;
    text.remove_prefix(end + 2);
  }
  line(text);
}

std::vector<std::string_view> SplitScript(std::string_view text) {
  std::vector<std::string_view> lines;
  ForEachScriptLine(text, [&](std::string_view line) {
    lines.push_back(line);
    return true;
  });
  return lines;
}

std::optional<ScriptLine> CutLine(std::string_view line) {
  const auto open = line.find('(');
  if (open == std::string_view::npos || CharacterCount(line) < kShortestLine) return std::nullopt;
  const std::string_view command = line.substr(0, open);
  if (IsComment(command)) return std::nullopt;
  // A second "(" ends the parameters.
  const std::string_view rest = line.substr(open + 1);
  std::string parameters(rest.substr(0, rest.find('(')));
  ReplaceAll(parameters, "\\,", kComma);
  ScriptLine cut{.command = std::string(WithoutBlanks(command)), .parameter1 = {}, .parameter2 = {}};
  const auto comma = parameters.find(',');
  if (comma == std::string::npos) {
    cut.parameter1 = std::move(parameters);
    RemoveLineEnd(cut.parameter1);
    return cut;
  }
  cut.parameter1 = parameters.substr(0, comma);
  const auto second = parameters.find(',', comma + 1);
  cut.parameter2 = parameters.substr(comma + 1, second == std::string::npos ? second : second - comma - 1);
  // Only the last element of the list loses the end of the line; a third element takes it along.
  if (second == std::string::npos) RemoveLineEnd(cut.parameter2);
  return cut;
}

void RequireTextSize(std::size_t bytes) {
  if (bytes <= kMostTextBytes) return;
  throw RuntimeError(ErrorNumber::OutOfStringSpace,
                     ErrorText(ErrorNumber::OutOfStringSpace) +
                         " (14): Taskscripts können einen Text auf höchstens 64 MB wachsen lassen.");
}

void ReplaceWithinLimit(std::string& text, std::string_view from, std::string_view to) {
  if (from.empty()) return;
  std::size_t size = text.size();
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + from.size())) {
    size = size - from.size() + to.size();
    RequireTextSize(to.size() > from.size() ? size : 0);
  }
  ReplaceAll(text, from, to);
}

void RestoreCommas(std::string& parameter) {
  ReplaceAll(parameter, kComma, ",");
}

void ExpandVariables(std::string& parameter, ScriptVariables& values) {
  const auto expand = [&](std::string_view name, std::string (ScriptVariables::*value)()) {
    if (parameter.find(name) != std::string::npos) ReplaceWithinLimit(parameter, name, (values.*value)());
  };
  ReplaceWithinLimit(parameter, "$Zwischenablage", values.Clipboard());
  expand("$Zeit", &ScriptVariables::TimeOfDay);
  expand("$Datum", &ScriptVariables::Date);
  expand("$Windows", &ScriptVariables::WindowsFolder);
  expand("$Markiert", &ScriptVariables::Selection);
  expand("$Text", &ScriptVariables::DocumentText);
}

}  // namespace lorelin
