#include "desktop/toolkit/richTextBuffer.h"

#include <wx/font.h>
#include <wx/msw/wrapwin.h>
// the other needs it before
#include <richedit.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/modFile.h"
#include "desktop/toolkit/text.h"
#include "documents/richTextFile.h"
#include "richtext/rtf.h"
#include "richtext/textFormat.h"

namespace lorelin {
namespace {

constexpr LPARAM kLongestText = 0x7FFFFFFE;
// Beyond it a character that takes two places counts as two: counting would hold up typing.
constexpr long kMostCounted = 1'000'000;
constexpr UINT kUnicode = 1200;  // the code page of UTF-16
constexpr WPARAM kWesternEurope = 1252;
constexpr int kZoomDenominator = 64;

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* read) {
  auto& rest = *reinterpret_cast<std::string_view*>(cookie);
  const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(size));
  std::copy_n(rest.data(), count, reinterpret_cast<char*>(buffer));
  rest.remove_prefix(count);
  *read = static_cast<LONG>(count);
  return 0;
}

DWORD CALLBACK AppendBytes(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* written) {
  reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                 static_cast<std::size_t>(size));
  *written = size;
  return 0;
}

}  // namespace

class RichTextBuffer::Implementation {
 public:
  Implementation(wxTextCtrl& control, const wxFont& font) : control_(control) {
    control.SetFont(font);
    Send(EM_EXLIMITTEXT, 0, kLongestText);
  }

  LRESULT Send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(static_cast<HWND>(control_.GetHandle()), message, first, second);
  }

  // What RichEdit cannot read is shown as far as it can be read at all.
  LoadedFile ShowFile(const std::string& path) {
    const std::string bytes = ReadFileBytes(path);
    StoredRichText stored = ReadRichTextFile(path);
    if (!IsRtf(bytes) || !StreamIn(bytes)) ShowPlain(stored.text.text);
    Begin();
    return std::move(stored.file);
  }
  void ShowRtf(const std::string& rtf) {
    if (!StreamIn(rtf)) ShowPlain(ReadRtf(rtf).text);
    Begin();
  }

  [[nodiscard]] std::string Rtf() const {
    std::string bytes;
    EDITSTREAM stream{
        .dwCookie = reinterpret_cast<DWORD_PTR>(&bytes), .dwError = 0, .pfnCallback = &AppendBytes};
    // Without a code page it would write in the system's, which other programs may not know (UTF-8).
    Send(EM_STREAMOUT, SF_RTF | SF_USECODEPAGE | kWesternEurope << 16, reinterpret_cast<LPARAM>(&stream));
    return bytes;
  }

  void ReplaceText(const wxString& text) {
    CHARRANGE all{.cpMin = 0, .cpMax = -1};
    Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&all));
    UsualFormat(SCF_SELECTION);
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.wc_str()));
    control_.SetInsertionPoint(0);
  }

  // RichEdit knows no groups of changes: the last one is taken back until the text is what it was before.
  void ReplacePlaces(const std::vector<long>& places, long length, const wxString& replacement) {
    before_ = control_.GetValue();
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
      control_.Replace(*place, *place + length, replacement);
    }
    after_ = control_.GetValue();
  }
  void Undo() { RepeatUntil(before_, after_, EM_UNDO); }
  void Redo() { RepeatUntil(after_, before_, EM_REDO); }

  [[nodiscard]] std::size_t CharactersBefore(long position) const {
    const wxString text = control_.GetRange(0, position);
    const auto trailing = std::count_if(text.begin(), text.end(), [](const wxUniChar& unit) {
      return unit.GetValue() >= 0xDC00 && unit.GetValue() <= 0xDFFF;
    });
    return text.length() - static_cast<std::size_t>(trailing);
  }

  wxTextCtrl& Control() { return control_; }

 private:
  [[nodiscard]] std::size_t Units() const {
    GETTEXTLENGTHEX wanted{.flags = GTL_NUMCHARS | GTL_PRECISE, .codepage = kUnicode};
    return static_cast<std::size_t>(Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&wanted)));
  }

  void RepeatUntil(const wxString& end, const wxString& begin, UINT message) {
    const bool group = before_ != after_ && Units() == begin.length() && control_.GetValue() == begin;
    Send(message);
    if (!group) return;
    std::size_t units = Units();
    while (units != end.length() || control_.GetValue() != end) {
      const LRESULT possible = Send(message == EM_UNDO ? EM_CANUNDO : EM_CANREDO);
      if (possible == FALSE) return;
      Send(message);
      units = Units();
    }
  }

  void Begin() const {
    Send(EM_EMPTYUNDOBUFFER);
    control_.SetInsertionPoint(0);
  }

  [[nodiscard]] bool StreamIn(std::string_view bytes) {
    control_.Freeze();
    EDITSTREAM stream{
        .dwCookie = reinterpret_cast<DWORD_PTR>(&bytes), .dwError = 0, .pfnCallback = &ReadBytes};
    const LRESULT read = Send(EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    control_.Thaw();
    return read > 0 && stream.dwError == 0;
  }

  void ShowPlain(const std::string& text) {
    control_.Freeze();
    control_.SetValue(wxEmptyString);
    UsualFormat(SCF_ALL);
    control_.SetValue(ToWx(text));
    control_.Thaw();
  }

  void UsualFormat(WPARAM where) const {
    const wxFont font = control_.GetFont();
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_STRIKEOUT | CFM_COLOR |
                    CFM_BACKCOLOR | CFM_OFFSET;
    format.dwEffects = CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR;
    constexpr double kTwipsPerPoint = 20.0;
    format.yHeight = static_cast<LONG>(std::lround(font.GetFractionalPointSize() * kTwipsPerPoint));
    const wxString face = font.GetFaceName();
    std::copy_n(face.wc_str(), std::min<std::size_t>(face.length(), LF_FACESIZE - 1), format.szFaceName);
    Send(EM_SETCHARFORMAT, where, reinterpret_cast<LPARAM>(&format));
  }

  wxTextCtrl& control_;
  wxString before_;  // the last group of changes
  wxString after_;
};

