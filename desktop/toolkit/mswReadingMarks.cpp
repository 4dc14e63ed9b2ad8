#include "desktop/toolkit/readingMarks.h"

#include <wx/msw/wrapwin.h>
// the others need it before
#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "speech/ViewFollowing.h"
#include "speech/markColours.h"

namespace lorelin {
namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr std::array kKeysThatScroll{VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME, VK_END};

bool IsTrailing(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}
std::size_t Characters(std::wstring_view units) {
  return units.size() - static_cast<std::size_t>(std::count_if(units.begin(), units.end(), &IsTrailing));
}

COLORREF ColourOf(std::uint32_t colour) {
  return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
}

// Units of the control's text.
struct UnitRange {
  LONG begin = 0;
  LONG end = 0;

  bool operator==(const UnitRange&) const = default;
};

// What of a text is another one now.
struct Difference {
  std::size_t begin = 0;
  std::size_t endBefore = 0;
  std::size_t endNow = 0;
};

Difference DifferenceOf(std::wstring_view before, std::wstring_view now) {
  const std::size_t shorter = std::min(before.size(), now.size());
  std::size_t front = 0;
  while (front < shorter && before[front] == now[front]) ++front;
  if (front < shorter && front > 0 && (IsTrailing(before[front]) || IsTrailing(now[front]))) --front;
  std::size_t back = 0;
  while (back < shorter - front && before[before.size() - 1 - back] == now[now.size() - 1 - back]) ++back;
  if (back > 0 && IsTrailing(before[before.size() - back])) --back;
  return {.begin = front, .endBefore = before.size() - back, .endNow = now.size() - back};
}

// RichEdit has no formats that are neither saved nor undone: the marks are painted into what it has painted,
// so that they lie behind the letters and twice is the same as once.
class MswReadingMarks final : public ReadingMarks {
 public:
  explicit MswReadingMarks(wxTextCtrl& control) : control_(control) {
    SetWindowSubclass(Window(), &MswReadingMarks::Handle, kSubclass, reinterpret_cast<DWORD_PTR>(this));
    control_.Bind(wxEVT_TEXT, &MswReadingMarks::OnText, this);
  }
  ~MswReadingMarks() override {
    RemoveWindowSubclass(Window(), &MswReadingMarks::Handle, kSubclass);
    control_.Unbind(wxEVT_TEXT, &MswReadingMarks::OnText, this);
  }
  MswReadingMarks(const MswReadingMarks&) = delete;
  MswReadingMarks& operator=(const MswReadingMarks&) = delete;

  [[nodiscard]] bool CanShow() const override { return true; }

  void Show(std::optional<MarkedRange> word, std::optional<MarkedRange> sentence) override {
    const auto newWord = InUnits(word);
    const auto newSentence = InUnits(sentence);
    if (newWord != word_ || newSentence != sentence_) {
      Invalidate();
      word_ = newWord;
      sentence_ = newSentence;
      Invalidate();
    }
    Follow();
  }

  void Hide() override {
    Invalidate();
    word_.reset();
    sentence_.reset();
    following_.Return();
  }

  void Return() override {
    following_.Return();
    Follow();
  }

  void PlaceCaret(std::size_t character) override {
    if (!edited_) text_ = TextNow();
    const LONG unit = UnitAt(character);
    if (!edited_) text_ = std::wstring();
    control_.SetInsertionPoint(unit);
    const LONG line = LineOf(unit);
    const ViewFollowing::Span place{static_cast<int>(PlaceOf(unit).y), static_cast<int>(HeightOf(line))};
    if (ViewFollowing::BelongsToTop(place, {0, control_.GetClientSize().y}))
      Send(EM_LINESCROLL, 0, line - static_cast<LONG>(Send(EM_GETFIRSTVISIBLELINE)));
  }

  // Only as long as somebody wants to know of edits is the text compared with what it was.
  void OnEdited(std::function<void(std::size_t, std::size_t, std::size_t)> handler) override {
    edited_ = std::move(handler);
    text_ = edited_ ? TextNow() : std::wstring();
  }

