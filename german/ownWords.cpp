#include "german/ownWords.h"

#include <algorithm>

namespace lorelin {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t\r");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

void ParseLine(std::string_view line, WordList& list) {
  line = Trimmed(line);
  const auto equals = line.find('=');
  if (line.starts_with('#') || equals == std::string_view::npos) return;
  std::string_view written = Trimmed(line.substr(0, equals));
  OwnWord word;
  if (written.size() > 1 && written.starts_with('~')) {
    word.matchCase = false;
    written.remove_prefix(1);
  }
  if (written.size() > 1 && written.ends_with('*')) {
    word.wholeWord = false;
    written.remove_suffix(1);
  }
  word.written = Trimmed(written);
  word.spoken = Trimmed(line.substr(equals + 1));
  if (!word.written.empty()) list.push_back(std::move(word));
}

}  // namespace

WordList ParseWordList(std::string_view text) {
  WordList list;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const auto end = text.find('\n');
    ParseLine(text.substr(0, end), list);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  std::stable_sort(list.begin(), list.end(),
                   [](const OwnWord& a, const OwnWord& b) { return a.written.size() > b.written.size(); });
  return list;
}

std::string WordListLine(const OwnWord& word) {
  return (word.matchCase ? "" : "~") + word.written + (word.wholeWord ? "" : "*") + " = " + word.spoken;
}

}  // namespace lorelin
