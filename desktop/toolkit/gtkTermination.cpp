#include "desktop/toolkit/termination.h"

#include <glib-unix.h>

#include <csignal>
#include <utility>

namespace lorelin {

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

}  // namespace lorelin
