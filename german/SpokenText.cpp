#include "german/SpokenText.h"

#include <algorithm>

#include "german/characters.h"

namespace lorelin {

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) at += CharacterAt(text, at).length;
  return count;
}

namespace {

// Walks through the runs of the first step and says where a place of its spoken text was written.
class Backwards {
 public:
  explicit Backwards(const std::vector<SpokenRun>& runs) : runs_(runs) {}

  // The first run that ends behind the place.
  [[nodiscard]] std::size_t RunAt(std::size_t place) const {
    return static_cast<std::size_t>(
        std::partition_point(runs_.begin(), runs_.end(),
                             [&](const SpokenRun& run) { return run.spokenEnd <= place; }) -
        runs_.begin());
  }
  // A place outside of all runs.
  [[nodiscard]] std::size_t Written(std::size_t place, std::size_t run) const {
    return run == 0 ? place : runs_[run - 1].writtenEnd + (place - runs_[run - 1].spokenEnd);
  }

 private:
  const std::vector<SpokenRun>& runs_;
};

}  // namespace

std::vector<SpokenRun> JoinRuns(const std::vector<SpokenRun>& first, const std::vector<SpokenRun>& second) {
  const Backwards back(first);
  std::vector<SpokenRun> joined;
  std::size_t next = 0;      // of the first step's runs
  std::ptrdiff_t shift = 0;  // spoken at last less spoken at first
  const auto moved = [&shift](std::size_t place) {
    return static_cast<std::size_t>(static_cast<std::ptrdiff_t>(place) + shift);
  };
  const auto takeBefore = [&](std::size_t place) {
    for (; next < first.size() && first[next].spokenEnd <= place; ++next) {
      const SpokenRun& run = first[next];
      joined.push_back({moved(run.spokenBegin), moved(run.spokenEnd), run.writtenBegin, run.writtenEnd});
    }
  };
  for (const SpokenRun& run : second) {
    takeBefore(run.writtenBegin);
    SpokenRun whole{run.spokenBegin, run.spokenEnd, 0, 0};
    std::size_t end = next;
    while (end < first.size() && first[end].spokenBegin < run.writtenEnd) ++end;
    whole.writtenBegin = back.Written(run.writtenBegin, next);
    whole.writtenEnd = back.Written(run.writtenEnd, end);
    // The part of a run that sticks out on either side belongs to it.
    if (next < end && first[next].spokenBegin < run.writtenBegin) {
      whole.spokenBegin -= run.writtenBegin - first[next].spokenBegin;
      whole.writtenBegin = first[next].writtenBegin;
    }
    if (end > 0 && first[end - 1].spokenEnd > run.writtenEnd) {
      whole.spokenEnd += first[end - 1].spokenEnd - run.writtenEnd;
      whole.writtenEnd = first[end - 1].writtenEnd;
    }
    next = end;
    shift = static_cast<std::ptrdiff_t>(run.spokenEnd) - static_cast<std::ptrdiff_t>(run.writtenEnd);
    if (!joined.empty() && joined.back().spokenEnd > whole.spokenBegin) {
      joined.back().spokenEnd = whole.spokenEnd;
      joined.back().writtenEnd = whole.writtenEnd;
    } else {
      joined.push_back(whole);
    }
  }
  takeBefore(static_cast<std::size_t>(-1) / 2);
  return joined;
}

}  // namespace lorelin
