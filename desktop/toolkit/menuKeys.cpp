#include "desktop/toolkit/menuKeys.h"

#include <wx/accel.h>
#include <wx/menu.h>

#include <memory>

#ifdef __WXGTK__
#include <gtk/gtk.h>
#elif defined(__WXMSW__)
#include <wx/msw/wrapwin.h>
#endif

#include "desktop/toolkit/text.h"

namespace lorelin {

#ifdef __WXGTK__

namespace {

guint GdkKey(int code) {
  if (code == WXK_DELETE) return GDK_KEY_Delete;
  return gdk_keyval_to_lower(gdk_unicode_to_keyval(static_cast<guint32>(code)));
}

GdkModifierType GdkModifiers(int flags) {
  const int control = (flags & wxACCEL_CTRL) != 0 ? GDK_CONTROL_MASK : 0;
  const int shift = (flags & wxACCEL_SHIFT) != 0 ? GDK_SHIFT_MASK : 0;
  return static_cast<GdkModifierType>(control | shift);
}

}  // namespace

void ShowKey(wxMenuItem& item, std::string_view key) {
  const std::unique_ptr<wxAcceleratorEntry> entry(wxAcceleratorEntry::Create("\t" + ToWx(key)));
  GtkWidget* const label = gtk_bin_get_child(GTK_BIN(item.GetMenuItem()));
  if (entry == nullptr || !GTK_IS_ACCEL_LABEL(label)) return;
  gtk_accel_label_set_accel(GTK_ACCEL_LABEL(label), GdkKey(entry->GetKeyCode()),
                            GdkModifiers(entry->GetFlags()));
}

#elif defined(__WXMSW__)

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

#endif

}  // namespace lorelin
