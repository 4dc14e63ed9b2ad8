#include "desktop/toolkit/menuKeys.h"

#include <wx/menu.h>
#include <wx/msw/wrapwin.h>

#include "desktop/toolkit/text.h"

namespace lorelin {

// The toolkit would make an accelerator of it.
void ShowKey(wxMenuItem& item, std::string_view key) {
  wxString shown = ToWx(key);
  shown.Replace("Ctrl", "Strg");
  shown.Replace("Del", "Entf");
  wxString text = item.GetItemLabel().BeforeFirst('\t') + "\t" + shown;
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_STRING;
  info.dwTypeData = const_cast<wchar_t*>(static_cast<const wchar_t*>(text.wc_str()));
  SetMenuItemInfoW(static_cast<HMENU>(item.GetMenu()->GetHMenu()), static_cast<UINT>(item.GetId()), FALSE,
                   &info);
}

}  // namespace lorelin
