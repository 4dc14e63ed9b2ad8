#include <wx/msw/wrapwin.h>

#include "speech/markColours.h"
#include "tests/gui/markedText.h"

namespace lorelin {
namespace {

bool HasGround(HDC device, const wxPoint& place, std::uint32_t colour) {
  const COLORREF wanted = RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
  // Letters may cover some of it.
  for (const int x : {0, 1}) {
    for (const int y : {1, 2, 3}) {
      if (GetPixel(device, place.x + x, place.y + y) == wanted) return true;
    }
  }
  return false;
}

}  // namespace

// A word's ground lies on that of its sentence.
std::string MarkedText(wxTextCtrl& editor, ReadingMark mark) {
  editor.Update();
  const HWND window = static_cast<HWND>(editor.GetHandle());
  HDC device = GetDC(window);
  const MarkColours colours = GroundColoursFor(false);
  const wxString text = editor.GetValue();
  wxString marked;
  bool inside = false;
  bool hasSentence = mark == ReadingMark::Word;
  for (std::size_t unit = 0; unit < text.length(); ++unit) {
    const wxPoint place = editor.PositionToCoords(static_cast<long>(unit));
    const bool isWord = HasGround(device, place, colours.word.background);
    const bool isSentence = HasGround(device, place, colours.sentence.background);
    hasSentence = hasSentence || isSentence;
    const bool wanted = isWord || (mark == ReadingMark::Sentence && isSentence);
    if (wanted && !inside && !marked.empty()) marked += '|';
    if (wanted) marked += text[unit];
    inside = wanted;
  }
  ReleaseDC(window, device);
  return hasSentence ? marked.utf8_string() : std::string();
}

}  // namespace lorelin
