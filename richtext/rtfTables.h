#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "richtext/RichText.h"
#include "richtext/rtfWords.h"

// The destinations of an RTF file that hold tables: fonts and colours.
namespace lorelin::rtf {

struct Font {
  std::uint16_t index = 0;  // in RichText::fonts
  int codePage = 0;         // 0 for that of the document
};

class FontTable {
 public:
  void Apply(Word word, std::optional<int> number);
  // A character of the name of the font that is being read.
  void Append(char32_t code);
  // A group inside the table ends one entry of it; text may stand there without a semicolon.
  [[nodiscard]] bool HasName() const { return !name_.empty(); }
  // The font that was read is whole: its number, and what it is; nothing when the table is full.
  std::optional<std::pair<int, Font>> EndFont();

  [[nodiscard]] std::optional<Font> Find(int number) const;
  // The names, each once, in the order of Font::index.
  [[nodiscard]] std::vector<std::string> TakeNames() { return std::move(names_); }

 private:
  [[nodiscard]] std::uint16_t IndexOf(const std::string& name);

  std::map<int, Font> fonts_;
  std::map<std::string, std::uint16_t> index_;
  std::vector<std::string> names_{std::string()};  // the first is the reader's own
  int number_ = 0;
  int codePage_ = 0;
  std::string name_;
};

class ColourTable {
 public:
  void Apply(Word word, int number);
  void EndColour();
  // The automatic one for a number that the table does not have.
  [[nodiscard]] Colour At(int number) const;

 private:
  std::vector<Colour> colours_;
  Colour colour_ = kAutomaticColour;
};

}  // namespace lorelin::rtf
