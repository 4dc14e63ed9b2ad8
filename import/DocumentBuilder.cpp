#include "import/DocumentBuilder.h"

#include <algorithm>
#include <array>

#include "base/textEncoding.h"
#include "import/importErrors.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

bool IsSpace(char32_t c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == 0x85 || c == 0x2028 ||
         c == 0x2029;
}

// Characters that nobody sees or hears: controls, soft hyphen, marks of writing direction, byte-order mark.
bool IsInvisible(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0xAD || c == 0x200B || c == 0x200E || c == 0x200F ||
         (c >= 0x202A && c <= 0x202E) || (c >= 0x2060 && c <= 0x2069) || c == 0xFEFF ||
         (c >= 0xFFF9 && c <= 0xFFFB) || (c & 0xFFFEU) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF) ||
         c >= 0xE0000;
}

// Calls `use` with each well-formed character of the text and its bytes.
template <typename F>
void ForEachCharacter(std::string_view text, F use) {
  while (!text.empty()) {
    const std::size_t size = Utf8Length(text);
    if (size == 0) {
      use(char32_t{0xFFFD}, std::string_view("\uFFFD"));
      text.remove_prefix(1);
      continue;
    }
    use(FirstCharacter(text), text.substr(0, size));
    text.remove_prefix(size);
  }
}

std::uint16_t HeadingSize(int level) {
  static constexpr std::array<std::uint16_t, 4> kSizes{40, 34, 30, 26};
  return kSizes[static_cast<std::size_t>(std::clamp(level, 1, 4)) - 1];
}

}  // namespace

void DocumentBuilder::Put(std::string_view text) {
  std::string& all = document_.text.text;
  if (text.size() > kMostBytes - all.size()) throw DocumentTooLarge();
  all += text;
  characters_ += CharacterCount(text);
  auto& runs = document_.text.runs;
  if (runs.empty() || runs.back().format != format_) runs.push_back({0, format_});
  runs.back().bytes += text.size();
}

void DocumentBuilder::AddParagraphs(std::size_t count, const ParagraphFormat& format) {
  auto& runs = document_.text.paragraphs;
  if (runs.empty() || runs.back().format != format) runs.push_back({0, format});
  runs.back().paragraphs += count;
}

void DocumentBuilder::EndParagraph() {
  AddParagraphs(1, written_);
  if (breaks_ > 1) AddParagraphs(1, {});
  // Ends of paragraphs are in no format of their own.
  const CharacterFormat format = std::exchange(format_, {});
  Put(breaks_ > 1 ? "\n\n" : "\n");
  format_ = format;
}

void DocumentBuilder::ResolveAnchors() {
  for (std::string& name : newAnchors_) anchors_.emplace(std::move(name), characters_);
  newAnchors_.clear();
}

void DocumentBuilder::WriteDue() {
  if (characters_ > 0 && breaks_ > 0) {
    EndParagraph();
    blank_ = false;
  }
  if (characters_ == 0 || breaks_ > 0) written_ = paragraph_;
  const bool begins = characters_ == 0 || breaks_ > 0;
  breaks_ = 0;
  WriteMark();
  if (blank_ && !begins) Put(" ");
  blank_ = false;
  ResolveAnchors();
  for (Heading& heading : headings_) {
    if (heading.hasText) continue;
    heading.hasText = true;
    heading.byte = document_.text.text.size();
    heading.position = characters_;
  }
}

void DocumentBuilder::WriteMark() {
  if (rows_ > 0) {
    if (std::exchange(cellBegins_, false) && rowHasText_) {
      Put(";");
      blank_ = true;
    }
    rowHasText_ = true;
  }
  if (mark_.empty()) return;
  const CharacterFormat format = std::exchange(format_, {});
  Put(mark_);
  format_ = format;
  mark_.clear();
}

