#include "richtext/chapters.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

// Goes through a text paragraph by paragraph.
class Paragraphs {
 public:
  explicit Paragraphs(std::string_view text) : rest_(text) {}

  [[nodiscard]] std::size_t Position() const { return position_; }
  [[nodiscard]] bool AtEnd() const { return atEnd_; }
  std::string_view Next() {
    const std::size_t end = rest_.find('\n');
    atEnd_ = end == std::string_view::npos;
    const std::string_view paragraph = rest_.substr(0, end);
    rest_.remove_prefix(atEnd_ ? rest_.size() : end + 1);
    position_ += CharacterCount(paragraph) + 1;
    return paragraph;
  }

 private:
  std::string_view rest_;
  std::size_t position_ = 0;
  bool atEnd_ = false;
};

std::string OneLine(std::string_view heading) {
  std::string title;
  for (const char c : heading) {
    const bool blank = c == ' ' || c == '\t' || c == '\r';
    if (!blank) {
      title += c;
    } else if (!title.empty() && title.back() != ' ') {
      title += ' ';
    }
  }
  if (title.ends_with(' ')) title.pop_back();
  return title;
}

// The formats of paragraphs, one after the other; those behind the last have none of their own.
class FormatsInOrder {
 public:
  explicit FormatsInOrder(std::vector<ParagraphRun> runs) : runs_(std::move(runs)) {}

  ParagraphFormat Next() {
    while (run_ < runs_.size() && done_ >= runs_[run_].paragraphs) {
      ++run_;
      done_ = 0;
    }
    ++done_;
    return run_ < runs_.size() ? runs_[run_].format : ParagraphFormat{};
  }

 private:
  std::vector<ParagraphRun> runs_;
  std::size_t run_ = 0;
  std::size_t done_ = 0;  // of that run
};

void Add(std::vector<ParagraphRun>& runs, const ParagraphFormat& format) {
  if (runs.empty() || !(runs.back().format == format)) runs.push_back({0, format});
  ++runs.back().paragraphs;
}

bool IsHeading(const ParagraphRun& run) {
  return run.format.outlineLevel != 0;
}

}  // namespace

void MarkHeadings(RichText& text, const std::vector<Chapter>& chapters) {
  if (chapters.empty()) return;
  FormatsInOrder before(std::exchange(text.paragraphs, {}));
  Paragraphs paragraphs(text.text);
  auto chapter = chapters.begin();
  while (!paragraphs.AtEnd()) {
    const std::size_t position = paragraphs.Position();
    const std::string_view paragraph = paragraphs.Next();
    ParagraphFormat format = before.Next();
    for (; chapter != chapters.end() && chapter->position < paragraphs.Position(); ++chapter) {
      if (chapter->position == position && chapter->level > 0 && chapter->level < 10 &&
          OneLine(paragraph) == chapter->title)
        format.outlineLevel = static_cast<std::uint8_t>(chapter->level);
    }
    Add(text.paragraphs, format);
  }
}

std::vector<Chapter> ChaptersOf(const RichText& text) {
  std::vector<Chapter> chapters;
  if (std::ranges::none_of(text.paragraphs, IsHeading)) return chapters;
  Paragraphs paragraphs(text.text);
  for (const ParagraphRun& run : text.paragraphs) {
    for (std::size_t i = 0; i < run.paragraphs && !paragraphs.AtEnd(); ++i) {
      const std::size_t position = paragraphs.Position();
      const std::string_view paragraph = paragraphs.Next();
      if (!IsHeading(run)) continue;
      std::string title = OneLine(paragraph);
      if (!title.empty()) chapters.push_back({std::move(title), run.format.outlineLevel, position});
    }
  }
  return chapters;
}

}  // namespace lorelin
