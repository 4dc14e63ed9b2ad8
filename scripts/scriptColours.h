#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace lorelin {

enum class ScriptPart { Comment, Command, Parameter, Variable };

struct ColouredSpan {
  std::size_t begin = 0;  // in characters
  std::size_t length = 0;
  ScriptPart part = ScriptPart::Comment;

  bool operator==(const ColouredSpan&) const = default;
};

// The parts of a script that an editor tells apart, in their order and without overlap; a command that does
// not exist is none. The text has "\n" line ends. Pure; linear.
[[nodiscard]] std::vector<ColouredSpan> ColourScript(std::string_view text);

}  // namespace lorelin
