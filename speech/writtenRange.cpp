#include "speech/writtenRange.h"

#include <algorithm>
#include <iterator>

namespace lorelin {
namespace {

// The run that decides about a place: the last that begins before it.
const SpokenRun* RunBefore(const std::vector<SpokenRun>& runs, std::size_t place) {
  const auto behind = std::partition_point(runs.begin(), runs.end(),
                                           [&](const SpokenRun& run) { return run.spokenBegin < place; });
  return behind == runs.begin() ? nullptr : &*std::prev(behind);
}

std::size_t WrittenPlace(const SpokenRun* before, std::size_t place, bool isEnd) {
  if (before == nullptr) return place;
  if (place >= before->spokenEnd) return before->writtenEnd + (place - before->spokenEnd);
  return isEnd ? before->writtenEnd : before->writtenBegin;
}

}  // namespace

CharacterRange WrittenRange(const std::vector<SpokenRun>& runs, CharacterRange spoken) {
  // A place at the very beginning of a run belongs to the run when it begins something, not when it ends it.
  const std::size_t begin = WrittenPlace(RunBefore(runs, spoken.begin + 1), spoken.begin, false);
  const std::size_t end = WrittenPlace(RunBefore(runs, spoken.end), spoken.end, true);
  return {begin, std::max(begin, end)};
}

}  // namespace lorelin