 private:
  [[nodiscard]] HWND Window() const { return static_cast<HWND>(control_.GetHandle()); }
  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(Window(), message, first, second);
  }
  template <typename Structure>
  LRESULT SendTo(UINT message, Structure& structure, LPARAM second = 0) const {
    return Send(message, reinterpret_cast<WPARAM>(&structure), second);
  }

  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                 DWORD_PTR self) {
    const LRESULT result = DefSubclassProc(window, message, first, second);
    reinterpret_cast<MswReadingMarks*>(self)->Handled(message, first);
    return result;
  }

  void Handled(UINT message, WPARAM first) {
    const bool scrolls =
        message == WM_MOUSEWHEEL || message == WM_VSCROLL ||
        (message == WM_KEYDOWN && std::find(kKeysThatScroll.begin(), kKeysThatScroll.end(),
                                            static_cast<int>(first)) != kKeysThatScroll.end());
    if (scrolls) following_.ReaderScrolled();
    if (message == WM_PAINT) Paint();
  }

  [[nodiscard]] std::wstring TextNow() const { return control_.GetValue().ToStdWstring(); }

  void OnText(wxCommandEvent& event) {
    event.Skip();
    if (!edited_) return;
    std::wstring now = TextNow();
    const Difference difference = DifferenceOf(text_, now);
    if (difference.endBefore == difference.begin && difference.endNow == difference.begin) return;
    const std::wstring_view before = text_;
    const std::size_t place = Characters(before.substr(0, difference.begin));
    const std::size_t removed =
        Characters(before.substr(difference.begin, difference.endBefore - difference.begin));
    text_ = std::move(now);
    const std::size_t inserted =
        Characters(std::wstring_view(text_).substr(difference.begin, difference.endNow - difference.begin));
    edited_(place, removed, inserted);
  }

  [[nodiscard]] LONG UnitAt(std::size_t character) const {
    std::size_t unit = 0;
    for (; unit < text_.size(); ++unit) {
      if (IsTrailing(text_[unit])) continue;
      if (character == 0) break;
      --character;
    }
    return static_cast<LONG>(unit);
  }
  [[nodiscard]] std::optional<UnitRange> InUnits(const std::optional<MarkedRange>& range) const {
    if (!range) return std::nullopt;
    return UnitRange{.begin = UnitAt(range->begin), .end = UnitAt(range->end)};
  }

  [[nodiscard]] POINTL PlaceOf(LONG unit) const {
    POINTL place{};
    SendTo(EM_POSFROMCHAR, place, unit);
    return place;
  }
  [[nodiscard]] LONG LineOf(LONG unit) const { return static_cast<LONG>(Send(EM_EXLINEFROMCHAR, 0, unit)); }
  [[nodiscard]] LONG FirstUnitOf(LONG line) const {
    return static_cast<LONG>(Send(EM_LINEINDEX, static_cast<WPARAM>(line)));
  }
  [[nodiscard]] LONG HeightOf(LONG line) const {
    const LONG begin = FirstUnitOf(line);
    const LONG next = FirstUnitOf(line + 1);
    const LONG height = next > begin ? PlaceOf(next).y - PlaceOf(begin).y : 0;
    return height > 0 ? height : control_.GetCharHeight();
  }

  // The places of the range in those lines that are seen.
  [[nodiscard]] std::vector<RECT> RowsOf(const UnitRange& range) const {
    std::vector<RECT> rows;
    RECT inside{};
    Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inside));
    const LONG last = LineOf(std::max(range.begin, range.end - 1));
    LONG line = std::max(LineOf(range.begin), static_cast<LONG>(Send(EM_GETFIRSTVISIBLELINE)));
    for (; line <= last; ++line) {
      const LONG begin = std::max(range.begin, FirstUnitOf(line));
      const POINTL from = PlaceOf(begin);
      if (from.y >= inside.bottom) break;
      LONG end = range.end;
      if (line < last) end = std::min(end, FirstUnitOf(line + 1) - 1);
      const RECT row{
          .left = from.x, .top = from.y, .right = PlaceOf(end).x, .bottom = from.y + HeightOf(line)};
      RECT seen{};
      if (IntersectRect(&seen, &row, &inside) != FALSE) rows.push_back(seen);
    }
    return rows;
  }

  void Invalidate() const {
    for (const auto& range : {sentence_, word_}) {
      if (!range) continue;
      for (const RECT& row : RowsOf(*range)) InvalidateRect(Window(), &row, TRUE);
    }
  }

  void Paint() const {
    if (!word_ && !sentence_) return;
    const bool dark = control_.GetBackgroundColour().GetLuminance() < 0.5;
    const MarkColours colours = GroundColoursFor(dark);
    HideCaret(Window());
    HDC device = GetDC(Window());
    if (sentence_) Fill(device, *sentence_, colours.sentence, dark);
    if (word_) Fill(device, *word_, colours.word, dark);
    ReleaseDC(Window(), device);
    ShowCaret(Window());
  }

  // On a dark ground what is lighter stays as it is, on a light one what is darker.
  void Fill(HDC device, const UnitRange& range, const MarkColour& colour, bool dark) const {
    const HBRUSH brush = CreateSolidBrush(ColourOf(colour.background));
    const HGDIOBJ before = SelectObject(device, brush);
    for (const RECT& row : RowsOf(range)) {
      PatBlt(device, row.left, row.top, row.right - row.left, row.bottom - row.top,
             dark ? kPatternOrGround : kPatternAndGround);
    }
    SelectObject(device, before);
    DeleteObject(brush);
  }

  void Follow() {
    const auto& range = word_ ? word_ : sentence_;
    if (!range) return;
    const LONG line = LineOf(range->begin);
    const LONG height = HeightOf(line);
    const auto first = static_cast<LONG>(Send(EM_GETFIRSTVISIBLELINE));
    const int viewTop = static_cast<int>(first * height);
    const int lineTop = viewTop + static_cast<int>(PlaceOf(range->begin).y);
    const auto top =
        following_.Follow({lineTop, static_cast<int>(height)}, {viewTop, control_.GetClientSize().y});
    if (!top) return;
    Send(EM_LINESCROLL, 0, (*top - viewTop) / height);
  }

  static constexpr DWORD kPatternAndGround = 0x00A000C9;  // DPa
  static constexpr DWORD kPatternOrGround = 0x00FA0089;   // DPo

  wxTextCtrl& control_;
  std::optional<UnitRange> word_;
  std::optional<UnitRange> sentence_;
  ViewFollowing following_;
  std::function<void(std::size_t, std::size_t, std::size_t)> edited_;
  std::wstring text_;  // as it was when its last edit was told
};

}  // namespace

std::unique_ptr<ReadingMarks> MakeReadingMarks(wxTextCtrl& control) {
  return std::make_unique<MswReadingMarks>(control);
}

}  // namespace lorelin
