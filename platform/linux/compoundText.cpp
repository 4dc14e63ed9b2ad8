#include "platform/linux/compoundText.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace lorelin {
namespace {

constexpr char kEscape = '\x1B';
constexpr unsigned char kControlSequence = 0x9B;

struct Set {
  char letter;  // at the end of its escape sequence
  const char* encoding;
};

// Sets of 96 characters, which stand in the upper half.
constexpr std::array kSingle{Set{'A', "ISO-8859-1"},  Set{'B', "ISO-8859-2"},  Set{'C', "ISO-8859-3"},
                             Set{'D', "ISO-8859-4"},  Set{'F', "ISO-8859-7"},  Set{'G', "ISO-8859-6"},
                             Set{'H', "ISO-8859-8"},  Set{'L', "ISO-8859-5"},  Set{'M', "ISO-8859-9"},
                             Set{'Y', "ISO-8859-13"}, Set{'_', "ISO-8859-14"}, Set{'b', "ISO-8859-15"},
                             Set{'f', "ISO-8859-16"}};
// Sets of two bytes a character, in the form in which both have their highest bit.
constexpr std::array kDouble{Set{'A', "GB2312"}, Set{'B', "EUC-JP"}, Set{'C', "EUC-KR"}};

template <std::size_t count>
const char* EncodingOf(const std::array<Set, count>& sets, char letter) {
  const auto found = std::find_if(sets.begin(), sets.end(), [&](const Set& s) { return s.letter == letter; });
  return found != sets.end() ? found->encoding : nullptr;
}

std::string Converted(std::string bytes, const char* encoding) {
  if (encoding == nullptr || bytes.empty()) return {};
  const iconv_t converter = iconv_open("UTF-8", encoding);
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return {};
  std::string text(bytes.size() * 4, '\0');
  char* from = bytes.data();
  std::size_t fromLeft = bytes.size();
  char* to = text.data();
  std::size_t toLeft = text.size();
  iconv(converter, &from, &fromLeft, &to, &toLeft);
  iconv_close(converter);
  text.resize(text.size() - toLeft);
  return text;
}

class Decoder {
 public:
  explicit Decoder(std::string_view bytes) : rest_(bytes) {}

  std::string Run() {
    while (!rest_.empty()) {
      if (rest_.front() == kEscape) {
        Escape();
      } else if (static_cast<unsigned char>(rest_.front()) == kControlSequence) {
        Skip(rest_.find(']') + 1);  // the direction of writing
      } else {
        Text();
      }
    }
    return std::move(text_);
  }

 private:
  // 0 stands for "to the end".
  void Skip(std::size_t count) {
    rest_.remove_prefix(count == 0 ? rest_.size() : std::min(count, rest_.size()));
  }

  // The character at a place, or 0.
  [[nodiscard]] char At(std::size_t place) const { return place < rest_.size() ? rest_[place] : '\0'; }

  void Escape() {
    switch (At(1)) {
      case '(':
        lower_ = nullptr;
        return Skip(3);
      case ')':
        upper_ = nullptr;
        return Skip(3);
      case '-':
        upper_ = EncodingOf(kSingle, At(2));
        return Skip(3);
      case '$':
        (At(2) == ')' ? upper_ : lower_) = EncodingOf(kDouble, At(3));
        return Skip(4);
      case '%':
        return At(2) == 'G' ? Utf8() : At(2) == '/' ? ExtendedSegment() : Skip(3);
      default:
        return Skip(2);
    }
  }

  void Utf8() {
    Skip(3);
    const auto end = rest_.find("\x1B%@");
    text_ += rest_.substr(0, end);
    Skip(end == std::string_view::npos ? 0 : end + 3);
  }

  // ESC % / F, a length of two bytes, the name of the encoding, STX, the bytes in it.
  void ExtendedSegment() {
    const auto size = static_cast<std::size_t>(At(4) & 0x7F) * 128 + static_cast<std::size_t>(At(5) & 0x7F);
    const std::string_view segment = rest_.substr(std::min<std::size_t>(6, rest_.size()), size);
    const auto end = segment.find('\x02');
    if (end != std::string_view::npos) {
      text_ += Converted(std::string(segment.substr(end + 1)), std::string(segment.substr(0, end)).c_str());
    }
    Skip(6 + size);
  }

  // Bytes up to the next sequence that belong to one half.
  void Text() {
    const bool upper = (rest_.front() & 0x80) != 0;
    const auto* const end = std::find_if(rest_.begin(), rest_.end(), [&](char c) {
      return c == kEscape || ((c & 0x80) != 0) != upper || static_cast<unsigned char>(c) == kControlSequence;
    });
    std::string bytes(rest_.begin(), end);
    rest_.remove_prefix(bytes.size());
    const char* const set = upper ? upper_ : lower_;
    if (!upper && set == nullptr) {
      text_ += bytes;
      return;
    }
    for (char& byte : bytes) byte = static_cast<char>(byte | 0x80);
    text_ += Converted(std::move(bytes), set);
  }

  std::string_view rest_;
  std::string text_;
  const char* lower_ = nullptr;  // ASCII
  const char* upper_ = "ISO-8859-1";
};

}  // namespace

std::string FromCompoundText(std::string_view bytes) {
  return Decoder(bytes).Run();
}

}  // namespace lorelin
