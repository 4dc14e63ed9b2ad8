#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "german/SpokenText.h"
#include "german/pattern.h"

namespace lorelin {

// A rule of the user's own, such as "skip what stands in square brackets": what a regular expression finds is
// replaced.
struct TextRule {
  std::string pattern;
  std::string replacement;  // "$1" to "$9" are the groups, "$0" is all that was found, "$$" is a dollar sign

  bool operator==(const TextRule&) const = default;
};

// Rules that are applied to each line, one after the other. A rule whose pattern is no expression is left
// out.
class TextRules {
 public:
  TextRules() = default;
  explicit TextRules(const std::vector<TextRule>& rules);

  [[nodiscard]] bool IsEmpty() const { return rules_.empty(); }
  [[nodiscard]] SpokenText Apply(std::string_view text) const;

  // Why the pattern is no expression, in German; empty when it is one.
  [[nodiscard]] static std::string WhatIsWrongWith(std::string_view pattern);

 private:
  struct Ready {
    Pattern pattern;
    std::string replacement;
  };
  [[nodiscard]] static SpokenText ApplyOne(const Ready& rule, std::string_view text);

  std::vector<Ready> rules_;
};

}  // namespace lorelin
