#include "import/pdfLines.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "base/textEncoding.h"
#include "import/pdfHyphens.h"
#include "import/pdfOrder.h"
#include "import/pdfPageLines.h"

namespace lorelin {
namespace {

bool Overlap(const PdfLine& a, const PdfLine& b) {
  return std::min(a.right, b.right) > std::max(a.left, b.left);
}

bool IsBelow(const PdfLine& a, const PdfLine& b) {
  return a.page == b.page && b.bottom > a.bottom && Overlap(a, b);
}

bool IsSameSize(double a, double b) {
  return std::abs(a - b) <= 0.12 * std::max(a, b);
}

bool IsItem(const PdfLine& line) {
  return line.words.size() > 1 && IsItemMark(line.words[0].text);
}

bool EndsSentence(const std::string& text) {
  for (const std::string_view end : {".", "!", "?", ":", "“", "\"", "»", "«", "…", ")", "’", "”"}) {
    if (text.ends_with(end)) return true;
  }
  return false;
}

bool BeginsSmall(const PdfLine& line) {
  const std::string& word = line.words[0].text;
  const char32_t c = Utf8Length(word) > 0 ? FirstCharacter(word) : U' ';
  return (c >= 'a' && c <= 'z') || (c >= 0xDF && c <= 0xFF);
}

class Assembly {
 public:
  explicit Assembly(const std::vector<PdfPage>& pages) {
    std::vector<std::vector<PdfLine>> lines;
    lines.reserve(pages.size());
    for (std::size_t i = 0; i < pages.size(); ++i) lines.push_back(LinesOf(pages[i], i));
    DropRunningLines(lines, pages);
    for (auto& page : lines) {
      page = InReadingOrder(std::move(page));
      MeasureMargins(page);
      std::move(page.begin(), page.end(), std::back_inserter(lines_));
    }
    WidenMargins(pages);
    MeasurePitch();
  }

  std::vector<PdfParagraph> Paragraphs() {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      if (i == 0 || Breaks(i)) Begin(lines_[i]);
      Add(lines_[i]);
    }
    MarkHeadings();
    return std::move(paragraphs_);
  }

 private:
  // How far the lines of the same column reach.
  void MeasureMargins(const std::vector<PdfLine>& page) {
    constexpr std::size_t kMost = 2000;
    for (const PdfLine& line : page) {
      double right = line.right;
      double left = line.left;
      for (const PdfLine& other : page) {
        const double shared = std::min(line.right, other.right) - std::max(line.left, other.left);
        const double narrower = std::min(line.right - line.left, other.right - other.left);
        if (page.size() > kMost || shared <= 0.5 * narrower || !IsSameSize(line.size, other.size)) continue;
        right = std::max(right, other.right);
        left = std::min(left, other.left);
      }
      margins_.emplace_back(left, right);
    }
  }

  [[nodiscard]] bool HasFewLines() const { return lines_.size() < 16; }

  // Where hardly a line can be a full one, the text is taken to be as far from the right edge as from the
  // left.
  void WidenMargins(const std::vector<PdfPage>& pages) {
    if (!HasFewLines()) return;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      auto& [left, right] = margins_[i];
      right = std::max(right, pages[lines_[i].page].width - left);
    }
  }

