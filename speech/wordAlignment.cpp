#include "speech/wordAlignment.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>

namespace lorelin {
namespace {

constexpr std::size_t kSmallestWindow = 32;  // words of either text that are compared at once
constexpr std::size_t kLargestWindow = 512;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

struct Word {
  std::string_view text;
  std::size_t begin = 0;  // characters
  std::size_t end = 0;
};

// The words of a text one behind the other, as many ahead as are asked for.
class WordStream {
 public:
  explicit WordStream(std::string_view text) : rest_(text) {}

  // Whether there is a word so many behind the next.
  bool Has(std::size_t ahead) {
    while (words_.size() <= ahead && Read()) {
    }
    return words_.size() > ahead;
  }
  [[nodiscard]] const Word& At(std::size_t ahead) const { return words_[ahead]; }
  std::size_t Ahead(std::size_t most) { return Has(most - 1) ? most : words_.size(); }
  void Skip(std::size_t count) {
    words_.erase(words_.begin(), words_.begin() + static_cast<std::ptrdiff_t>(count));
  }
  // The characters of the whole text, when all words were read.
  [[nodiscard]] std::size_t Characters() const { return character_; }

 private:
  bool Read() {
    std::size_t at = 0;
    while (at < rest_.size() && IsBlank(rest_[at])) ++at;
    character_ += at;
    rest_.remove_prefix(at);
    if (rest_.empty()) return false;
    std::size_t size = 0;
    while (size < rest_.size() && !IsBlank(rest_[size])) ++size;
    Word word{rest_.substr(0, size), character_, 0};
    word.end = character_ += CountCharacters(word.text);
    words_.push_back(word);
    rest_.remove_prefix(size);
    return true;
  }

  std::string_view rest_;
  std::size_t character_ = 0;
  std::deque<Word> words_;
};

using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;

// One more pair counts more than any number of pairs that follow each other at once.
constexpr std::uint32_t kPair = 4 * kLargestWindow;

// The longest common subsequence of the words that are looked at, the one with the fewest gaps: "usw. und"
// is "und so weiter und", and its last word the last one.
class CommonWords {
 public:
  CommonWords(const WordStream& before, std::size_t rows, const WordStream& after, std::size_t columns)
      : before_(before), after_(after), rows_(rows), columns_(columns), cells_((rows + 1) * (columns + 1)) {
    for (std::size_t i = rows; i-- > 0;) {
      for (std::size_t j = columns; j-- > 0;) Fill(i, j);
    }
  }

  [[nodiscard]] Pairs Find() const {
    Pairs pairs;
    bool follows = false;
    for (std::size_t i = 0, j = 0; i < rows_ && j < columns_;) {
      const Cell& cell = At(i, j);
      if (follows || (cell.matched > 0 && cell.matched >= cell.best)) {
        pairs.emplace_back(i, j);
        const Cell& next = At(++i, ++j);
        follows = next.matched > 0 && next.matched + 1 >= next.best;
      } else {
        At(i + 1, j).best >= At(i, j + 1).best ? ++i : ++j;
      }
    }
    return pairs;
  }

 private:
  struct Cell {
    std::uint32_t best = 0;     // of the texts from here on
    std::uint32_t matched = 0;  // the same with these two words as a pair; 0 when they differ
  };

  [[nodiscard]] const Cell& At(std::size_t i, std::size_t j) const { return cells_[i * (columns_ + 1) + j]; }

  void Fill(std::size_t i, std::size_t j) {
    Cell& cell = cells_[i * (columns_ + 1) + j];
    if (before_.At(i).text == after_.At(j).text) {
      const Cell& next = At(i + 1, j + 1);
      cell.matched = kPair + std::max(next.best, next.matched > 0 ? next.matched + 1 : 0);
    }
    cell.best = std::max({cell.matched, At(i + 1, j).best, At(i, j + 1).best});
  }

  const WordStream& before_;
  const WordStream& after_;
  std::size_t rows_;
  std::size_t columns_;
  std::vector<Cell> cells_;
};

// One of the two texts: how far it is aligned, and what of it lies in the gap behind that.
struct Side {
  explicit Side(std::string_view text) : words(text) {}

