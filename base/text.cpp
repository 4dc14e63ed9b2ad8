#include "base/text.h"

#include <algorithm>

namespace lorelin {

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

}  // namespace lorelin
