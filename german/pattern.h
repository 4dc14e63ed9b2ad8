#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lorelin {

// A regular expression that cannot run away: the time is at most the size of the text times that of the
// pattern, and nothing is recursive while it searches. Knows characters, ".", [classes] with ranges and "^",
// "\d \w \s \D \W \S \b",
// "\" before any sign, groups "(…)" and "(?:…)", "|", "*", "+", "?", "{m,n}" (up to 100), each also with "?"
// for as few as possible, "^" and "$" for the ends of a line. "." stands for anything but the end of a line.
// Small and capital letters differ.
class Pattern {
 public:
  // Nothing when the expression is none; `error` then says why, in German.
  [[nodiscard]] static std::optional<Pattern> Compile(std::string_view expression,
                                                      std::string* error = nullptr);

  struct Match {
    std::vector<std::pair<std::size_t, std::size_t>> groups;  // bytes; the whole match first, npos for none
  };
  // The leftmost match from the byte on; nothing when there is none.
  [[nodiscard]] std::optional<Match> Search(std::string_view text, std::size_t from) const;

  static constexpr std::size_t kNoGroup = static_cast<std::size_t>(-1);

 private:
  friend class PatternCompiler;
  enum class Op : std::uint8_t {
    Character,
    Any,
    Class,
    Split,
    Jump,
    Save,
    LineBegin,
    LineEnd,
    WordEdge,
    Done
  };
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Step {
    Op op = Op::Done;
    char32_t character = 0;
    bool negated = false;
    std::size_t first = 0;  // where to go on, or which ranges; of a split the one that is tried first
    std::size_t second = 0;
  };

  [[nodiscard]] bool Takes(const Step& step, char32_t character) const;

  struct Thread;
  struct Threads;
  void AddThread(Threads& threads, Thread thread, std::string_view text, std::size_t at) const;

  std::vector<Step> steps_;
  std::vector<std::vector<Range>> classes_;
  std::size_t groups_ = 1;
};

}  // namespace lorelin
