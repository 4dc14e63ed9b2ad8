#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "german/textRules.h"

namespace lorelin {

// A rule of the user's, like "skip what stands in square brackets", and whether it counts.
struct ReadingRule {
  bool on = false;
  std::string pattern;
  std::string replacement;

  bool operator==(const ReadingRule&) const = default;
};

using ReadingRules = std::vector<ReadingRule>;

// A file of rules: in each line "an" or "aus", the pattern and the replacement, tabs between them. Empty
// lines and those that begin with "#" mean nothing, nor do others.
[[nodiscard]] ReadingRules ParseReadingRules(std::string_view text);
[[nodiscard]] std::string ReadingRuleLine(const ReadingRule& rule);

// Why the rule cannot be kept, as a German sentence; nothing when it can.
[[nodiscard]] std::optional<std::string> RuleProblem(const ReadingRule& rule);

// Those that are on.
[[nodiscard]] TextRules RulesThatCount(const ReadingRules& rules);

}  // namespace lorelin
