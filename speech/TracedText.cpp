#include "speech/TracedText.h"

#include <algorithm>
#include <utility>

#include "speech/wordAlignment.h"

namespace lorelin {

void TracedText::Add(const std::vector<SpokenRun>& step) {
  if (!begin_ || step.empty()) return;
  runs_ = runs_.empty() ? step : JoinRuns(runs_, step);
}

void TracedText::Surround(std::string_view before, std::string_view behind) {
  if (begin_) {
    const std::size_t first = CountCharacters(before);
    const std::size_t all = CountCharacters(text_);
    const std::size_t end = first + all;
    Add({{0, first, 0, 0}, {end, end + CountCharacters(behind), all, all}});
  }
  text_.insert(0, before).append(behind);
}

void TracedText::Replace(std::string_view name, std::string_view value) {
  std::string replaced;
  std::vector<SpokenRun> step;
  const std::size_t nameSize = CountCharacters(name);
  const std::size_t valueSize = CountCharacters(value);
  std::size_t spoken = 0;
  std::size_t written = 0;
  std::string_view rest = text_;
  for (std::size_t at = rest.find(name); at != std::string_view::npos; at = rest.find(name)) {
    const std::size_t same = CountCharacters(rest.substr(0, at));
    step.push_back({spoken + same, spoken + same + valueSize, written + same, written + same + nameSize});
    spoken = step.back().spokenEnd;
    written = step.back().writtenEnd;
    replaced.append(rest.substr(0, at)).append(value);
    rest.remove_prefix(at + name.size());
  }
  if (step.empty()) return;
  text_ = replaced.append(rest);
  Add(step);
}

void TracedText::Rewritten(std::string text) {
  if (begin_ && text != text_) Add(AlignWords(text_, text));
  text_ = std::move(text);
}

std::optional<CharacterRange> TracedText::Source(CharacterRange spoken) const {
  if (!begin_) return std::nullopt;
  const CharacterRange written = WrittenRange(runs_, spoken);
  if (written.begin >= written.end) return std::nullopt;
  return CharacterRange{*begin_ + written.begin, *begin_ + written.end};
}

std::size_t TracedText::SpokenFrom(std::size_t source) const {
  const std::size_t written = source - std::min(source, SourceBegin());
  const auto behind = std::partition_point(runs_.begin(), runs_.end(),
                                           [&](const SpokenRun& run) { return run.writtenEnd <= written; });
  if (behind != runs_.end() && behind->writtenBegin <= written) return behind->spokenBegin;
  if (behind == runs_.begin()) return written;
  const SpokenRun& before = *std::prev(behind);
  return before.spokenEnd + (written - before.writtenEnd);
}

}  // namespace lorelin
