#include "export/listItems.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::string_view kBullet = "•";

// What a paragraph begins with, and how many bytes that takes with the blank behind.
struct Mark {
  ListItem item;
  std::size_t bytes = 0;
};

// "1.", of at most three digits: a longer number is a year.
std::optional<Mark> NumberIn(std::string_view text) {
  constexpr std::size_t kMostDigits = 3;
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto digits = static_cast<std::size_t>(result.ptr - text.data());
  if (digits == 0 || digits > kMostDigits || number < 1 || digits == text.size()) return std::nullopt;
  if (text[digits] != '.') return std::nullopt;
  return Mark{.item = {.kind = ListKind::Numbers, .number = number}, .bytes = digits + 1};
}

std::optional<Mark> MarkIn(std::string_view text) {
  if (!text.starts_with(kBullet)) return NumberIn(text);
  return Mark{.item = {.kind = ListKind::Bullets}, .bytes = kBullet.size()};
}

// Of a paragraph that holds something beside it.
std::optional<Mark> MarkOf(const SpokenParagraph& paragraph) {
  if (paragraph.level > 0) return std::nullopt;
  const std::string_view text = paragraph.sentences.front().text;
  std::optional<Mark> mark = MarkIn(text);
  if (!mark) return std::nullopt;
  if (text.size() == mark->bytes) return paragraph.sentences.size() > 1 ? mark : std::nullopt;
  if (text[mark->bytes] != ' ') return std::nullopt;
  ++mark->bytes;
  return mark;
}

// The first sentence without the mark; one that is nothing else gives its sound to the next.
void TakeMark(SpokenParagraph& paragraph, const Mark& mark) {
  paragraph.item = mark.item;
  SpokenSentence& first = paragraph.sentences.front();
  if (first.text.size() <= mark.bytes) {
    SpokenSentence& next = paragraph.sentences[1];
    if (first.clip && next.clip) next.clip->begin = first.clip->begin;
    if (!next.clip) next.clip = first.clip;
    paragraph.sentences.erase(paragraph.sentences.begin());
    return;
  }
  first.text.erase(0, mark.bytes);
  for (Emphasis& piece : first.emphasis) {
    piece.begin -= std::min(piece.begin, mark.bytes);
    piece.end -= std::min(piece.end, mark.bytes);
  }
  std::erase_if(first.emphasis, [](const Emphasis& piece) { return piece.begin == piece.end; });
}

// Paragraphs that follow each other and all begin with a mark.
class Group {
 public:
  explicit Group(std::vector<SpokenParagraph>& paragraphs) : paragraphs_(paragraphs) {}

  void Add(std::size_t paragraph, const Mark& mark) {
    if (mark.item.kind == ListKind::Numbers) {
      counts_ |= lastNumber_ + 1 == mark.item.number && lastNumber_ > 0;
      lastNumber_ = mark.item.number;
    }
    marks_.emplace_back(paragraph, mark);
  }
  // A number alone is a date, or whatever else begins with one.
  void Finish() {
    for (const auto& [paragraph, mark] : marks_) {
      if (mark.item.kind == ListKind::Bullets || counts_) TakeMark(paragraphs_[paragraph], mark);
    }
    marks_.clear();
    lastNumber_ = 0;
    counts_ = false;
  }

 private:
  std::vector<SpokenParagraph>& paragraphs_;
  std::vector<std::pair<std::size_t, Mark>> marks_;
  int lastNumber_ = 0;
  bool counts_ = false;  // two numbers follow each other
};

// 0 for a line without a number.
int NumberOf(std::string_view line) {
  const auto mark = NumberIn(line);
  return mark ? mark->item.number : 0;
}

std::string_view LineAt(std::string_view text) {
  return text.substr(0, text.find('\n'));
}

}  // namespace

std::vector<std::size_t> LinesOfLists(std::string_view text, std::size_t first) {
  std::vector<std::size_t> lines;
  int before = 0;  // the number of the line in front
  while (true) {
    const std::string_view line = LineAt(text);
    const std::string_view behind = text.substr(std::min(line.size() + 1, text.size()));
    const int number = NumberOf(line);
    const bool counts = number > 0 && (number == before + 1 || NumberOf(LineAt(behind)) == number + 1);
    if (counts || line.starts_with(kBullet)) lines.push_back(first);
    if (behind.empty()) return lines;
    before = counts ? number : 0;
    first += CharacterCount(line) + 1;
    text = behind;
  }
}

void FindListItems(std::vector<SpokenParagraph>& paragraphs) {
  Group group(paragraphs);
  for (std::size_t i = 0; i < paragraphs.size(); ++i) {
    if (const auto mark = MarkOf(paragraphs[i])) {
      group.Add(i, *mark);
    } else {
      group.Finish();
    }
  }
  group.Finish();
}

}  // namespace lorelin
