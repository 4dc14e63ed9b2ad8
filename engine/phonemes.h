#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EspeakLibrary.h"

namespace lorelin::engine {

// A word that begins with one of the sounds.
struct WordStart {
  std::size_t character = 0;  // of the text
  std::size_t symbol = 0;     // of the clause
};

// A part of a text between two signs, and how it sounds: the International Phonetic Alphabet, every letter
// and every mark above or below it a symbol of its own, words with a blank between them.
struct Clause {
  std::u32string symbols;
  std::vector<WordStart> words;  // in order; not every word is known
  char32_t sign = U'.';          // that it ends with
  bool endsSentence = true;
};

// The clauses of a text, one after the other. The text is valid UTF-8 and no longer than what libespeak-ng
// takes at once (NextPiece).
class Phonemizer {
 public:
  // The library speaks with this voice until the last clause was asked for. A voice that it does not know
  // has no clauses.
  Phonemizer(EspeakLibrary& library, const std::string& voice, std::string text);

  // None when there is no more.
  [[nodiscard]] std::optional<Clause> Next();

 private:
  struct Part {
    std::size_t end = 0;  // in the text
    std::u32string symbols;
  };

  // All of the text: the library remembers from one clause to the next what it has read ahead, so that it
  // must not be given anything else in between.
  void ReadParts();
  // Where the library stopped, without what it has read ahead.
  [[nodiscard]] std::size_t PartEnd(std::size_t begin, std::size_t stopped) const;
  void FindWords(std::string_view part, Clause& clause) const;

  const std::string text_;
  std::deque<Part> parts_;
  std::size_t next_ = 0;
  std::size_t character_ = 0;  // that stands at next_
};

// The symbols of what the library gives: decomposed, without the marks "(en)" of a change of language.
[[nodiscard]] std::u32string Symbols(std::string_view phonemes);

// A letter with its mark as two symbols; what has none stays alone.
[[nodiscard]] std::u32string Decomposed(char32_t symbol);

}  // namespace lorelin::engine
