#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "speech/writtenRange.h"

namespace lorelin {

// The sentences of a text, found as far as somebody has asked: a long text costs nothing before it is read.
// Places are characters.
class SentencePlaces {
 public:
  explicit SentencePlaces(std::string text) : text_(std::move(text)) {}

  // The number of the sentence that holds the character, from 0; the last one's behind the end.
  [[nodiscard]] std::size_t At(std::size_t character);
  [[nodiscard]] bool Exists(std::size_t number);
  // Without the blanks around it; of a sentence that exists.
  [[nodiscard]] CharacterRange Range(std::size_t number);
  // The first sentence of the paragraph that this one belongs to. A paragraph ends with its line.
  [[nodiscard]] std::size_t ParagraphOf(std::size_t number);
  // The first sentence of the paragraph behind; the number behind the last sentence when there is none.
  [[nodiscard]] std::size_t NextParagraph(std::size_t number);

 private:
  struct Place {
    std::size_t byte = 0;
    std::size_t character = 0;
    bool beginsParagraph = true;
  };

  // False at the end of the text.
  bool FindNext();
  [[nodiscard]] bool BeginsParagraph(std::size_t number);

  std::string text_;
  std::vector<Place> begins_{Place{}};  // the last one is where the next sentence begins
  bool complete_ = false;
};

}  // namespace lorelin
