#include <gtest/gtest.h>
#include <wx/timer.h>

#include <functional>
#include <string>

#include "desktop/toolkit/WxMessageBoxes.h"
#include "tests/gui/gtkOpenBox.h"

namespace lorelin {
namespace {

// The real boxes, looked at while they are open.
class MessageBoxesTest : public testing::Test {
 protected:
  // Shows the box and answers it with the response once `look` has seen it.
  MessageAnswer Show(MessageIcon icon, MessageButtons buttons, int response,
                     const std::function<void(GtkDialog*)>& look = {}) {
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
      GtkDialog* const box = OpenBox();
      if (box == nullptr) return;
      timer.Stop();
      if (look) look(box);
      gtk_dialog_response(box, response);
    });
    timer.Start(10);
    return boxes.Show("Möchten Sie?", "Frage", icon, buttons);
  }

  // What Enter presses.
  static std::string FocusedButton(GtkDialog* box) {
    GtkWidget* const focused = gtk_window_get_focus(GTK_WINDOW(box));
    if (!GTK_IS_BUTTON(focused) || focused != gtk_window_get_default_widget(GTK_WINDOW(box))) return "(none)";
    return gtk_button_get_label(GTK_BUTTON(focused));
  }

  static std::string DrawingOf(GtkDialog* box) {
    std::string name;
    gtk_container_forall(GTK_CONTAINER(gtk_dialog_get_content_area(box)), &FindDrawing, &name);
    return name;
  }

  WxMessageBoxes boxes;

 private:
  static void FindDrawing(GtkWidget* widget, gpointer name) {
    if (GTK_IS_IMAGE(widget) && gtk_widget_get_mapped(widget) != FALSE) {
      const gchar* icon = nullptr;
      gtk_image_get_icon_name(GTK_IMAGE(widget), &icon, nullptr);
      if (icon != nullptr) *static_cast<std::string*>(name) += icon;
    }
    if (GTK_IS_CONTAINER(widget)) gtk_container_forall(GTK_CONTAINER(widget), &FindDrawing, name);
  }
};

TEST_F(MessageBoxesTest, ShowTheirIcons) {
  const std::pair<MessageIcon, const char*> icons[] = {{MessageIcon::Question, "dialog-question"},
                                                       {MessageIcon::Exclamation, "dialog-warning"},
                                                       {MessageIcon::Critical, "dialog-error"},
                                                       {MessageIcon::Information, "dialog-information"},
                                                       {MessageIcon::None, ""}};
  for (const auto& [icon, drawing] : icons) {
    std::string shown = "(no box)";
    Show(icon, MessageButtons::Ok, GTK_RESPONSE_OK, [&](GtkDialog* box) { shown = DrawingOf(box); });
    EXPECT_EQ(shown, drawing);
  }
}

TEST_F(MessageBoxesTest, AreAnsweredWithNoByEnterWhereYesDestroys) {
  std::string focused;
  const auto look = [&](GtkDialog* box) { focused = FocusedButton(box); };
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoWarily, GTK_RESPONSE_YES, look),
            MessageAnswer::Yes);
  EXPECT_EQ(focused, "_Nein");
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoWarily, GTK_RESPONSE_DELETE_EVENT),
            MessageAnswer::No);
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNo, GTK_RESPONSE_NO, look), MessageAnswer::No);
  EXPECT_EQ(focused, "_Ja");
}

TEST_F(MessageBoxesTest, TellEveryAnswer) {
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoCancel, GTK_RESPONSE_YES), MessageAnswer::Yes);
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoCancel, GTK_RESPONSE_NO), MessageAnswer::No);
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoCancel, GTK_RESPONSE_CANCEL),
            MessageAnswer::Cancel);
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNoCancel, GTK_RESPONSE_DELETE_EVENT),
            MessageAnswer::Cancel);
  EXPECT_EQ(Show(MessageIcon::Question, MessageButtons::YesNo, GTK_RESPONSE_DELETE_EVENT), MessageAnswer::No);
}

}  // namespace
}  // namespace lorelin
