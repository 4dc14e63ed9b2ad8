#include "desktop/toolkit/messageDialog.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#else
#include <wx/generic/msgdlgg.h>
#endif

namespace lorelin {
namespace {

long IconStyle(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::None:
      return wxICON_NONE;
    case MessageIcon::Information:
      return wxICON_INFORMATION;
    case MessageIcon::Question:
      return wxICON_QUESTION;
    case MessageIcon::Exclamation:
      return wxICON_WARNING;
    case MessageIcon::Critical:
      return wxICON_ERROR;
  }
  return wxICON_NONE;
}

#ifdef __WXGTK__

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

#endif

}  // namespace

std::unique_ptr<wxMessageDialogBase> MakeMessageDialog(wxWindow* owner, const wxString& text,
                                                       const wxString& title, long buttons,
                                                       MessageIcon icon) {
  const long style = buttons | IconStyle(icon) | wxCENTRE;
#ifdef __WXGTK__
  return std::make_unique<IllustratedDialog>(owner, text, title, style, Drawing(icon));
#else
  // The boxes of Windows have no drawing for a question any more.
  if (icon == MessageIcon::Question) {
    return std::make_unique<wxGenericMessageDialog>(owner, text, title, style);
  }
  return std::make_unique<wxMessageDialog>(owner, text, title, style);
#endif
}

}  // namespace lorelin
