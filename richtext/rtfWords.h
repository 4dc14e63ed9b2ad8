#pragma once

#include <cstdint>
#include <string_view>

// The control words of RTF that mean something here (Microsoft, Rich Text Format Specification,
// version 1.9.1, 2008).
namespace lorelin::rtf {

enum class Word : std::uint8_t {
  Skip,  // a destination whose text is not part of the document
  Drop,  // one in which nothing is, since it says again what stands elsewhere
  Show,  // a destination whose text is, also in one that is skipped
  FontTable,
  ColourTable,
  Text,  // stands for a character
  Paragraph,
  Cell,
  Row,
  Bold,
  Italic,
  Underline,
  NoUnderline,
  Strike,
  Superscript,
  Subscript,
  NormalPosition,
  FontSize,
  FontNumber,
  Foreground,
  Background,
  Plain,
  Hidden,
  ParagraphDefaults,
  Align,
  LeftIndent,
  RightIndent,
  FirstIndent,
  OutlineLevel,
  InTable,
  Unicode,
  FallbackCount,
  Binary,
  CodePageNumber,
  CodePageFixed,
  DefaultFont,
  FontCharset,
  FontCodePage,
  Red,
  Green,
  Blue,
};

struct Entry {
  std::string_view name;
  Word word;
  char32_t value = 0;  // a character, a code page or an alignment, as the word needs
};

// nullptr for a word that means nothing.
[[nodiscard]] const Entry* FindWord(std::string_view name);

}  // namespace lorelin::rtf
