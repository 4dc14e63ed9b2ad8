#include <wx/msw/wrapwin.h>
// the other needs it before
#include <richedit.h>

#include <algorithm>

#include "desktop/toolkit/textLook.h"

namespace lorelin {
namespace {

constexpr int kSample = 26;  // letters

}  // namespace

// RichEdit keeps fonts, colours of letters and spacing in the text, where they would be saved: only the width
// is the view's own.
class TextLook::Implementation : public wxEvtHandler {
 public:
  Implementation(wxTextCtrl& control, int horizontal, int vertical)
      : control_(control), horizontal_(horizontal), vertical_(vertical) {
    control_.Bind(wxEVT_SIZE, &Implementation::OnSize, this);
  }

  void Show(const ReadingLook& look) {
    columnWidth_ = look.columnWidth;
    Arrange();
  }

  // EM_SETMARGINS would know no vertical ones, and some systems make indents of the text of it.
  void Arrange() {
    const wxSize size = control_.GetClientSize();
    int margin = horizontal_;
    if (columnWidth_ != 0) {
      const double zoom = Zoom();
      const double letter = control_.GetTextExtent("abcdefghijklmnopqrstuvwxyz").x * zoom / kSample;
      margin = std::max(margin, (size.x - static_cast<int>(letter * columnWidth_)) / 2);
    }
    RECT inside{.left = margin, .top = vertical_, .right = size.x - margin, .bottom = size.y};
    SendMessageW(static_cast<HWND>(control_.GetHandle()), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
  }

 private:
  void OnSize(wxSizeEvent& event) {
    event.Skip();
    Arrange();
  }

  [[nodiscard]] double Zoom() const {
    WPARAM numerator = 0;
    LPARAM denominator = 0;
    SendMessageW(static_cast<HWND>(control_.GetHandle()), EM_GETZOOM, reinterpret_cast<WPARAM>(&numerator),
                 reinterpret_cast<LPARAM>(&denominator));
    return denominator == 0 ? 1.0 : static_cast<double>(numerator) / static_cast<double>(denominator);
  }

  wxTextCtrl& control_;
  int horizontal_;
  int vertical_;
  int columnWidth_ = 0;
};

TextLook::TextLook(wxTextCtrl& control, int horizontal, int vertical)
    : implementation_(std::make_unique<Implementation>(control, horizontal, vertical)) {}
TextLook::~TextLook() = default;

void TextLook::Show(const ReadingLook& look) {
  implementation_->Show(look);
}
void TextLook::Update() {
  implementation_->Arrange();
}
TextLook::Parts TextLook::CanShow() {
  return {.font = false, .spacing = false, .colours = false};
}

}  // namespace lorelin
