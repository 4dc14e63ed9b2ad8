#include "import/pdfPageLines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace lorelin {
namespace {

bool IsDigits(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool IsBullet(const std::string& word) {
  static constexpr std::array<std::string_view, 12> kBullets{"•", "▪", "◦", "‣", "●",      "○",
                                                             "■", "–", "-", "*", "\uF0B7", "\uF0A7"};
  return std::find(kBullets.begin(), kBullets.end(), word) != kBullets.end();
}

// "1.", "12)", "a)"
namespace {

bool IsCount(const std::string& word) {
  if (word.size() < 2 || word.size() > 4 || (word.back() != '.' && word.back() != ')')) return false;
  const bool digits = std::all_of(word.begin(), word.end() - 1, [](char c) { return c >= '0' && c <= '9'; });
  return digits || (word.size() == 2 && word.back() == ')');
}

}  // namespace

bool IsItemMark(const std::string& word) {
  return IsBullet(word) || IsCount(word);
}

namespace {

bool Continues(const PdfLine& line, const PdfWord& word) {
  const double overlap = std::min(line.bottom, word.bottom) - std::max(line.top, word.top);
  const double height = std::min(line.bottom - line.top, word.bottom - word.top);
  const double back = line.words.back().right - word.left;
  return overlap > height / 2 && back < word.size && word.left - line.words.back().right < 4 * word.size;
}

void Append(PdfLine& line, const PdfWord& word) {
  if (line.words.empty()) {
    line.left = word.left;
    line.top = word.top;
    line.right = word.right;
    line.bottom = word.bottom;
  }
  // What the file says of blanks is sometimes wrong.
  if (!line.words.empty() && word.left - line.words.back().right > 0.12 * word.size)
    line.words.back().spaceAfter = true;
  line.left = std::min(line.left, word.left);
  line.top = std::min(line.top, word.top);
  line.right = std::max(line.right, word.right);
  line.bottom = std::max(line.bottom, word.bottom);
  line.words.push_back(word);
}

double SizeOf(const PdfLine& line) {
  std::map<double, std::size_t> letters;
  for (const PdfWord& word : line.words) letters[std::round(word.size * 2) / 2] += word.text.size();
  const auto most = std::max_element(letters.begin(), letters.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  return most != letters.end() ? most->first : 0;
}

bool IsNoteMark(const PdfLine& line, std::size_t i) {
  const PdfWord& word = line.words[i];
  return i > 0 && IsDigits(word.text) && word.text.size() <= 3 && word.size <= 0.8 * line.size &&
         word.bottom < line.bottom - 0.15 * line.size && !line.words[i - 1].spaceAfter;
}

void DropNoteMarks(PdfLine& line, std::set<std::string>& marks) {
  std::vector<PdfWord> kept;
  for (std::size_t i = 0; i < line.words.size(); ++i) {
    if (!IsNoteMark(line, i)) {
      kept.push_back(line.words[i]);
    } else {
      marks.insert(line.words[i].text);
      kept.back().spaceAfter = line.words[i].spaceAfter;
    }
  }
  line.words = std::move(kept);
}

bool BeginsNote(const PdfLine& line, const std::set<std::string>& marks) {
  const std::string text = line.Text();
  const auto end = text.find_first_not_of("0123456789");
  return end != 0 && end != std::string::npos && marks.contains(text.substr(0, end));
}

// Its number stands higher than the text behind it, as in the text that it belongs to.
bool HasRaisedNumber(const PdfLine& line) {
  return line.words.size() > 1 && line.words[0].size <= 0.8 * line.size &&
         line.words[0].bottom < line.bottom - 0.15 * line.size;
}

struct NoteSearch {
  double small = 0;  // smaller than the text
  double text = 0;   // where what is no note ends
};

NoteSearch SearchFor(const std::vector<PdfLine>& lines) {
  std::vector<double> sizes;
  for (const PdfLine& line : lines) sizes.insert(sizes.end(), line.words.size(), line.size);
  NoteSearch search{0.92 * Median(std::move(sizes)), 0};
  for (const PdfLine& line : lines) {
    if (line.size >= search.small && line.words.size() > 1) search.text = std::max(search.text, line.bottom);
  }
  return search;
}

// The lines at the foot of the page from the first note on that has a mark in the text: notes in smaller
// type, or with raised numbers.
void DropNotes(std::vector<PdfLine>& lines, const std::set<std::string>& marks) {
  const NoteSearch search = SearchFor(lines);
  double smaller = 1e9;
  double raised = 1e9;
  for (const PdfLine& line : lines) {
    if (!BeginsNote(line, marks)) continue;
    if (line.size < search.small && line.top > search.text - line.size) smaller = std::min(smaller, line.top);
    if (HasRaisedNumber(line)) raised = std::min(raised, line.top);
  }
  std::erase_if(lines, [&](const PdfLine& line) {
    return line.top >= raised - 1 || (line.size < search.small && line.top >= smaller - 1);
  });
}

// Numbers of pages and years differ from page to page.
std::string Pattern(const std::string& text) {
  std::string pattern;
  for (const char c : text) {
    const bool digit = c >= '0' && c <= '9';
    if (!digit || !pattern.ends_with('#')) pattern += digit ? '#' : c;
  }
  return pattern;
}

// Finds what runs along the upper or the lower margin.
class RunningLines {
 public:
  RunningLines(const std::vector<std::vector<PdfLine>>& pages, const std::vector<PdfPage>& sizes, bool upper)
      : pages_(pages), sizes_(sizes), upper_(upper) {}

  // The places of the lines in each page's list.
  [[nodiscard]] std::vector<std::set<std::size_t>> Find() {
    for (std::size_t page = 0; page < pages_.size(); ++page) Collect(page);
    std::vector<std::set<std::size_t>> found(pages_.size());
    for (const Candidate& c : candidates_) {
      if (Runs(c)) found[c.page].insert(c.line);
    }
    return found;
  }

 private:
  struct Candidate {
    std::size_t page = 0;
    std::size_t line = 0;
    int height = 0;
    std::string pattern;
    bool apart = false;  // from the text
  };

  static constexpr std::size_t kDeepest = 3;  // lines from the edge
  static constexpr double kZone = 0.16;       // of the page

  [[nodiscard]] std::vector<std::size_t> FromTheEdge(std::size_t page) const {
    std::vector<std::size_t> order(pages_[page].size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      const auto& lines = pages_[page];
      return upper_ ? lines[a].top < lines[b].top : lines[a].bottom > lines[b].bottom;
    });
    return order;
  }

  // How far the next line towards the middle of the page is, in lines' heights.
  [[nodiscard]] bool IsApart(std::size_t page, const std::vector<std::size_t>& order, std::size_t i) const {
    const PdfLine& own = pages_[page][order[i]];
    for (std::size_t next = i + 1; next < order.size(); ++next) {
      const PdfLine& other = pages_[page][order[next]];
      const double gap = upper_ ? other.top - own.bottom : own.top - other.bottom;
      // Beside it stands another part of the same head.
      if (gap < -0.5 * own.size) continue;
      return gap > 0.8 * std::max(own.size, 6.0);
    }
    // Alone on its page.
    return i == 0;
  }

  void Collect(std::size_t page) {
    const double height = sizes_[page].height;
    const auto order = FromTheEdge(page);
    for (std::size_t i = 0; i < std::min(order.size(), kDeepest); ++i) {
      const PdfLine& line = pages_[page][order[i]];
      const bool near = upper_ ? line.bottom < kZone * height : line.top > (1 - kZone) * height;
      if (!near) break;
      candidates_.push_back({page, order[i], static_cast<int>(std::lround(line.bottom)), Pattern(line.Text()),
                             IsApart(page, order, i)});
      const Candidate& c = candidates_.back();
      if (c.apart) heights_[c.height].insert(page);
      patterns_[c.pattern][c.height].insert(page);
    }
  }

  static std::size_t Near(const std::map<int, std::set<std::size_t>>& heights, int height) {
    std::set<std::size_t> pages;
    for (int h = height - 2; h <= height + 2; ++h) {
      if (const auto found = heights.find(h); found != heights.end()) {
        pages.insert(found->second.begin(), found->second.end());
      }
    }
    return pages.size();
  }

  [[nodiscard]] bool Runs(const Candidate& c) const {
    if (c.apart && pages_[c.page][c.line].Text() == std::to_string(c.page + 1)) return true;
    const std::size_t all = pages_.size();
    const std::size_t same = Near(patterns_.at(c.pattern), c.height);
    if (all >= 2 && same >= std::max<std::size_t>(2, (all + 2) / 3)) return true;
    return c.apart && all >= 3 && Near(heights_, c.height) >= std::max<std::size_t>(3, all * 2 / 5);
  }

  const std::vector<std::vector<PdfLine>>& pages_;
  const std::vector<PdfPage>& sizes_;
  const bool upper_;
  std::vector<Candidate> candidates_;
  std::map<int, std::set<std::size_t>> heights_;  // pages with a line apart there
  std::map<std::string, std::map<int, std::set<std::size_t>>> patterns_;
};

}  // namespace

std::string PdfLine::Text() const {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    text += words[i].text;
    if (words[i].spaceAfter && i + 1 < words.size()) text += ' ';
  }
  return text;
}

bool PdfLine::AllBold() const {
  return std::all_of(words.begin(), words.end(), [](const PdfWord& word) { return word.bold; });
}

std::vector<PdfLine> LinesOf(const PdfPage& page, std::size_t number) {
  std::vector<PdfLine> lines;
  for (const PdfWord& word : page.words) {
    if (word.text.empty()) continue;
    if (lines.empty() || !Continues(lines.back(), word)) lines.emplace_back().page = number;
    Append(lines.back(), word);
  }
  std::set<std::string> marks;
  for (PdfLine& line : lines) {
    line.size = SizeOf(line);
    DropNoteMarks(line, marks);
  }
  if (!marks.empty()) DropNotes(lines, marks);
  return lines;
}

void DropRunningLines(std::vector<std::vector<PdfLine>>& pages, const std::vector<PdfPage>& sizes) {
  const auto upper = RunningLines(pages, sizes, true).Find();
  const auto lower = RunningLines(pages, sizes, false).Find();
  for (std::size_t page = 0; page < pages.size(); ++page) {
    std::vector<PdfLine> kept;
    for (std::size_t i = 0; i < pages[page].size(); ++i) {
      if (!upper[page].contains(i) && !lower[page].contains(i)) kept.push_back(std::move(pages[page][i]));
    }
    pages[page] = std::move(kept);
  }
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace lorelin
