#include "german/pictures.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "german/characters.h"

namespace lorelin {
namespace {

struct EmojiName {
  std::string_view sign;  // without the mark U+FE0F
  std::string_view name;
};

#include "german/data/emoji.inc"

constexpr std::size_t kMostParts = 10;

std::string_view NameOf(std::string_view sign) {
  const auto found =
      std::lower_bound(std::begin(kEmoji), std::end(kEmoji), sign,
                       [](const EmojiName& one, std::string_view wanted) { return one.sign < wanted; });
  return found != std::end(kEmoji) && found->sign == sign ? found->name : std::string_view();
}

char32_t CodeAt(const Tokens& tokens, std::size_t i) {
  return tokens.Kind(i) == TokenKind::Sign ? CharacterAt(tokens.View(i), 0).code : 0;
}

// Marks without a picture of their own.
bool IsMark(char32_t code) {
  return code == 0xFE0F || code == 0x200D || code == 0x20E3 || (code >= 0x1F3FB && code <= 0x1F3FF);
}

bool IsRegion(char32_t code) {
  return code >= 0x1F1E6 && code <= 0x1F1FF;
}

}  // namespace

namespace {

// ":)", ";-)", "^^": a face of letters, which has no name.
std::size_t EndOfFace(const Tokens& tokens, std::size_t i) {
  if (i == 0 || !tokens.IsGap(i - 1)) return 0;
  std::size_t end = i;
  if (tokens.Is(i, "^") && tokens.Is(i + 1, "^")) {
    end = i + 2;
  } else if (IsOneOf(tokens.View(i), {":", ";"})) {
    std::size_t mouth = tokens.Is(i + 1, "-") ? i + 2 : i + 1;
    if (!IsOneOf(tokens.View(mouth), {")", "(", "D", "P", "/", "*", "|"})) return 0;
    while (IsOneOf(tokens.View(mouth), {")", "("})) ++mouth;
    end = mouth == i + 1 || (mouth == i + 2 && tokens.Is(i + 1, "-")) ? mouth + 1 : mouth;
  } else {
    return 0;
  }
  return tokens.IsGap(end) ? end : 0;
}

}  // namespace

Picture PictureAt(const Tokens& tokens, std::size_t i) {
  if (const std::size_t face = EndOfFace(tokens, i); face != 0) return {{}, face};
  const char32_t first = CodeAt(tokens, i);
  if (!IsPicture(first) || first < 0x2000) return {};
  std::string sign;
  Picture best{{}, i + 1};
  std::size_t end = i;
  for (; end < i + kMostParts; ++end) {
    const char32_t code = CodeAt(tokens, end);
    if (end > i && !IsMark(code) && CodeAt(tokens, end - 1) != 0x200D &&
        !(IsRegion(code) && end == i + 1 && IsRegion(first)))
      break;
    if (code != 0xFE0F && !(code >= 0x1F3FB && code <= 0x1F3FF)) sign += tokens.View(end);
    if (const auto name = NameOf(sign); !name.empty()) best = {name, end + 1};
    if (best.end == end && IsMark(code) && code != 0x200D) best.end = end + 1;
  }
  return best;
}

}  // namespace lorelin
