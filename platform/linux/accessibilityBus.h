#pragma once

#include <gio/gio.h>

namespace lorelin {

// A connection of its own to the bus of assistive technology, which may have to be started; null where there
// is none. To be given back with g_object_unref.
[[nodiscard]] GDBusConnection* JoinAccessibilityBus();

}  // namespace lorelin
