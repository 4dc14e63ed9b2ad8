#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "german/SpokenText.h"
#include "german/ownWords.h"
#include "german/textRules.h"
#include "german/tokens.h"

namespace lorelin {

struct SpellingOptions {
  WordList ownWords;
  bool speakEmoji = true;  // by their German names; else they are left out
  TextRules rules;         // the user's replacements, before everything else
};

// Reads German text as a person would: abbreviations, dates, ordinals, times, sums, units, telephone numbers,
// Roman numerals and more in words, each in the gender, case and number that its sentence asks for.
// Everything else stays as it is, byte for byte, whatever bytes they are. A sentence that was spelled out
// once stays the same, unless a word or rule of the user's own changes it again. The time grows with the
// size.
class GermanSpeller {
 public:
  explicit GermanSpeller(SpellingOptions options = {});

  // A whole text. Spelled out piece by piece it is the same: see PieceEnd.
  [[nodiscard]] SpokenText SpellOut(std::string_view text) const;

  // Where the piece that begins at `begin` may be cut, so that a long text need not wait for its end: behind
  // a sentence, or behind a line when the user has rules.
  [[nodiscard]] std::size_t PieceEnd(std::string_view text, std::size_t begin) const;

 private:
  using Index = std::map<char32_t, std::vector<std::size_t>>;

  struct OwnMatch {
    const OwnWord* word = nullptr;
    std::size_t end = 0;  // the byte behind
  };
  [[nodiscard]] OwnMatch OwnWordAt(const Tokens& tokens, std::size_t i) const;
  [[nodiscard]] SpokenText SpellSentences(std::string_view text, bool withOwnWords) const;
  [[nodiscard]] SpokenText SpellSentence(const Tokens& tokens, bool withOwnWords) const;
  [[nodiscard]] SpokenText SpellUntilItStays(const Tokens& tokens, bool withOwnWords) const;

  SpellingOptions options_;
  Index ownWords_;  // by their first letter in small: where they stand in the options
};

// A whole text with the usual options.
[[nodiscard]] SpokenText SpellOut(std::string_view text);

}  // namespace lorelin