  // The usual distance of two lines, in sizes of their letters.
  void MeasurePitch() {
    std::vector<double> pitches;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
      const PdfLine& a = lines_[i - 1];
      const PdfLine& b = lines_[i];
      if (!IsBelow(a, b) || !IsSameSize(a.size, b.size) || b.size <= 0) continue;
      const double pitch = (b.bottom - a.bottom) / b.size;
      if (pitch > 0.7 && pitch < 3) pitches.push_back(pitch);
    }
    // Of a few lines each may be a paragraph.
    constexpr double kWide = 1.35;
    pitch_ = Median(std::move(pitches));
    if (pitch_ <= 0 || (HasFewLines() && pitch_ > kWide)) pitch_ = kWide;
  }

  [[nodiscard]] bool Breaks(std::size_t i) const {
    const PdfLine& a = lines_[i - 1];
    const PdfLine& b = lines_[i];
    if (a.row || b.row || !IsSameSize(a.size, b.size) || a.AllBold() != b.AllBold()) return true;
    if (IsBelow(a, b)) return BreaksBelow(i);
    return BreaksAcross(i);
  }

  // In the same column.
  [[nodiscard]] bool BreaksBelow(std::size_t i) const {
    const PdfLine& a = lines_[i - 1];
    const PdfLine& b = lines_[i];
    if (b.bottom - a.bottom > 1.25 * pitch_ * b.size) return true;
    const bool outdented = b.left < a.left - 0.7 * b.size;
    if (outdented && (IsItem(a) || (paragraphs_.back().lines > 1 && !IsItemParagraph()))) return true;
    if (IsItem(b) && (IsBullet(b.words[0].text) || IsShort(i - 1) || IsItemParagraph())) return true;
    const bool indented = b.left > a.left + 0.7 * b.size;
    if (indented && !IsItem(a) && !IsCentred(i)) return true;
    return IsShort(i - 1);
  }

  [[nodiscard]] bool IsItemParagraph() const { return !paragraphs_.empty() && paragraphs_.back().item; }

  [[nodiscard]] bool IsCentred(std::size_t i) const {
    const PdfLine& a = lines_[i - 1];
    const PdfLine& b = lines_[i];
    return std::abs((a.left + a.right) - (b.left + b.right)) < b.size && a.AllBold() && b.AllBold();
  }

  // Whether the next line's first word would have had room.
  [[nodiscard]] bool IsShort(std::size_t i) const {
    const PdfLine& a = lines_[i];
    const PdfLine& b = lines_[i + 1];
    const double room = margins_[i].second - a.right;
    // Words without a blank between them are one.
    double wide = b.words[0].right - b.words[0].left;
    for (std::size_t w = 1; w < b.words.size() && !b.words[w - 1].spaceAfter; ++w) {
      wide = b.words[w].right - b.words[0].left;
    }
    return room > wide + 0.6 * a.size && !HyphenEnds(a);
  }

  static bool HyphenEnds(const PdfLine& line) {
    return line.words.back().text.ends_with('-') && line.words.back().text.size() > 1;
  }

  // From one column or page to the next. A sentence may end where the line does; the last line of a paragraph
  // seldom is as long as the others.
  [[nodiscard]] bool BreaksAcross(std::size_t i) const {
    const PdfLine& a = lines_[i - 1];
    const PdfLine& b = lines_[i];
    if (HyphenEnds(a) && BeginsSmall(b)) return false;
    if (IsItem(b)) return true;
    // A part of the same line, or of a table.
    if (a.page == b.page && std::abs(a.bottom - b.bottom) < a.size / 2) return true;
    const bool ends = EndsSentence(a.words.back().text);
    if (ends && b.left > margins_[i].first + 0.7 * b.size) return true;
    return (ends || !BeginsSmall(b)) && IsShort(i - 1);
  }

  void Begin(const PdfLine& line) {
    PdfParagraph& paragraph = paragraphs_.emplace_back();
    paragraph.page = line.page;
    paragraph.top = line.top;
    paragraph.bottom = line.bottom;
    paragraph.size = line.size;
    paragraph.item = IsItem(line) && !line.row;
    paragraph.row = line.row;
  }

  void Add(const PdfLine& line) {
    PdfParagraph& paragraph = paragraphs_.back();
    if (++paragraph.lines > 1) Join(paragraph.pieces, line.Text());
    for (std::size_t i = 0; i < line.words.size(); ++i) {
      const PdfWord& word = line.words[i];
      const bool bullet = i == 0 && paragraph.lines == 1 && paragraph.item && IsBullet(word.text);
      AddText(paragraph.pieces, bullet ? "•" : word.text, word);
      if (i + 1 < line.words.size() && (word.spaceAfter || bullet)) paragraph.pieces.back().text += ' ';
    }
  }

  static void AddText(std::vector<PdfPiece>& pieces, const std::string& text, const PdfWord& look) {
    if (pieces.empty() || pieces.back().bold != look.bold || pieces.back().italic != look.italic) {
      pieces.push_back({{}, look.bold, look.italic});
    }
    pieces.back().text += text;
  }

  static void Join(std::vector<PdfPiece>& pieces, const std::string& next) {
    if (pieces.empty()) return;
    std::string& end = pieces.back().text;
    switch (JointOf(end, next)) {
      case LineJoint::Blank:
        end += ' ';
        break;
      case LineJoint::WithoutHyphen:
        while (!end.empty() && (static_cast<unsigned char>(end.back()) & 0xC0U) == 0x80U) end.pop_back();
        if (!end.empty()) end.pop_back();
        break;
      case LineJoint::None:
        break;
    }
  }

  // Short paragraphs in larger letters than the text, the largest outermost, then those in bold ones.
  void MarkHeadings() {
    const double body = BodySize();
    std::set<double, std::greater<>> sizes;
    for (const PdfParagraph& p : paragraphs_) {
      if (IsLarge(p, body)) sizes.insert(std::round(p.size));
    }
    for (std::size_t i = 0; i < paragraphs_.size(); ++i) {
      PdfParagraph& p = paragraphs_[i];
      const bool large = IsLarge(p, body);
      if (!large && !IsBoldTitle(i)) continue;
      const auto rank = std::distance(sizes.begin(), large ? sizes.find(std::round(p.size)) : sizes.end());
      p.heading = static_cast<int>(std::min<std::ptrdiff_t>(rank, 5)) + 1;
    }
  }

  // Alone above a paragraph that is not bold.
  [[nodiscard]] bool IsBoldTitle(std::size_t i) const {
    constexpr std::size_t kLongest = 120;
    const PdfParagraph& p = paragraphs_[i];
    if (p.row || p.lines > 2 || i + 1 == paragraphs_.size() || !IsBold(p) || IsBold(paragraphs_[i + 1]))
      return false;
    const std::string text = p.Text();
    return text.size() <= kLongest && text.find_last_of(".:;,") != text.size() - 1;
  }

  static bool IsBold(const PdfParagraph& p) {
    return std::all_of(p.pieces.begin(), p.pieces.end(), [](const PdfPiece& piece) { return piece.bold; });
  }

  static bool IsLarge(const PdfParagraph& p, double body) {
    constexpr std::size_t kLongest = 200;
    return p.size > 1.15 * body && p.lines <= 3 && p.Text().size() <= kLongest;
  }

  [[nodiscard]] double BodySize() const {
    std::map<double, std::size_t> letters;
    for (const PdfLine& line : lines_) letters[std::round(line.size * 2) / 2] += line.Text().size();
    const auto most = std::max_element(letters.begin(), letters.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    return most != letters.end() ? most->first : 0;
  }

  std::vector<PdfLine> lines_;
  std::vector<std::pair<double, double>> margins_;  // of each line's column
  double pitch_ = 0;
  std::vector<PdfParagraph> paragraphs_;
};

}  // namespace

std::string PdfParagraph::Text() const {
  std::string text;
  for (const PdfPiece& piece : pieces) text += piece.text;
  return text;
}

std::vector<PdfParagraph> AssemblePdf(const std::vector<PdfPage>& pages) {
  return Assembly(pages).Paragraphs();
}

}  // namespace lorelin
