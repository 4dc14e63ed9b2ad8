#include "desktop/toolkit/WxClipboard.h"

#include <wx/clipbrd.h>
#include <wx/msw/wrapwin.h>

#include "base/textEncoding.h"
#include "desktop/toolkit/text.h"

namespace lorelin {

WxClipboard::WxClipboard() : request_(std::make_shared<Request>()) {}
WxClipboard::~WxClipboard() = default;

// A text, which may be large, is fetched once for each change. The number is 0 where it may not be asked for.
std::string WxClipboard::Text() {
  const DWORD now = GetClipboardSequenceNumber();
  if (now != 0 && now == request_->asOf) return request_->text;
  wxClipboardLocker lock;
  if (!lock) return {};
  wxTextDataObject data;
  const bool holdsText = wxTheClipboard->IsSupported(wxDF_UNICODETEXT) && wxTheClipboard->GetData(data);
  request_->text = holdsText ? WithPlainLineEnds(FromWx(data.GetText())) : std::string();
  request_->asOf = now;
  return request_->text;
}

}  // namespace lorelin
