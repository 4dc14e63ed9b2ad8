#include "desktop/toolkit/menuKeys.h"

#include <wx/accel.h>
#include <wx/menu.h>

#include <gtk/gtk.h>

#include <memory>

#include "desktop/toolkit/text.h"

namespace lorelin {
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

}  // namespace lorelin
