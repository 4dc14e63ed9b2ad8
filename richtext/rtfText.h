#pragma once

#include "richtext/RichText.h"

namespace lorelin::rtf {

// Puts the text of an RTF file together, with the runs and paragraphs of its formats.
class TextBuilder {
 public:
  void Append(char32_t code, const CharacterFormat& format, const ParagraphFormat& paragraph);
  void EndParagraph(const CharacterFormat& format, const ParagraphFormat& paragraph);
  // The tab behind the last cell of a table's row separates nothing.
  void DropLastTab();
  // The whole text, its fonts still to be named.
  [[nodiscard]] RichText Finish();

 private:
  void AddParagraph(const ParagraphFormat& format);
  void DropLast();

  RichText result_;
  ParagraphFormat lastParagraph_;  // of the text appended last
};

}  // namespace lorelin::rtf
