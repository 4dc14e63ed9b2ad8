#include "richtext/rtfTables.h"

#include <algorithm>
#include <cstddef>

#include "base/textEncoding.h"

namespace lorelin::rtf {
namespace {

constexpr std::size_t kMostFonts = 65000;
constexpr std::size_t kMostColours = 65536;

int CodePageOfCharset(int charset) {
  static const std::map<int, int> kCharsets{{0, 1252},   {77, 10000}, {161, 1253}, {162, 1254}, {163, 1258},
                                            {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},
                                            {238, 1250}, {254, 437},  {255, 850}};
  const auto found = kCharsets.find(charset);
  return found != kCharsets.end() ? found->second : 0;
}

std::string WithoutLeadingBlanks(const std::string& name) {
  const auto begin = name.find_first_not_of(' ');
  return begin == std::string::npos ? std::string() : name.substr(begin);
}

}  // namespace

void FontTable::Apply(Word word, std::optional<int> number) {
  if (word == Word::FontNumber) {
    number_ = number.value_or(0);
    codePage_ = 0;
  } else if (word == Word::FontCharset) {
    codePage_ = CodePageOfCharset(number.value_or(0));
  } else if (word == Word::FontCodePage) {
    codePage_ = number.value_or(0);
  }
}

void FontTable::Append(char32_t code) {
  AppendUtf8(name_, code);
}

std::optional<std::pair<int, Font>> FontTable::EndFont() {
  const std::string name = WithoutLeadingBlanks(std::exchange(name_, {}));
  if (fonts_.size() >= kMostFonts) return std::nullopt;
  const Font font{.index = IndexOf(name), .codePage = codePage_};
  fonts_[number_] = font;
  return std::pair(number_, font);
}

std::uint16_t FontTable::IndexOf(const std::string& name) {
  const auto [entry, added] = index_.try_emplace(name, static_cast<std::uint16_t>(names_.size()));
  if (added && !name.empty()) names_.push_back(name);
  if (name.empty()) entry->second = 0;
  return entry->second;
}

std::optional<Font> FontTable::Find(int number) const {
  const auto found = fonts_.find(number);
  return found == fonts_.end() ? std::nullopt : std::optional(found->second);
}

void ColourTable::Apply(Word word, int number) {
  const Colour part = std::clamp(number, 0, 255);
  if (word == Word::Red) colour_ = (colour_ < 0 ? 0 : colour_ & 0x00FFFF) | part << 16;
  if (word == Word::Green) colour_ = (colour_ < 0 ? 0 : colour_ & 0xFF00FF) | part << 8;
  if (word == Word::Blue) colour_ = (colour_ < 0 ? 0 : colour_ & 0xFFFF00) | part;
}

void ColourTable::EndColour() {
  if (colours_.size() < kMostColours) colours_.push_back(std::exchange(colour_, kAutomaticColour));
}

Colour ColourTable::At(int number) const {
  const auto index = static_cast<std::size_t>(std::max(number, 0));
  return index < colours_.size() ? colours_[index] : kAutomaticColour;
}

}  // namespace lorelin::rtf
