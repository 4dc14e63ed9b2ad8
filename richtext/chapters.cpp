#include "richtext/chapters.h"

#include <algorithm>
#include <string_view>

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

bool IsHeading(const ParagraphRun& run) {
  return run.format.outlineLevel != 0;
}

}  // namespace

void MarkHeadings(RichText& text, const std::vector<Chapter>& chapters) {
  if (!text.paragraphs.empty() || chapters.empty()) return;
  Paragraphs paragraphs(text.text);
  auto chapter = chapters.begin();
  while (!paragraphs.AtEnd() && chapter != chapters.end()) {
    const std::size_t position = paragraphs.Position();
    const std::string_view paragraph = paragraphs.Next();
    ParagraphFormat format;
    for (; chapter != chapters.end() && chapter->position < paragraphs.Position(); ++chapter) {
      if (chapter->position == position && chapter->level > 0 && chapter->level < 10 &&
          OneLine(paragraph) == chapter->title)
        format.outlineLevel = static_cast<std::uint8_t>(chapter->level);
    }
    if (!text.paragraphs.empty() && text.paragraphs.back().format == format) {
      ++text.paragraphs.back().paragraphs;
    } else {
      text.paragraphs.push_back({1, format});
    }
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
