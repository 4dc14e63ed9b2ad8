#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// A word of the user's own: what stands in the text, and how it is spoken.
struct OwnWord {
  std::string written;
  std::string spoken;
  bool wholeWord = true;  // else words that begin with it as well: only their beginning is replaced
  bool matchCase = true;  // else "VBG" is also "vbg"

  bool operator==(const OwnWord&) const = default;
};

// The longest first: it is the one that is taken.
using WordList = std::vector<OwnWord>;

// Lines "Kürzel = Sprechweise". An asterisk behind the Kürzel stands for a beginning of words, a tilde before
// it for any case. Empty lines and those that begin with "#" mean nothing, nor do others.
[[nodiscard]] WordList ParseWordList(std::string_view text);

// The line of such a file that means this word, without its end.
[[nodiscard]] std::string WordListLine(const OwnWord& word);

}  // namespace lorelin
