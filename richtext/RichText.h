#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

// 0xRRGGBB, or kAutomaticColour for the reader's own.
using Colour = std::int32_t;
inline constexpr Colour kAutomaticColour = -1;

enum class ScriptPosition : std::uint8_t { Normal, Superscript, Subscript };
enum class Alignment : std::uint8_t { Left, Centred, Right, Justified };

struct CharacterFormat {
  std::uint16_t font = 0;        // index into RichText::fonts
  std::uint16_t halfPoints = 0;  // size; 0 for the reader's own
  Colour foreground = kAutomaticColour;
  Colour background = kAutomaticColour;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeThrough = false;
  ScriptPosition position = ScriptPosition::Normal;

  bool operator==(const CharacterFormat&) const = default;
};

// Indents in twips (1/1440 inch).
struct ParagraphFormat {
  Alignment alignment = Alignment::Left;
  std::int32_t leftIndent = 0;
  std::int32_t rightIndent = 0;
  std::int32_t firstLineIndent = 0;  // of the first line, added to the left one
  std::uint8_t outlineLevel = 0;     // of a heading, 1 for the outermost; 0 for all other text

  bool operator==(const ParagraphFormat&) const = default;
};

// A piece of the text in one format.
struct TextRun {
  std::size_t bytes = 0;
  CharacterFormat format;

  bool operator==(const TextRun&) const = default;
};

// Paragraphs in one format that follow each other.
struct ParagraphRun {
  std::size_t paragraphs = 0;
  ParagraphFormat format;

  bool operator==(const ParagraphRun&) const = default;
};

// A formatted text: UTF-8 with "\n" between paragraphs. The runs cover it from its beginning; what they do
// not reach has the default format.
struct RichText {
  std::string text;
  std::vector<TextRun> runs;
  std::vector<ParagraphRun> paragraphs;
  std::vector<std::string> fonts{std::string()};  // the first is the reader's own

  bool operator==(const RichText&) const = default;
};

}  // namespace lorelin
