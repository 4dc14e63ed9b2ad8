#include <gtk/gtk.h>

#include "tests/gui/markedText.h"

namespace lorelin {

std::string MarkedText(wxTextCtrl& editor, ReadingMark mark) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(editor.GetHandle());
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(gtk_bin_get_child(GTK_BIN(scrolled))));
  GtkTextTag* const tag =
      gtk_text_tag_table_lookup(gtk_text_buffer_get_tag_table(buffer),
                                mark == ReadingMark::Word ? "lorelin-read-word" : "lorelin-read-sentence");
  std::string marked;
  GtkTextIter at;
  gtk_text_buffer_get_start_iter(buffer, &at);
  while (gtk_text_iter_has_tag(&at, tag) != FALSE || gtk_text_iter_forward_to_tag_toggle(&at, tag) != FALSE) {
    GtkTextIter end = at;
    if (gtk_text_iter_forward_to_tag_toggle(&end, tag) == FALSE) break;
    gchar* const text = gtk_text_iter_get_text(&at, &end);
    marked += (marked.empty() ? "" : "|") + std::string(text);
    g_free(text);
    at = end;
  }
  return marked;
}

}  // namespace lorelin
