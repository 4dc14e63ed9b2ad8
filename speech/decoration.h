#pragma once

#include "ports/Clock.h"
#include "settings/SettingsStore.h"
#include "speech/TracedText.h"

namespace lorelin {

// Puts prefix and suffix around the text, and the time where it is asked for.
void Decorate(TracedText& text, const SettingsStore& settings, const LocalTime& now);

}  // namespace lorelin
