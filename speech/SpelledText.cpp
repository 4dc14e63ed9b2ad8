#include "speech/SpelledText.h"

#include <algorithm>

namespace lorelin {
namespace {

// Bytes of the written text. What a person waits for is only the first part; the largest one takes a few
// hundredths of a second, for which the window stands still.
constexpr std::size_t kFirstPart = 4U << 10;
constexpr std::size_t kLargestPart = 32U << 10;

}  // namespace

std::string_view SpelledText::Part(std::size_t number) {
  while (parts_.empty() || (parts_.size() <= number && done_ < written_.size())) MakePart();
  return number < parts_.size() ? std::string_view(parts_[number]) : std::string_view();
}

void SpelledText::MakePart() {
  const std::size_t wanted = std::min(kFirstPart << std::min<std::size_t>(parts_.size(), 10), kLargestPart);
  const std::string_view text = written_;
  std::size_t end = done_;
  while (end < text.size() && end - done_ < wanted) end = speller_->PieceEnd(text, end);
  const std::string_view piece = text.substr(done_, end - done_);
  SpokenText spoken = speller_->SpellOut(piece);
  for (SpokenRun run : spoken.runs) {
    run.spokenBegin += spokenCharacters_;
    run.spokenEnd += spokenCharacters_;
    run.writtenBegin += writtenCharacters_;
    run.writtenEnd += writtenCharacters_;
    runs_.push_back(run);
  }
  writtenCharacters_ += CountCharacters(piece);
  spokenCharacters_ += CountCharacters(spoken.text);
  done_ = end;
  parts_.push_back(std::move(spoken.text));
}

}  // namespace lorelin
