#include "export/emphasis.h"

namespace lorelin {
namespace {

class Tidying {
 public:
  void Add(char c, std::size_t source) {
    const bool blank = c == '\t' || c == ' ';
    if (c != '\n' && !blank && static_cast<unsigned char>(c) < 0x20) return;
    if (c == '\n' && !text_.text.empty() && text_.text.back() == ' ') Shorten(text_.text.size() - 1);
    const bool begins = text_.text.empty() || text_.text.back() == ' ' || text_.text.back() == '\n';
    if (begins && (blank || c == '\n')) return;
    text_.text += blank ? ' ' : c;
    text_.sources.push_back(source);
  }
  SourcedText Finish() {
    Shorten(text_.text.find_last_not_of(" \n") + 1);
    return std::move(text_);
  }

 private:
  void Shorten(std::size_t size) {
    text_.text.resize(size);
    text_.sources.resize(size);
  }

  SourcedText text_;
};

}  // namespace

SourcedText Tidied(std::string_view text, std::size_t first) {
  Tidying tidying;
  for (std::size_t i = 0; i < text.size(); ++i) tidying.Add(text[i], first + i);
  return tidying.Finish();
}

CharacterFormat Emphases::At(std::size_t source) {
  while (!runs_.empty() && passed_ + runs_.front().bytes <= source) {
    passed_ += runs_.front().bytes;
    runs_ = runs_.subspan(1);
  }
  return runs_.empty() ? CharacterFormat{} : runs_.front().format;
}

std::vector<Emphasis> Emphases::Of(const SourcedText& text) {
  std::vector<Emphasis> emphasis;
  const auto isBlank = [&](std::size_t i) { return text.text[i] == ' ' || text.text[i] == '\n'; };
  for (std::size_t i = 0; i < text.text.size(); ++i) {
    const CharacterFormat format = At(text.sources[i]);
    if (!format.bold && !format.italic) continue;
    const bool goesOn = !emphasis.empty() && emphasis.back().end == i &&
                        emphasis.back().bold == format.bold && emphasis.back().italic == format.italic;
    if (!goesOn) emphasis.push_back({i, i, format.bold, format.italic});
    emphasis.back().end = i + 1;
  }
  // A blank in front of a word often has the word's format.
  for (Emphasis& piece : emphasis) {
    while (piece.begin < piece.end && isBlank(piece.begin)) ++piece.begin;
    while (piece.begin < piece.end && isBlank(piece.end - 1)) --piece.end;
  }
  std::erase_if(emphasis, [](const Emphasis& piece) { return piece.begin == piece.end; });
  return emphasis;
}

}  // namespace lorelin
