#include "desktop/toolkit/WxClipboard.h"

#include <wx/clipbrd.h>

#include "desktop/toolkit/text.h"

namespace lorelin {

void WxClipboard::SetText(std::string_view text) {
  wxClipboardLocker lock;
  if (!lock) return;
  ++changes_;  // what the system tells comes later
  wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

}  // namespace lorelin
