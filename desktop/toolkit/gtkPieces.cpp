#include "desktop/toolkit/gtkPieces.h"

#include <string>

namespace lorelin {
namespace {

constexpr const char* kPiecesKey = "lorelin-pieces";

constexpr const char* kHiddenKey = "lorelin-hidden";

void SetHoldsPieces(GtkTextBuffer* buffer, bool holds) {
  g_object_set_data(G_OBJECT(buffer), kPiecesKey, GINT_TO_POINTER(holds ? 1 : 0));
}

bool StandsAtMark(const GtkTextIter& iter) {
  return gtk_text_iter_get_char(&iter) == static_cast<gunichar>(kPieceEnd);
}

// One tag for each character that a mark hides.
GtkTextTag* HidingTag(GtkTextBuffer* buffer, const std::string& character) {
  const std::string name = kHiddenKey + character;
  GtkTextTag* tag = gtk_text_tag_table_lookup(gtk_text_buffer_get_tag_table(buffer), name.c_str());
  if (tag != nullptr) return tag;
  tag = gtk_text_buffer_create_tag(buffer, name.c_str(), nullptr);
  g_object_set_data_full(G_OBJECT(tag), kHiddenKey, g_strdup(character.c_str()), &g_free);
  return tag;
}

std::string HiddenAt(const GtkTextIter& iter) {
  std::string character = " ";
  GSList* const tags = gtk_text_iter_get_tags(&iter);
  for (const GSList* entry = tags; entry != nullptr; entry = entry->next) {
    const void* const hidden = g_object_get_data(G_OBJECT(entry->data), kHiddenKey);
    if (hidden != nullptr) character = static_cast<const char*>(hidden);
  }
  g_slist_free(tags);
  return character;
}

// The next mark from there on, which ends a line.
void GoToMark(GtkTextIter& iter) {
  do {
    if (gtk_text_iter_ends_line(&iter) == FALSE) gtk_text_iter_forward_to_line_end(&iter);
  } while (!StandsAtMark(iter) && gtk_text_iter_forward_line(&iter) != FALSE);
}

// Within one line there is none; the selection of a few lines is looked through at once.
bool HoldsMarks(GtkTextBuffer* buffer) {
  GtkTextIter from;
  GtkTextIter to;
  if (!HoldsPieces(buffer)) return false;
  if (gtk_text_buffer_get_selection_bounds(buffer, &from, &to) == FALSE) return false;
  const gint last = gtk_text_iter_get_line(&to);
  while (gtk_text_iter_get_line(&from) < last) {
    if (gtk_text_iter_ends_line(&from) == FALSE) gtk_text_iter_forward_to_line_end(&from);
    if (StandsAtMark(from)) return true;
    if (gtk_text_iter_forward_line(&from) == FALSE) return false;
  }
  return false;
}

bool Copied(GtkTextView* view) {
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
  if (!HoldsMarks(buffer)) return false;
  const std::string text = SelectedText(buffer);
  gtk_clipboard_set_text(gtk_widget_get_clipboard(GTK_WIDGET(view), GDK_SELECTION_CLIPBOARD), text.data(),
                         static_cast<gint>(text.size()));
  return true;
}

void Copy(GtkTextView* view, gpointer) {
  if (Copied(view)) g_signal_stop_emission_by_name(view, "copy-clipboard");
}

void Cut(GtkTextView* view, gpointer) {
  if (!Copied(view)) return;
  g_signal_stop_emission_by_name(view, "cut-clipboard");
  gtk_text_buffer_delete_selection(gtk_text_view_get_buffer(view), TRUE, gtk_text_view_get_editable(view));
}

void Drag(GtkWidget* view, GdkDragContext*, GtkSelectionData* data, guint, guint, gpointer) {
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
  if (!HoldsMarks(buffer)) return;
  const std::string text = SelectedText(buffer);
  // Other forms than text are not given.
  (void)gtk_selection_data_set_text(data, text.data(), static_cast<gint>(text.size()));
  g_signal_stop_emission_by_name(view, "drag-data-get");
}

void GiveSelection(GtkClipboard*, GtkSelectionData* data, guint, gpointer buffer) {
  const std::string text = SelectedText(GTK_TEXT_BUFFER(buffer));
  (void)gtk_selection_data_set_text(data, text.data(), static_cast<gint>(text.size()));
}

// The buffer offers what is selected with its marks; this takes its place.
void OfferSelection(GtkTextBuffer* buffer, GtkTextIter*, GtkTextMark* mark, gpointer view) {
  const bool ofSelection =
      mark == gtk_text_buffer_get_insert(buffer) || mark == gtk_text_buffer_get_selection_bound(buffer);
  if (!ofSelection || gtk_widget_get_realized(GTK_WIDGET(view)) == FALSE || !HoldsMarks(buffer)) return;
  GtkTargetList* const list = gtk_target_list_new(nullptr, 0);
  gtk_target_list_add_text_targets(list, 0);
  gint count = 0;
  GtkTargetEntry* const targets = gtk_target_table_new_from_list(list, &count);
  gtk_clipboard_set_with_owner(gtk_widget_get_clipboard(GTK_WIDGET(view), GDK_SELECTION_PRIMARY), targets,
                               static_cast<guint>(count), &GiveSelection, nullptr, G_OBJECT(buffer));
  gtk_target_table_free(targets, count);
  gtk_target_list_unref(list);
}

}  // namespace

void ForgetPieces(GtkTextBuffer* buffer) {
  SetHoldsPieces(buffer, false);
}

bool HoldsPieces(GtkTextBuffer* buffer) {
  return g_object_get_data(G_OBJECT(buffer), kPiecesKey) != nullptr;
}

void InsertPieces(GtkTextBuffer* buffer, GtkTextIter* where, const ShownText& text) {
  const gint begin = gtk_text_iter_get_offset(where);
  if (text.text.find(kPieceEnd) != std::string::npos) SetHoldsPieces(buffer, true);
  gtk_text_buffer_insert(buffer, where, text.text.data(), static_cast<gint>(text.text.size()));
  for (const HiddenCharacter& hidden : text.hidden) {
    GtkTextIter mark;
    gtk_text_buffer_get_iter_at_offset(buffer, &mark, begin + static_cast<gint>(hidden.position));
    GtkTextIter behind = mark;
    gtk_text_iter_forward_char(&behind);
    gtk_text_buffer_apply_tag(buffer, HidingTag(buffer, hidden.character), &mark, &behind);
  }
}

std::string WrittenText(const GtkTextIter& from, const GtkTextIter& to) {
  gchar* const bytes = gtk_text_iter_get_text(&from, &to);
  const std::string shown(bytes);
  g_free(bytes);
  if (!HoldsPieces(gtk_text_iter_get_buffer(&from))) return shown;
  std::string written;
  GtkTextIter mark = from;
  std::size_t begin = 0;
  for (std::size_t at = shown.find(kPieceEnd); at != std::string::npos; at = shown.find(kPieceEnd, begin)) {
    GoToMark(mark);
    written.append(shown, begin, at - begin).append(HiddenAt(mark));
    gtk_text_iter_forward_char(&mark);
    begin = at + 1;
  }
  return written.append(shown, begin);
}

std::string SelectedText(GtkTextBuffer* buffer) {
  GtkTextIter from;
  GtkTextIter to;
  if (gtk_text_buffer_get_selection_bounds(buffer, &from, &to) == FALSE) return {};
  return WrittenText(from, to);
}

void CopyAsWritten(GtkTextView* view) {
  g_signal_connect(view, "copy-clipboard", G_CALLBACK(Copy), nullptr);
  g_signal_connect(view, "cut-clipboard", G_CALLBACK(Cut), nullptr);
  g_signal_connect(view, "drag-data-get", G_CALLBACK(Drag), nullptr);
  g_signal_connect_object(gtk_text_view_get_buffer(view), "mark-set", G_CALLBACK(OfferSelection), view,
                          G_CONNECT_AFTER);
}

}  // namespace lorelin
