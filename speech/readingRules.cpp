#include "speech/readingRules.h"

namespace lorelin {
namespace {

constexpr std::string_view kOn = "an";
constexpr std::string_view kOff = "aus";

std::optional<ReadingRule> ParseLine(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  const auto first = line.find('\t');
  const auto second = first == std::string_view::npos ? first : line.find('\t', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const std::string_view state = line.substr(0, first);
  if (state != kOn && state != kOff) return std::nullopt;
  return ReadingRule{.on = state == kOn,
                     .pattern = std::string(line.substr(first + 1, second - first - 1)),
                     .replacement = std::string(line.substr(second + 1))};
}

}  // namespace

ReadingRules ParseReadingRules(std::string_view text) {
  ReadingRules rules;
  while (!text.empty()) {
    const auto end = text.find('\n');
    if (auto rule = ParseLine(text.substr(0, end))) rules.push_back(std::move(*rule));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return rules;
}

std::string ReadingRuleLine(const ReadingRule& rule) {
  return std::string(rule.on ? kOn : kOff) + '\t' + rule.pattern + '\t' + rule.replacement;
}

std::optional<std::string> RuleProblem(const ReadingRule& rule) {
  if (rule.pattern.empty()) return "Der Ausdruck ist leer.";
  if (std::string problem = TextRules::WhatIsWrongWith(rule.pattern); !problem.empty()) return problem;
  if (ParseReadingRules(ReadingRuleLine(rule)) == ReadingRules{rule}) return std::nullopt;
  return "Ausdruck und Ersetzung haben nur eine Zeile und keine Tabulatoren; ein Tabulator im Text ist "
         "„\\t“.";
}

TextRules RulesThatCount(const ReadingRules& rules) {
  std::vector<TextRule> counting;
  for (const ReadingRule& rule : rules) {
    if (rule.on) counting.push_back({.pattern = rule.pattern, .replacement = rule.replacement});
  }
  return TextRules(counting);
}

}  // namespace lorelin