void DocumentBuilder::PutCharacter(std::string_view character) {
  if (breaks_ > 0 || blank_ || !mark_.empty() || !newAnchors_.empty() || cellBegins_ || characters_ == 0 ||
      (rows_ > 0 && !rowHasText_) || (!headings_.empty() && !headings_.back().hasText)) {
    WriteDue();
  }
  Put(character);
}

void DocumentBuilder::Text(std::string_view text) {
  ForEachCharacter(text, [this](char32_t c, std::string_view bytes) {
    if (IsSpace(c)) {
      blank_ = true;
    } else if (!IsInvisible(c)) {
      PutCharacter(bytes);
    }
  });
}

void DocumentBuilder::Preformatted(std::string_view text) {
  ForEachCharacter(text, [this](char32_t c, std::string_view bytes) {
    if (c == '\n') {
      if (mark_.find_first_not_of(' ') == std::string::npos) mark_.clear();
      LineBreak();
    } else if (c == ' ' && (breaks_ > 0 || characters_ == 0)) {
      mark_ += ' ';
    } else if (c == ' ' && blank_) {
      WriteDue();
      blank_ = true;
    } else if (IsSpace(c)) {
      blank_ = true;
    } else if (!IsInvisible(c)) {
      PutCharacter(bytes);
    }
  });
}

void DocumentBuilder::Break(Gap gap) {
  if (rows_ > 0) {
    blank_ = true;
    return;
  }
  breaks_ = std::max(breaks_, static_cast<int>(gap));
  blank_ = false;
}

void DocumentBuilder::LineBreak() {
  if (rows_ > 0 || !headings_.empty()) {
    blank_ = true;
    return;
  }
  if (characters_ > 0) breaks_ = std::min(breaks_ + 1, 2);
  blank_ = false;
}

void DocumentBuilder::BeginRow() {
  if (rows_ == 0) Break(Gap::Line);
  if (rows_++ == 0) rowHasText_ = cellBegins_ = false;
}

void DocumentBuilder::BeginCell() {
  cellBegins_ = true;
}

void DocumentBuilder::EndRow() {
  if (--rows_ > 0) return;
  cellBegins_ = false;
  Break(Gap::Line);
}

void DocumentBuilder::BeginHeading(int level) {
  Break(Gap::Paragraph);
  headings_.push_back({level, 0, 0, false, format_});
  format_.bold = true;
  format_.halfPoints = HeadingSize(level);
}

void DocumentBuilder::EndHeading() {
  if (headings_.empty()) return;
  const Heading heading = headings_.back();
  headings_.pop_back();
  format_ = heading.before;
  if (heading.hasText) AddChapter(document_.text.text.substr(heading.byte), heading.level, heading.position);
  Break(Gap::Paragraph);
}

void DocumentBuilder::AddChapter(std::string_view title, int level, std::size_t position) {
  std::string line = OneLine(title);
  if (!line.empty()) document_.info.chapters.push_back({std::move(line), std::max(level, 1), position});
}

ImportedDocument DocumentBuilder::Finish() {
  ResolveAnchors();
  if (characters_ > 0) AddParagraphs(1, written_);
  DocumentInfo& info = document_.info;
  for (std::string* const line : {&info.title, &info.author, &info.language}) *line = OneLine(*line);
  for (Chapter& chapter : info.chapters) chapter.position = std::min(chapter.position, characters_);
  std::stable_sort(info.chapters.begin(), info.chapters.end(),
                   [](const Chapter& a, const Chapter& b) { return a.position < b.position; });
  return std::move(document_);
}

std::string OneLine(std::string_view text) {
  std::string line;
  bool blank = false;
  ForEachCharacter(text, [&](char32_t c, std::string_view bytes) {
    if (IsSpace(c) || c == 0xA0) {
      blank = !line.empty();
    } else if (!IsInvisible(c)) {
      if (std::exchange(blank, false)) line += ' ';
      line += bytes;
    }
  });
  return line;
}

}  // namespace lorelin
