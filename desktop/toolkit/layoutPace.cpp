#include "desktop/toolkit/layoutPace.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>

#include <algorithm>
#include <string_view>
#endif

namespace lorelin {

#ifdef __WXGTK__

namespace {

// The view goes on with the layout from an idle source that stands before the toolkit's own idle work and is
// always ready. Who handles events until there are none would handle them until the last line is laid out,
// and the window would stay black. GTK offers no way to change that but the source itself, which has a name.
constexpr std::string_view kLayoutSource = "[gtk+] incremental_validate_callback";
constexpr gint kBehindEverything = G_PRIORITY_LOW;
constexpr gint64 kShortestPause = 500;  // microseconds

gboolean LayOutSome(GSource* source, GSourceFunc callback, gpointer data) {
  const gint64 begin = g_get_monotonic_time();
  const gboolean goesOn = g_idle_funcs.dispatch(source, callback, data);
  const gint64 end = g_get_monotonic_time();
  g_source_set_ready_time(source, end + std::max(kShortestPause, (end - begin) / 4));
  return goesOn;
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
  }
}

void After(gpointer object, const char* signal) {
  g_signal_connect_after(object, signal, G_CALLBACK(SlowDown), nullptr);
}

}  // namespace

void LayOutBehindOtherWork(wxTextCtrl& control) {
  GtkWidget* const scrolled = static_cast<GtkWidget*>(control.GetHandle());
  GtkWidget* const view = GTK_IS_BIN(scrolled) ? gtk_bin_get_child(GTK_BIN(scrolled)) : scrolled;
  if (!GTK_IS_TEXT_VIEW(view)) return;
  After(view, "size-allocate");
  After(view, "style-updated");
  GtkTextBuffer* const buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(view));
  After(buffer, "changed");
  After(buffer, "apply-tag");
}

#else

void LayOutBehindOtherWork(wxTextCtrl&) {}

#endif

}  // namespace lorelin