  void Skip(std::size_t count) {
    for (; count > 0; --count) {
      if (!gapHasWords) gapBegin = words.At(0).begin;
      gapHasWords = true;
      gapEnd = words.At(0).end;
      words.Skip(1);
    }
  }
  // The blanks at the gap's front, when it ends there; all of it when it holds no words.
  [[nodiscard]] std::size_t Leading(std::size_t end) const {
    return (gapHasWords ? gapBegin : end) - aligned;
  }
  [[nodiscard]] std::size_t Trailing(std::size_t end) const { return gapHasWords ? end - gapEnd : 0; }
  void Align(std::size_t end) {
    aligned = end;
    gapHasWords = false;
  }

  WordStream words;
  std::size_t aligned = 0;
  bool gapHasWords = false;
  std::size_t gapBegin = 0;
  std::size_t gapEnd = 0;
};

class Alignment {
 public:
  Alignment(std::string_view before, std::string_view after) : before_(before), after_(after) {}

  std::vector<SpokenRun> Run() {
    while (before_.words.Has(0) && after_.words.Has(0)) {
      if (before_.words.At(0).text == after_.words.At(0).text) {
        Match(0, 0);
      } else {
        PassGap();
      }
    }
    while (before_.words.Has(0)) before_.Skip(1);
    while (after_.words.Has(0)) after_.Skip(1);
    CloseGap(after_.words.Characters(), before_.words.Characters());
    return std::move(runs_);
  }

 private:
  // What lies before the next words that are the same, with a wider look as long as there are too few: one
  // word that is the same by chance makes no alignment.
  void PassGap() {
    for (std::size_t window = kSmallestWindow;; window *= 2) {
      const std::size_t rows = before_.words.Ahead(window);
      const std::size_t columns = after_.words.Ahead(window);
      const Pairs pairs = CommonWords(before_.words, rows, after_.words, columns).Find();
      const bool all = rows < window && columns < window;
      const bool many = pairs.size() >= std::min(rows, columns) / 4;
      if (!pairs.empty() && (all || many)) return Take(pairs, all ? window : window / 2);
      if (!all && window < kLargestWindow) continue;
      if (!pairs.empty()) return Take(pairs, window / 2);
      before_.Skip(rows);
      after_.Skip(columns);
      return;
    }
  }

  // The pairs of the front half, at least the first: those further on may be other ones with more behind.
  void Take(const Pairs& pairs, std::size_t limit) {
    std::size_t rows = 0;
    std::size_t columns = 0;
    for (const auto& [row, column] : pairs) {
      if (rows > 0 && (row >= limit || column >= limit)) break;
      Match(row - rows, column - columns);
      rows = row + 1;
      columns = column + 1;
    }
  }

  void Match(std::size_t row, std::size_t column) {
    before_.Skip(row);
    after_.Skip(column);
    const Word from = before_.words.At(0);
    const Word to = after_.words.At(0);
    CloseGap(to.begin, from.begin);
    before_.words.Skip(1);
    after_.words.Skip(1);
    before_.Align(from.end);
    after_.Align(to.end);
  }

  // The blanks around what differs are no part of it as far as both texts have them.
  void CloseGap(std::size_t spokenEnd, std::size_t writtenEnd) {
    const std::size_t leading = std::min(after_.Leading(spokenEnd), before_.Leading(writtenEnd));
    const std::size_t trailing = std::min(after_.Trailing(spokenEnd), before_.Trailing(writtenEnd));
    const SpokenRun run{after_.aligned + leading, spokenEnd - trailing, before_.aligned + leading,
                        writtenEnd - trailing};
    if (run.spokenBegin != run.spokenEnd || run.writtenBegin != run.writtenEnd) runs_.push_back(run);
  }

  Side before_;
  Side after_;
  std::vector<SpokenRun> runs_;
};

}  // namespace

std::vector<SpokenRun> AlignWords(std::string_view before, std::string_view after) {
  return Alignment(before, after).Run();
}

}  // namespace lorelin
