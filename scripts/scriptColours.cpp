#include "scripts/scriptColours.h"

#include <algorithm>

#include "base/text.h"
#include "base/textEncoding.h"
#include "scripts/scriptLanguage.h"

namespace lorelin {
namespace {

bool IsCommand(std::string_view name) {
  const auto named = [&](const ScriptCommand& command) { return command.name == name; };
  return std::ranges::any_of(ScriptCommands(), named) || std::ranges::any_of(TypedCommands(), named);
}

std::size_t VariableLength(std::string_view text) {
  for (const std::string_view name : ScriptVariableNames()) {
    if (text.starts_with(name)) return name.size();
  }
  return 0;
}

class Colourer {
 public:
  std::vector<ColouredSpan> Colour(std::string_view text) {
    while (!text.empty()) {
      const std::string_view line = text.substr(0, text.find('\n'));
      ColourLine(line);
      const std::size_t taken = std::min(line.size() + 1, text.size());
      Skip(text.substr(line.size(), taken - line.size()));
      text.remove_prefix(taken);
    }
    return std::move(spans_);
  }

 private:
  void Skip(std::string_view text) { position_ += CharacterCount(text); }

  void Add(std::string_view text, ScriptPart part) {
    const std::size_t length = CharacterCount(text);
    if (length > 0) spans_.push_back({position_, length, part});
    position_ += length;
  }

  void ColourLine(std::string_view line) {
    if (line.starts_with('#') || line.starts_with("//")) return Add(line, ScriptPart::Comment);
    const auto open = line.find('(');
    const std::string_view command = WithoutBlanks(line.substr(0, open));
    if (open == std::string_view::npos || !IsCommand(command)) return Skip(line);
    const auto begin = static_cast<std::size_t>(command.data() - line.data());
    Skip(line.substr(0, begin));
    Add(command, ScriptPart::Command);
    Skip(line.substr(begin + command.size(), open + 1 - begin - command.size()));
    const std::string_view rest = line.substr(open + 1);
    const std::string_view parameters = rest.substr(0, std::min(rest.rfind(");"), rest.find('(')));
    ColourParameters(parameters);
    Skip(rest.substr(parameters.size()));
  }

  void ColourParameters(std::string_view text) {
    while (!text.empty()) {
      const std::string_view plain = text.substr(0, std::min(text.find('$'), text.size()));
      Add(plain, ScriptPart::Parameter);
      text.remove_prefix(plain.size());
      if (text.empty()) return;
      const std::size_t length = VariableLength(text);
      Add(text.substr(0, std::max<std::size_t>(length, 1)),
          length > 0 ? ScriptPart::Variable : ScriptPart::Parameter);
      text.remove_prefix(std::max<std::size_t>(length, 1));
    }
  }

  std::vector<ColouredSpan> spans_;
  std::size_t position_ = 0;
};

}  // namespace

std::vector<ColouredSpan> ColourScript(std::string_view text) {
  return Colourer().Colour(text);
}

}  // namespace lorelin
