#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

enum class FindingKind {
  Error,  // something is ignored, cut or fails
  Hint,   // something may act other than it looks
};

struct ScriptFinding {
  std::size_t line = 0;  // from 1, as an editor counts: every CR LF, LF and CR ends a line
  FindingKind kind = FindingKind::Error;
  std::string message;  // a German sentence
};

// What the interpreter would silently ignore, cut or fail at in a task script; the text as DecodeText gives
// it. In the order of the lines; findings beyond the thousandth are only counted, in a last one. Pure; linear
// in the text.
[[nodiscard]] std::vector<ScriptFinding> CheckScript(std::string_view text);

}  // namespace lorelin
