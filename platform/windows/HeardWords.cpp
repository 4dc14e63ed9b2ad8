#include "platform/windows/HeardWords.h"

#include <algorithm>
#include <utility>

#include "base/textEncoding.h"
#include "engine/speakableText.h"

namespace lorelin {
namespace {

// Marks carry samples where those are known; here a word is told when its event comes.
constexpr std::uint64_t kNow = 0;

}  // namespace

void HeardWords::Clear() {
  goes_.clear();
  gone_ = characters_ = 0;
}

void HeardWords::Add(std::string_view given, std::string speakable) {
  Go& go = goes_.emplace_back();
  go.begin = characters_;
  characters_ += CharacterCount(given);
  if (speakable != given) go.dropped.emplace(given);
  go.text = std::move(speakable);
}

// Long texts are looked at a stretch at a time.
void HeardWords::Enter(Go& go) const {
  const std::string_view rest = std::string_view(go.text).substr(go.byte);
  const std::size_t size = engine::NextPiece(rest);
  go.words.emplace(rest.substr(0, size));
  go.stretchBegin = go.character;
  go.stretchEndByte = go.byte + size;
}

engine::WordMarker::Take HeardWords::InWholeText(const Go& go, const Take& take) {
  return [&go, &take](const engine::WordMark& mark) {
    const auto place = [&](std::size_t character) {
      const std::size_t inGo = go.stretchBegin + character;
      return go.begin + (go.dropped ? go.dropped->Given(inGo) : inGo);
    };
    const std::size_t begin = place(mark.begin);
    take({.begin = begin, .end = place(mark.end - 1) + 1});
  };
}

void HeardWords::Advance(Go& go, std::size_t unit, const Take& take) const {
  while (go.byte < go.text.size()) {
    if (!go.words) Enter(go);
    for (; go.byte < go.stretchEndByte; ++go.character) {
      const std::string_view rest = std::string_view(go.text).substr(go.byte);
      const std::string_view character = rest.substr(0, std::max<std::size_t>(Utf8Length(rest), 1));
      const std::size_t behind = go.unit + units_(character);
      if (behind > unit) return;
      go.unit = behind;
      go.byte += character.size();
    }
    go.words->End(kNow, InWholeText(go, take));
    go.words.reset();
  }
}

void HeardWords::Event(std::size_t go, std::size_t unit, const Take& take) {
  if (go < gone_ || go - gone_ >= goes_.size()) return;
  for (; gone_ < go; ++gone_) goes_.pop_front();
  Go& current = goes_.front();
  if (unit < current.unit) return;
  Advance(current, unit, take);
  if (current.words) {
    current.words->Event(current.character - current.stretchBegin, kNow, InWholeText(current, take));
  }
}

std::size_t Utf16Units(std::string_view character) {
  return character.size() == 4 ? 2 : 1;
}

}  // namespace lorelin
