#include "scripts/CommandPicker.h"

#include "base/conversion.h"
#include "scripts/scriptLanguage.h"

namespace lorelin {

void CommandPicker::FillParameterArray() {
  for (const ScriptCommand& command : ScriptCommands()) {
    kinds_.emplace_back(command.kind);
    counts_.emplace_back(command.count);
    descriptions_.emplace_back(command.description);
  }
}

std::vector<std::string> CommandPicker::Names() const {
  std::vector<std::string> names;
  for (const ScriptCommand& command : ScriptCommands()) names.emplace_back(command.name);
  return names;
}

std::string CommandPicker::Name(std::size_t index) const {
  return std::string(ScriptCommands()[index].name);
}

int CommandPicker::Count(std::size_t index) const {
  return ToLong(counts_.at(index));
}

// The second parameter is announced with the kind of the first.
std::string CommandPicker::ParameterHint(std::size_t index) const {
  const std::string& kind = kinds_.at(index);
  if (!NeedsParameter1(index)) return "();";
  if (!NeedsParameter2(index)) return "(" + kind + " als Parameter);";
  return "(" + kind + " als Parameter," + kind + " als zweiter Parameter);";
}

std::optional<std::string> CommandPicker::Line(std::size_t index, const std::string& parameter1,
                                               const std::string& parameter2) const {
  const std::string& kind = kinds_.at(index);
  if ((kind == "Zahl" || kind == "Prozent") && !IsNumeric(parameter1)) return std::nullopt;
  if (!NeedsParameter1(index)) return Name(index) + "();";
  if (!NeedsParameter2(index)) return Name(index) + "(" + parameter1 + ");";
  return Name(index) + "(" + parameter1 + "," + parameter2 + ");";
}

std::string CommandPicker::ErrorText(std::size_t index) const {
  return "Skriptfehler:\n\nDer Befehl " + Name(index) +
         "(); erwartet als Parameter folgenden Typ: " + kinds_.at(index);
}

}  // namespace lorelin
