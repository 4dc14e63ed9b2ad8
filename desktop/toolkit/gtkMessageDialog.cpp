#include "desktop/toolkit/messageDialog.h"

#include <gtk/gtk.h>

namespace lorelin {
namespace {

const char* Drawing(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::None:
      return nullptr;
    case MessageIcon::Information:
      return "dialog-information";
    case MessageIcon::Question:
      return "dialog-question";
    case MessageIcon::Exclamation:
      return "dialog-warning";
    case MessageIcon::Critical:
      return "dialog-error";
  }
  return nullptr;
}

// Called for every widget that is shown while the box opens: the box itself comes last.
gboolean DrawOnBox(GSignalInvocationHint*, guint, const GValue* values, gpointer drawing) {
  auto* const widget = static_cast<GtkWidget*>(g_value_get_object(values));
  if (!GTK_IS_MESSAGE_DIALOG(widget)) return TRUE;
  GtkWidget* const image =
      gtk_image_new_from_icon_name(static_cast<const char*>(drawing), GTK_ICON_SIZE_DIALOG);
  gtk_widget_show(image);
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS
  gtk_message_dialog_set_image(GTK_MESSAGE_DIALOG(widget), image);
  G_GNUC_END_IGNORE_DEPRECATIONS
  return FALSE;
}

// GTK has drawn none by itself since 3.12, and the toolkit makes the box only when it is shown.
class IllustratedDialog final : public wxMessageDialog {
 public:
  IllustratedDialog(wxWindow* owner, const wxString& text, const wxString& title, long style,
                    const char* drawing)
      : wxMessageDialog(owner, text, title, style), drawing_(drawing) {}

  int ShowModal() override {
    if (drawing_ != nullptr) {
      g_type_class_unref(g_type_class_ref(GTK_TYPE_WIDGET));
      g_signal_add_emission_hook(g_signal_lookup("show", GTK_TYPE_WIDGET), 0, &DrawOnBox,
                                 const_cast<char*>(drawing_), nullptr);
    }
    return wxMessageDialog::ShowModal();
  }

 private:
  const char* drawing_;
};

}  // namespace

std::unique_ptr<wxMessageDialogBase> MakeMessageDialog(wxWindow* owner, const wxString& text,
                                                       const wxString& title, long buttons,
                                                       MessageIcon icon) {
  const long style = buttons | IconStyle(icon) | wxCENTRE;
  return std::make_unique<IllustratedDialog>(owner, text, title, style, Drawing(icon));
}

}  // namespace lorelin
