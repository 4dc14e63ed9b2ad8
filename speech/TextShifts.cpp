#include "speech/TextShifts.h"

#include <algorithm>

namespace lorelin {

void TextShifts::Edited(std::size_t place, std::size_t removed, std::size_t inserted) {
  if (!edits_.empty()) {
    Edit& last = edits_.back();
    if (removed == 0 && place == last.place + last.inserted) {
      last.inserted += inserted;
      return;
    }
    // Taken back what was typed just now.
    if (inserted == 0 && place >= last.place && place + removed == last.place + last.inserted) {
      last.inserted -= removed;
      return;
    }
  }
  edits_.push_back({place, removed, inserted});
}

std::optional<CharacterRange> TextShifts::Now(CharacterRange range) const {
  for (const Edit& edit : edits_) {
    const std::size_t end = edit.place + edit.removed;
    if (edit.place >= range.end) continue;
    if (end > range.begin || edit.place > range.begin) return std::nullopt;
    range.begin = range.begin - edit.removed + edit.inserted;
    range.end = range.end - edit.removed + edit.inserted;
  }
  return range;
}

std::size_t TextShifts::Before(std::size_t place) const {
  for (auto edit = edits_.rbegin(); edit != edits_.rend(); ++edit) {
    if (place < edit->place) continue;
    if (place < edit->place + edit->inserted) {
      place = edit->place;
    } else {
      place = place - edit->inserted + edit->removed;
    }
  }
  return place;
}

}  // namespace lorelin
