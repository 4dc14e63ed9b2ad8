#include "cli/spell.h"

#include <algorithm>
#include <string>

#include "german/characters.h"

namespace lorelin::cli {
namespace {

std::string OnOneLine(std::string_view text) {
  std::string line(text);
  std::replace(line.begin(), line.end(), '\n', ' ');
  std::replace(line.begin(), line.end(), '\t', ' ');
  return line;
}

// Walks through a text in characters.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}
  std::string_view TakeTo(std::size_t place) {
    std::size_t bytes = 0;
    for (; place_ < place && bytes < rest_.size(); ++place_) bytes += CharacterAt(rest_, bytes).length;
    const std::string_view taken = rest_.substr(0, bytes);
    rest_.remove_prefix(bytes);
    return taken;
  }
  std::string_view TakeAll() { return rest_; }

 private:
  std::string_view rest_;
  std::size_t place_ = 0;
};

// Calls `each` with every piece of the text, one behind the other.
template <typename Each>
void ForPieces(const GermanSpeller& speller, std::string_view text, const Each& each) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = speller.PieceEnd(text, begin);
    each(text.substr(begin, end - begin));
    begin = end;
  }
}

std::ptrdiff_t LineEnds(std::string_view text) {
  return std::count(text.begin(), text.end(), '\n');
}

}  // namespace

// A replacement that swallows or makes line ends keeps their number.
void PrintSpoken(const GermanSpeller& speller, std::string_view text, std::ostream& out) {
  bool ended = true;
  ForPieces(speller, text, [&](std::string_view piece) {
    const SpokenText spoken = speller.SpellOut(piece);
    Reader reader(spoken.text);
    Reader written(piece);
    std::string printed;
    for (const SpokenRun& run : spoken.runs) {
      printed += reader.TakeTo(run.spokenBegin);
      printed += OnOneLine(reader.TakeTo(run.spokenEnd));
      written.TakeTo(run.writtenBegin);
      printed.append(static_cast<std::size_t>(LineEnds(written.TakeTo(run.writtenEnd))), '\n');
    }
    printed += reader.TakeAll();
    out << printed;
    ended = printed.empty() ? ended : printed.ends_with('\n');
  });
  if (!ended) out << '\n';
}

void PrintTable(const GermanSpeller& speller, std::string_view text, std::ostream& out) {
  std::ptrdiff_t line = 1;
  ForPieces(speller, text, [&](std::string_view piece) {
    const SpokenText spoken = speller.SpellOut(piece);
    Reader reader(spoken.text);
    Reader written(piece);
    for (const SpokenRun& run : spoken.runs) {
      line += LineEnds(written.TakeTo(run.writtenBegin));
      reader.TakeTo(run.spokenBegin);
      const std::string_view replaced = written.TakeTo(run.writtenEnd);
      out << line << '\t' << OnOneLine(replaced) << '\t' << OnOneLine(reader.TakeTo(run.spokenEnd)) << '\n';
      line += LineEnds(replaced);
    }
    line += LineEnds(written.TakeAll());
  });
}

}  // namespace lorelin::cli
