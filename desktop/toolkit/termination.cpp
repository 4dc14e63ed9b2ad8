#include "desktop/toolkit/termination.h"

#include <wx/defs.h>

#ifdef __WXGTK__
#include <glib-unix.h>

#include <csignal>
#endif

#include <utility>

namespace lorelin {

#ifdef __WXGTK__

void OnTermination(std::function<void()> handler) {
  static std::function<void()> kept;
  kept = std::move(handler);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    g_unix_signal_add(
        signal,
        [](gpointer) -> gboolean {
          if (kept) kept();
          return G_SOURCE_CONTINUE;
        },
        nullptr);
  }
}

#else

void OnTermination(std::function<void()>) {}

#endif

}  // namespace lorelin
