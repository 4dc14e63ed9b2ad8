#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ports/Clock.h"

namespace lorelin {

// The language of the task scripts (.vts): what a file is cut into, which commands there are, and the
// variables in parameters. Pure; texts are UTF-8.

// Warten takes at most a century.
inline constexpr double kLongestWait = 3e9;  // seconds

// As large as a script can make a text; a document that doubles with every round would take all memory.
inline constexpr std::size_t kMostTextBytes = std::size_t{64} << 20;

// Throws RuntimeError 14, with number and limit in its text, for a size beyond that.
void RequireTextSize(std::size_t bytes);

// Every occurrence of `from` as `to`; throws like RequireTextSize, and changes nothing then.
void ReplaceWithinLimit(std::string& text, std::string_view from, std::string_view to);

// One command line, cut. The command is stripped of blanks, the parameters are not; in them "%KOMMA%" still
// stands for an escaped comma (see RestoreCommas).
struct ScriptLine {
  std::string command;
  std::string parameter1;
  std::string parameter2;

  bool operator==(const ScriptLine&) const = default;
};

// An entry of the command table that the picker offers.
struct ScriptCommand {
  std::string_view name;
  std::string_view kind;   // of the first parameter
  std::string_view count;  // number of parameters as text
  std::string_view description;
};

// The table in its stored order, cut from four lists that are read by the same index.
[[nodiscard]] std::span<const ScriptCommand> ScriptCommands();
// The commands that the picker does not offer; they have no description.
[[nodiscard]] std::span<const ScriptCommand> TypedCommands();

// The names of the variables, in the order in which they are expanded.
[[nodiscard]] std::span<const std::string_view> ScriptVariableNames();

// Walks the lines between the CR LF pairs; a lone CR or LF ends no line. `line` answers whether to go on; the
// views point into `text`.
void ForEachScriptLine(std::string_view text, const std::function<bool(std::string_view)>& line);
[[nodiscard]] std::vector<std::string_view> SplitScript(std::string_view text);

// The line as a command, or nothing for everything that is skipped: comments, lines without "(" and lines of
// at most five characters.
[[nodiscard]] std::optional<ScriptLine> CutLine(std::string_view line);

// "%KOMMA%" as ",": the last step, after the variables.
void RestoreCommas(std::string& parameter);

// Where the values of the variables come from. Asked in this order, each one when its turn comes; the
// clipboard is asked whether its variable occurs or not, the others only when they occur.
class ScriptVariables {
 public:
  virtual ~ScriptVariables() = default;
  [[nodiscard]] virtual std::string Clipboard() = 0;      // $Zwischenablage
  [[nodiscard]] virtual std::string TimeOfDay() = 0;      // $Zeit, HH:MM
  [[nodiscard]] virtual std::string Date() = 0;           // $Datum, DD.MM.YYYY
  [[nodiscard]] virtual std::string WindowsFolder() = 0;  // $Windows
  [[nodiscard]] virtual std::string Selection() = 0;      // $Markiert
  [[nodiscard]] virtual std::string DocumentText() = 0;   // $Text
};

// Replaces every occurrence of every variable, one variable after the other: what an earlier one put in is
// expanded by the later ones. Case-sensitive. Throws RuntimeError 14 when the text would outgrow
// kMostTextBytes; some of the variables are expanded then.
void ExpandVariables(std::string& parameter, ScriptVariables& values);

// The values of $Zeit (HH:MM) and $Datum (DD.MM.YYYY).
[[nodiscard]] std::string FormatTimeOfDay(const LocalTime& time);
[[nodiscard]] std::string FormatDate(const LocalTime& time);

}  // namespace lorelin