RichTextBuffer::RichTextBuffer(wxTextCtrl& control, const wxFont& font)
    : implementation_(std::make_unique<Implementation>(control, font)) {}
RichTextBuffer::~RichTextBuffer() = default;

LoadedFile RichTextBuffer::ShowFile(const std::string& path) {
  return implementation_->ShowFile(path);
}
void RichTextBuffer::ShowRtf(const std::string& rtf) {
  implementation_->ShowRtf(rtf);
}
std::function<std::string()> RichTextBuffer::Rtf() const {
  return [rtf = implementation_->Rtf()] { return rtf; };
}
// RichEdit lays out line by line.
void RichTextBuffer::ShowLongParagraphsInPieces() {}
std::string RichTextBuffer::SelectedText() const {
  return FromWx(implementation_->Control().GetStringSelection());
}
std::string RichTextBuffer::Text() const {
  return FromWx(implementation_->Control().GetValue());
}
void RichTextBuffer::ReplaceText(std::string_view text) {
  implementation_->ReplaceText(ToWx(text));
}
bool RichTextBuffer::CanUndo() const {
  return implementation_->Send(EM_CANUNDO) != FALSE;
}
bool RichTextBuffer::CanRedo() const {
  return implementation_->Send(EM_CANREDO) != FALSE;
}
void RichTextBuffer::Undo() {
  implementation_->Undo();
}
void RichTextBuffer::Redo() {
  implementation_->Redo();
}
void RichTextBuffer::ReplacePlaces(const std::vector<long>& places, long length,
                                   std::string_view replacement) {
  implementation_->ReplacePlaces(places, length, ToWx(replacement));
}
void RichTextBuffer::SetZoom(double factor) {
  implementation_->Send(EM_SETZOOM, static_cast<WPARAM>(std::lround(factor * kZoomDenominator)),
                        kZoomDenominator);
}
// The font of a text is a part of it here.
void RichTextBuffer::ShowIn(const wxFont&, bool) {}
std::size_t RichTextBuffer::Length() const {
  const long last = implementation_->Control().GetLastPosition();
  return last > kMostCounted ? static_cast<std::size_t>(last) : CharactersBefore(last);
}
std::size_t RichTextBuffer::CharactersBefore(long position) const {
  return implementation_->CharactersBefore(position);
}

}  // namespace lorelin
