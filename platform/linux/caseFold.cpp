#include "platform/common/caseFold.h"

#include <glib.h>

#include <algorithm>
#include <array>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr gunichar kFinalSigma = 0x3C2;  // the one second small letter that folds with the first

gunichar Capital(gunichar letter) {
  const gunichar capital = g_unichar_toupper(letter);
  return g_unichar_tolower(capital) == letter || letter == kFinalSigma ? capital : letter;
}

void AppendFolded(std::string& folded, std::string_view character) {
  std::array<char, 6> bytes{};
  const int size = g_unichar_to_utf8(Capital(g_utf8_get_char(character.data())), bytes.data());
  folded.append(bytes.data(), static_cast<std::size_t>(size));
}

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

char AsciiCapital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string FoldCase(std::string_view name) {
  std::string folded;
  folded.reserve(name.size());
  while (!name.empty()) {
    const std::size_t length = IsAscii(name[0]) ? 1 : Utf8Length(name);
    if (length < 2) {
      folded.push_back(AsciiCapital(name[0]));
    } else {
      AppendFolded(folded, name.substr(0, length));
    }
    name.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return folded;
}

}  // namespace lorelin
