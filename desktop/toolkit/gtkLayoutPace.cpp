#include "desktop/toolkit/layoutPace.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <string_view>

namespace lorelin {
namespace {

// The view goes on with the layout from an idle source that stands before the toolkit's own idle work and is
// always ready. Who handles events until there are none would handle them until the last line is laid out,
// and the window would stay black. GTK offers no way to change that but the source itself, which has a name.
constexpr std::string_view kLayoutSource = "[gtk+] incremental_validate_callback";
constexpr gint kBehindEverything = G_PRIORITY_LOW;
constexpr gint kBeforeDrawing = GDK_PRIORITY_REDRAW - 1;  // of the lines that are seen first
constexpr gint kDrawnAhead = 2;   // heights of the view; GTK draws some of what may be scrolled to as well
constexpr gint64 kShare = 15000;  // microseconds
constexpr gint64 kShortestPause = 500;
constexpr gint64 kTimeToDraw = 100000;
constexpr gint kOutOfTurn = 1000;  // lines, more than two heights of a view

GtkWidget* undrawn = nullptr;  // the view that waits to be drawn; none when it has gone
gint64 drawnBy = 0;            // the rest waits until then; 0 for nothing waits
guint layout = 0;              // the source that was begun last
GtkWidget* goesToCaret =
    nullptr;  // the view whose caret was put where nothing is laid out; none when it has gone

gint HeightOf(GtkTextView* view, const GtkTextIter& line, gint& top) {
  gint height = 0;
  gtk_text_view_get_line_yrange(view, &line, &top, &height);
  return height;
}

// Lines that are not laid out have no height: when they begin above the view's lower end, all of them would
// be taken for visible and be drawn, which takes as long as laying out the whole text.
bool LacksLines(GtkWidget* widget) {
  GtkTextView* const view = GTK_TEXT_VIEW(widget);
  GtkTextIter end;
  gtk_text_buffer_get_end_iter(gtk_text_view_get_buffer(view), &end);
  gint top = 0;
  const gint height = HeightOf(view, end, top);
  GdkRectangle visible;
  gtk_text_view_get_visible_rect(view, &visible);
  return height == 0 && top < visible.y + kDrawnAhead * visible.height;
}

// The layout that was begun last, before everything else when lines are to be seen.
void Hurry(bool forDrawing) {
  GSource* const source = layout == 0 ? nullptr : g_main_context_find_source_by_id(nullptr, layout);
  if (source == nullptr) return;
  if (forDrawing) g_source_set_priority(source, kBeforeDrawing);
  drawnBy = 0;
  g_source_set_ready_time(source, 0);
}

// Whether everything up to the caret has its height; `top` is where what has none begins, if it lies near.
// The toolkit lays out the lines around a place that somebody goes to before those in front of them.
bool IsReached(GtkTextView* view, gint& top) {
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
  GtkTextIter line;
  gtk_text_buffer_get_iter_at_mark(buffer, &line, gtk_text_buffer_get_insert(buffer));
  const gint last = gtk_text_iter_get_line(&line);
  gtk_text_iter_backward_lines(&line, kOutOfTurn);
  while (HeightOf(view, line, top) != 0) {
    if (gtk_text_iter_get_line(&line) == last) return true;
    gtk_text_iter_forward_line(&line);
  }
  return false;
}

// GTK goes only as far as lines have their height, and its gliding there ends when more get theirs.
void GoOnToCaret(bool done) {
  GtkTextView* const view = GTK_TEXT_VIEW(goesToCaret);
  GtkAdjustment* const place = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(view));
  const double page = gtk_adjustment_get_page_size(place);
  gint top = 0;
  if (!done && !IsReached(view, top)) {
    const double furthest = top - (kDrawnAhead + 1) * page;
    gtk_adjustment_set_value(place, std::max(gtk_adjustment_get_value(place), furthest));
    return;
  }
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(view);
  GtkTextIter caret;
  gtk_text_buffer_get_iter_at_mark(buffer, &caret, gtk_text_buffer_get_insert(buffer));
  GdkRectangle line;
  gtk_text_view_get_iter_location(view, &caret, &line);
  GdkRectangle visible;
  gtk_text_view_get_visible_rect(view, &visible);
  if (line.y < visible.y || line.y + line.height > visible.y + visible.height)
    gtk_adjustment_set_value(place, line.y - (page - line.height) / 2);
  g_clear_weak_pointer(&goesToCaret);
}

void CaretMoved(GtkTextBuffer* buffer, GtkTextIter* where, GtkTextMark* mark, gpointer view) {
  if (mark != gtk_text_buffer_get_insert(buffer)) return;
  gint top = 0;
  g_set_weak_pointer(&goesToCaret,
                     HeightOf(GTK_TEXT_VIEW(view), *where, top) == 0 ? GTK_WIDGET(view) : nullptr);
}

gboolean StayThere() {
  g_clear_weak_pointer(&goesToCaret);
  return FALSE;
}

gboolean LayOutSome(GSource* source, GSourceFunc callback, gpointer data) {
  const gint64 begin = g_get_monotonic_time();
  if (drawnBy != 0 && begin >= drawnBy) g_clear_weak_pointer(&undrawn);  // nobody looks
  gboolean goesOn = TRUE;
  gint64 end = begin;
  bool canBeDrawn = false;
  // Every time something was laid out, what is seen is drawn anew; a key may wait as long as this.
  while (goesOn != FALSE && end < begin + kShare && !canBeDrawn) {
    goesOn = g_idle_funcs.dispatch(source, callback, data);
    end = g_get_monotonic_time();
    canBeDrawn = undrawn != nullptr && !LacksLines(undrawn);
  }
  // What is there is seen before the rest is laid out.
  drawnBy = canBeDrawn ? end + kTimeToDraw : 0;
  g_source_set_priority(source, kBehindEverything);
  g_source_set_ready_time(source, canBeDrawn ? drawnBy : end + std::max(kShortestPause, (end - begin) / 4));
  if (undrawn != nullptr) gtk_widget_queue_draw(undrawn);
  if (goesToCaret != nullptr) GoOnToCaret(goesOn == FALSE);
  return goesOn;
}

gboolean WaitForLines(GtkWidget* widget, cairo_t* context, gpointer) {
  const bool waits = LacksLines(widget);
  if (waits || undrawn != nullptr) Hurry(waits);
  g_set_weak_pointer(&undrawn, waits ? widget : nullptr);
  if (!waits) return FALSE;
  gtk_render_background(gtk_widget_get_style_context(widget), context, 0, 0,
                        gtk_widget_get_allocated_width(widget), gtk_widget_get_allocated_height(widget));
  return TRUE;
}

// Ready at its time only, not always.
GSourceFuncs paced{nullptr, nullptr, &LayOutSome, nullptr, nullptr, nullptr};

guint NextSourceId() {
  const guint id = g_idle_add([](gpointer) { return G_SOURCE_REMOVE; }, nullptr);
  g_source_remove(id);
  return id;
}

// The numbers are given in turn: what was begun since the last time stands between the two.
void SlowDown() {
  static guint seen = 1;
  for (const guint end = NextSourceId(); seen != end; ++seen) {
    GSource* const source = g_main_context_find_source_by_id(nullptr, seen);
    const char* const name = source != nullptr ? g_source_get_name(source) : nullptr;
    if (name == nullptr || name != kLayoutSource || source->source_funcs != &g_idle_funcs) continue;
    source->source_funcs = &paced;
    g_source_set_priority(source, kBehindEverything);
    g_source_set_ready_time(source, 0);
    layout = seen;
  }
  if (undrawn != nullptr && LacksLines(undrawn)) Hurry(true);
}

void After(gpointer object, const char* signal) {
  g_signal_connect_after(object, signal, G_CALLBACK(SlowDown), nullptr);
}

}  // namespace

void LayOutBehindOtherWork(wxTextCtrl& control) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  GtkWidget* const view = GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled;
  if (!GTK_IS_TEXT_VIEW(view)) return;
  g_set_weak_pointer(&undrawn, view);
  g_signal_connect(view, "draw", G_CALLBACK(WaitForLines), nullptr);
  After(view, "size-allocate");
  After(view, "style-updated");
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
  After(buffer, "changed");
  g_signal_connect(buffer, "mark-set", G_CALLBACK(CaretMoved), view);
  g_signal_connect(view, "scroll-event", G_CALLBACK(StayThere), nullptr);
  if (GTK_IS_SCROLLED_WINDOW(scrolled)) {
    g_signal_connect(gtk_scrolled_window_get_vscrollbar(GTK_SCROLLED_WINDOW(scrolled)), "change-value",
                     G_CALLBACK(StayThere), nullptr);
  }
  After(buffer, "apply-tag");
}

}  // namespace lorelin
