#include "import/listMarks.h"

#include <array>
#include <utility>

namespace lorelin {
namespace {

std::string Letters(int number, char first) {
  std::string text;
  for (; number > 0; number = (number - 1) / 26) {
    text.insert(text.begin(), static_cast<char>(first + (number - 1) % 26));
  }
  return text;
}

std::string Roman(int number, bool upper) {
  static constexpr std::array<std::pair<int, const char*>, 13> kSigns{{{1000, "m"},
                                                                       {900, "cm"},
                                                                       {500, "d"},
                                                                       {400, "cd"},
                                                                       {100, "c"},
                                                                       {90, "xc"},
                                                                       {50, "l"},
                                                                       {40, "xl"},
                                                                       {10, "x"},
                                                                       {9, "ix"},
                                                                       {5, "v"},
                                                                       {4, "iv"},
                                                                       {1, "i"}}};
  std::string text;
  for (const auto& [value, sign] : kSigns) {
    for (; number >= value; number -= value) text += sign;
  }
  if (upper) {
    for (char& c : text) c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

}  // namespace

std::string ListNumber(int number, std::string_view kind) {
  constexpr int kLargest = 3999;
  if (number < 1 || number > kLargest) return std::to_string(number);
  if (kind == "lowerLetter") return Letters(number, 'a');
  if (kind == "upperLetter") return Letters(number, 'A');
  if (kind == "lowerRoman") return Roman(number, false);
  if (kind == "upperRoman") return Roman(number, true);
  return std::to_string(number);
}

}  // namespace lorelin
