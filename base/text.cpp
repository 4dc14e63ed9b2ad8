#include "base/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lorelin {
namespace {

constexpr std::size_t kLongestNumber = 60;  // digits that are compared by their value

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// A number with its length in front, which decides first.
std::string NumbersBySize(std::string_view text) {
  std::string key;
  while (!text.empty()) {
    if (!IsDigit(text[0])) {
      key += text[0];
      text.remove_prefix(1);
      continue;
    }
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    const std::string_view number = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    key += static_cast<char>('0' + std::min(number.size(), kLongestNumber));
    key += number;
    text.remove_prefix(digits.size());
  }
  return key;
}

std::string ListKey(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 7> kUmlauts{
      {{"ä", "a"}, {"ö", "o"}, {"ü", "u"}, {"Ä", "a"}, {"Ö", "o"}, {"Ü", "u"}, {"ß", "ss"}}};
  std::string key = LowerAscii(text);
  for (const auto& [umlaut, letters] : kUmlauts) ReplaceAll(key, umlaut, letters);
  return NumbersBySize(key);
}

}  // namespace

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  if (from.empty()) return;
  std::string replaced;
  std::size_t done = 0;
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, done)) {
    replaced.append(text, done, at - done).append(to);
    done = at + from.size();
  }
  if (done > 0) text = replaced.append(text, done);
}

std::string_view WithoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return lower;
}

std::string WithoutCredentials(std::string_view text) {
  constexpr std::string_view kMark = "://";
  std::string result;
  for (;;) {
    const auto mark = text.find(kMark);
    if (mark == std::string_view::npos) return result.append(text);
    result.append(text.substr(0, mark + kMark.size()));
    text.remove_prefix(mark + kMark.size());
    const auto at = text.substr(0, text.find_first_of("/?#\\ \t\r\n\"'<>")).rfind('@');
    if (at != std::string_view::npos) text.remove_prefix(at + 1);
  }
}

bool ListedBefore(std::string_view a, std::string_view b) {
  return std::pair(ListKey(a), a) < std::pair(ListKey(b), b);
}

}  // namespace lorelin
