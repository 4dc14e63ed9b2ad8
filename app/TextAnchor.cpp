#include "app/TextAnchor.h"

#include <algorithm>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::size_t kLength = 200;  // bytes

// In bytes.
std::size_t Nearest(std::string_view text, std::string_view words, std::size_t old) {
  const std::size_t before = text.rfind(words, old);
  const std::size_t behind = text.find(words, old);
  if (before == std::string_view::npos && behind == std::string_view::npos) return old;
  if (before == std::string_view::npos) return behind;
  if (behind == std::string_view::npos) return before;
  return old - before < behind - old ? before : behind;
}

}  // namespace

TextAnchor AnchorAt(std::string_view text, std::size_t character) {
  const std::string_view rest = FromCharacter(text, character);
  std::size_t size = std::min(kLength, rest.size());
  while (size < rest.size() && (static_cast<unsigned char>(rest[size]) & 0xC0U) == 0x80U) ++size;
  return {.character = character, .words = std::string(rest.substr(0, size))};
}

std::size_t PlaceOf(const TextAnchor& anchor, std::string_view text) {
  const std::size_t old = text.size() - FromCharacter(text, anchor.character).size();
  if (anchor.words.empty()) return CharacterCount(text.substr(0, old));
  return CharacterCount(text.substr(0, Nearest(text, anchor.words, old)));
}

}  // namespace lorelin
