#include "german/textRules.h"

#include "german/characters.h"

namespace lorelin {
namespace {

constexpr std::size_t kLongestLine =
    20'000;  // bytes; what is longer is cut, so that no search begins too often

std::string Filled(std::string_view replacement, std::string_view text, const Pattern::Match& match) {
  std::string words;
  for (std::size_t i = 0; i < replacement.size(); ++i) {
    const char next = i + 1 < replacement.size() ? replacement[i + 1] : '\0';
    if (replacement[i] != '$' || (next != '$' && (next < '0' || next > '9'))) {
      words += replacement[i];
      continue;
    }
    ++i;
    if (next == '$') {
      words += '$';
      continue;
    }
    const auto group = static_cast<std::size_t>(next - '0');
    if (group >= match.groups.size()) continue;
    const auto [begin, end] = match.groups[group];
    if (begin != Pattern::kNoGroup && end != Pattern::kNoGroup) words += text.substr(begin, end - begin);
  }
  return words;
}

std::size_t EndOfLine(std::string_view text, std::size_t begin) {
  const auto line = text.find('\n', begin);
  std::size_t end = line == std::string_view::npos ? text.size() : line + 1;
  if (end - begin <= kLongestLine) return end;
  end = begin + kLongestLine;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end;
}

}  // namespace

TextRules::TextRules(const std::vector<TextRule>& rules) {
  for (const TextRule& rule : rules) {
    if (auto pattern = Pattern::Compile(rule.pattern))
      rules_.push_back({std::move(*pattern), rule.replacement});
  }
}

std::string TextRules::WhatIsWrongWith(std::string_view pattern) {
  std::string error;
  (void)Pattern::Compile(pattern, &error);
  return error;
}

SpokenText TextRules::ApplyOne(const Ready& rule, std::string_view text) {
  SpokenText result;
  std::size_t writtenAt = 0;
  std::size_t spokenAt = 0;
  const auto copy = [&](std::string_view part) {
    result.text += part;
    const std::size_t characters = CountCharacters(part);
    writtenAt += characters;
    spokenAt += characters;
  };
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = EndOfLine(text, begin);
    const std::string_view line = text.substr(begin, end - begin);
    std::size_t at = 0;
    while (at < line.size()) {
      const auto match = rule.pattern.Search(line, at);
      if (!match) break;
      const auto [first, last] = match->groups.front();
      if (first == last) {  // nothing was found there; go on behind
        const std::size_t behind =
            first < line.size() ? first + CharacterAt(line, first).length : line.size();
        copy(line.substr(at, behind - at));
        at = behind;
        continue;
      }
      copy(line.substr(at, first - at));
      const std::string words = Filled(rule.replacement, line, *match);
      const std::size_t spoken = CountCharacters(words);
      const std::size_t written = CountCharacters(line.substr(first, last - first));
      result.text += words;
      result.runs.push_back({spokenAt, spokenAt + spoken, writtenAt, writtenAt + written});
      spokenAt += spoken;
      writtenAt += written;
      at = last;
    }
    copy(line.substr(at));
    begin = end;
  }
  return result;
}

SpokenText TextRules::Apply(std::string_view text) const {
  SpokenText result{std::string(text), {}};
  for (const Ready& rule : rules_) {
    SpokenText next = ApplyOne(rule, result.text);
    result.runs = JoinRuns(result.runs, next.runs);
    result.text = std::move(next.text);
  }
  return result;
}

}  // namespace lorelin
