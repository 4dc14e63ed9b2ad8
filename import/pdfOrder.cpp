#include "import/pdfOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace lorelin {
namespace {

using Lines = std::vector<PdfLine>;

constexpr std::size_t kMostForColumns = 1500;  // lines; a page of text has a tenth
constexpr std::size_t kFewest = 4;             // lines of a column

double Middle(const PdfLine& line) {
  return (line.top + line.bottom) / 2;
}

// Part of a page between two heights that a strip without text divides.
struct Columns {
  double top = 0;
  double bottom = 0;
  double gutter = 0;
  std::size_t lines = 0;
};

struct Side {
  std::vector<double> widths;
  std::vector<double> words;
  double left = 1e9;
  double right = -1e9;
  double top = 1e9;
  double bottom = -1e9;

  void Add(const PdfLine& line) {
    widths.push_back(line.right - line.left);
    words.push_back(static_cast<double>(line.words.size()));
    left = std::min(left, line.left);
    right = std::max(right, line.right);
    top = std::min(top, line.top);
    bottom = std::max(bottom, line.bottom);
  }
  // Running text fills its lines; cells of a table mostly do not.
  [[nodiscard]] bool IsText() const {
    return widths.size() >= kFewest && Median(words) >= 3 && Median(widths) >= 0.55 * (right - left);
  }
};

class ColumnSearch {
 public:
  explicit ColumnSearch(const Lines& lines) : lines_(lines) {
    std::vector<double> sizes;
    for (const PdfLine& line : lines) {
      sizes.push_back(line.size);
      sorted_.push_back(&line);
    }
    gap_ = std::max(0.7 * Median(std::move(sizes)), 4.0);
    std::stable_sort(sorted_.begin(), sorted_.end(),
                     [](const PdfLine* a, const PdfLine* b) { return a->top < b->top; });
  }

  [[nodiscard]] std::optional<Columns> Best() {
    std::set<long> tried;
    for (const PdfLine& line : lines_) {
      if (tried.insert(std::lround(line.right / 2)).second) Try(line.right + 0.5);
    }
    return best_;
  }

 private:
  [[nodiscard]] bool Crosses(const PdfLine& line, double gutter) const {
    return line.left < gutter + gap_ && line.right > gutter;
  }

  // Lines across the strip end a part.
  void Try(double gutter) {
    std::vector<const PdfLine*> part;
    for (const PdfLine* const line : sorted_) {
      if (Crosses(*line, gutter)) {
        Judge(part, gutter);
        part.clear();
      } else {
        part.push_back(line);
      }
    }
    Judge(part, gutter);
  }

  void Judge(const std::vector<const PdfLine*>& part, double gutter) {
    if (part.size() < 2 * kFewest || (best_ && part.size() <= best_->lines)) return;
    Side left;
    Side right;
    for (const PdfLine* const line : part) (line->right <= gutter ? left : right).Add(*line);
    if (!left.IsText() || !right.IsText()) return;
    const double shared = std::min(left.bottom, right.bottom) - std::max(left.top, right.top);
    if (shared < 0.4 * std::min(left.bottom - left.top, right.bottom - right.top)) return;
    best_ = {std::min(left.top, right.top), std::max(left.bottom, right.bottom), gutter, part.size()};
  }

  const Lines& lines_;
  std::vector<const PdfLine*> sorted_;
  double gap_ = 0;
  std::optional<Columns> best_;
};

bool IsOneHeight(const PdfLine& a, const PdfLine& b) {
  const double overlap = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
  return overlap > 0.6 * std::min(a.bottom - a.top, b.bottom - b.top);
}

// The lines of each height, from left to right.
std::vector<Lines> RowsOf(Lines lines) {
  std::stable_sort(lines.begin(), lines.end(),
                   [](const PdfLine& a, const PdfLine& b) { return Middle(a) < Middle(b); });
  std::vector<Lines> rows;
  for (PdfLine& line : lines) {
    if (rows.empty() || !IsOneHeight(rows.back().front(), line)) rows.emplace_back();
    rows.back().push_back(std::move(line));
  }
  for (Lines& row : rows) {
    std::stable_sort(row.begin(), row.end(),
                     [](const PdfLine& a, const PdfLine& b) { return a.left < b.left; });
  }
  return rows;
}

// Whether both have something that begins or ends at the same place behind their first cells.
bool IsAligned(const Lines& a, const Lines& b) {
  for (std::size_t i = 1; i < a.size(); ++i) {
    for (std::size_t k = 1; k < b.size(); ++k) {
      if (std::abs(a[i].left - b[k].left) < 3 || std::abs(a[i].right - b[k].right) < 3) return true;
    }
  }
  return false;
}

bool HasCells(const Lines& row) {
  if (row.size() < 2 || IsItemMark(row[0].words[0].text)) return false;
  for (std::size_t i = 1; i < row.size(); ++i) {
    if (row[i].left - row[i - 1].right > 0.8 * row[i].size) return true;
  }
  return false;
}

bool IsOfTable(const std::vector<Lines>& rows, std::size_t i) {
  if (!HasCells(rows[i])) return false;
  return (i > 0 && HasCells(rows[i - 1]) && IsAligned(rows[i], rows[i - 1])) ||
         (i + 1 < rows.size() && HasCells(rows[i + 1]) && IsAligned(rows[i], rows[i + 1]));
}

PdfLine Joined(Lines row, bool table) {
  PdfLine line = std::move(row[0]);
  line.row = table;
  for (std::size_t i = 1; i < row.size(); ++i) {
    if (!line.words.empty()) {
      line.words.back().spaceAfter = true;
      if (table) line.words.back().text += ';';
    }
    line.left = std::min(line.left, row[i].left);
    line.right = std::max(line.right, row[i].right);
    line.top = std::min(line.top, row[i].top);
    line.bottom = std::max(line.bottom, row[i].bottom);
    std::move(row[i].words.begin(), row[i].words.end(), std::back_inserter(line.words));
  }
  return line;
}

void AddRows(Lines lines, Lines& ordered) {
  std::vector<Lines> rows = RowsOf(std::move(lines));
  std::vector<bool> tables(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) tables[i] = IsOfTable(rows, i);
  for (std::size_t i = 0; i < rows.size(); ++i) ordered.push_back(Joined(std::move(rows[i]), tables[i]));
}

void Order(Lines lines, Lines& ordered, int depth) {
  constexpr int kDeepest = 12;
  const bool few = lines.size() < 2 * kFewest || lines.size() > kMostForColumns || depth > kDeepest;
  const auto columns = few ? std::nullopt : ColumnSearch(lines).Best();
  if (!columns) {
    AddRows(std::move(lines), ordered);
    return;
  }
  Lines above;
  Lines left;
  Lines right;
  Lines below;
  for (PdfLine& line : lines) {
    Lines& part = Middle(line) < columns->top      ? above
                  : Middle(line) > columns->bottom ? below
                  : line.right <= columns->gutter  ? left
                                                   : right;
    part.push_back(std::move(line));
  }
  for (Lines* const part : {&above, &left, &right, &below}) Order(std::move(*part), ordered, depth + 1);
}

}  // namespace

std::vector<PdfLine> InReadingOrder(std::vector<PdfLine> lines) {
  std::erase_if(lines, [](const PdfLine& line) { return line.words.empty(); });
  Lines ordered;
  ordered.reserve(lines.size());
  Order(std::move(lines), ordered, 0);
  return ordered;
}

}  // namespace lorelin
