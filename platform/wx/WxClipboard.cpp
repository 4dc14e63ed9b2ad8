#include "platform/wx/WxClipboard.h"

#include <wx/clipbrd.h>

#include "app/textEncoding.h"
#include "platform/wx/text.h"

namespace lorelin {

std::string WxClipboard::Text() {
  wxClipboardLocker lock;
  wxTextDataObject data;
  if (!lock || !wxTheClipboard->IsSupported(wxDF_UNICODETEXT) || !wxTheClipboard->GetData(data)) return {};
  return WithPlainLineEnds(FromWx(data.GetText()));
}

void WxClipboard::SetText(std::string_view text) {
  wxClipboardLocker lock;
  if (!lock) return;
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

}  // namespace lorelin
