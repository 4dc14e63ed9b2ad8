#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "speech/writtenRange.h"

namespace lorelin {

// Where places of a text are now, when the text has been edited since. Characters.
class TextShifts {
 public:
  void Clear() { edits_.clear(); }
  void Edited(std::size_t place, std::size_t removed, std::size_t inserted);
  // Nothing when the range itself was edited.
  [[nodiscard]] std::optional<CharacterRange> Now(CharacterRange range) const;
  // The place in the text as it was; for one in what was put in, that in front of it.
  [[nodiscard]] std::size_t Before(std::size_t place) const;

 private:
  struct Edit {
    std::size_t place = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;
  };

  std::vector<Edit> edits_;  // in their order; typing in one go is one
};

}  // namespace lorelin
