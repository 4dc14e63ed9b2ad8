#include "richtext/rtfText.h"

#include <cstddef>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin::rtf {

void TextBuilder::Append(char32_t code, const CharacterFormat& format, const ParagraphFormat& paragraph) {
  const std::size_t before = result_.text.size();
  AppendUtf8(result_.text, code == '\n' || code == '\r' ? ' ' : code);
  auto& runs = result_.runs;
  if (runs.empty() || !(runs.back().format == format)) runs.push_back({0, format});
  runs.back().bytes += result_.text.size() - before;
  lastParagraph_ = paragraph;
}

void TextBuilder::EndParagraph(const CharacterFormat& format, const ParagraphFormat& paragraph) {
  result_.text.push_back('\n');
  if (result_.runs.empty()) result_.runs.push_back({0, format});
  ++result_.runs.back().bytes;
  AddParagraph(paragraph);
}

void TextBuilder::DropLast() {
  result_.text.pop_back();
  --result_.runs.back().bytes;
}

void TextBuilder::DropLastTab() {
  if (result_.text.ends_with('\t')) DropLast();
}

void TextBuilder::AddParagraph(const ParagraphFormat& format) {
  auto& paragraphs = result_.paragraphs;
  if (paragraphs.empty() || !(paragraphs.back().format == format)) paragraphs.push_back({0, format});
  ++paragraphs.back().paragraphs;
}

// Every writer ends the last paragraph, too; that begins no new one.
RichText TextBuilder::Finish() {
  if (result_.text.ends_with('\n')) {
    DropLast();
  } else if (!result_.text.empty()) {
    AddParagraph(lastParagraph_);
  }
  std::erase_if(result_.runs, [](const TextRun& run) { return run.bytes == 0; });
  return std::move(result_);
}

}  // namespace lorelin::rtf
