#pragma once

#include <cstdint>
#include <string>

#include "ports/DirectSS.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// The chosen voice is stored by its place in the list, and that moves when voices come and go. So its name is
// stored beside it, together with the place that it was stored for: whoever sets the place alone (a script,
// another program) means the place.

// Stores the voice at this position, from 0.
void StoreVoice(SettingsStore& settings, std::int32_t position, const std::string& name);

enum class KeptVoice {
  There,  // as it was stored, or nothing is known of its name
  Moved,  // it is stored at its new place now
  Gone,   // the list has no voice of that name: the usual place is stored until it is there again
};

// Looks for the stored voice in the engine's list as it is now. Throws RuntimeError when the engine does not
// answer.
KeptVoice KeepVoice(SettingsStore& settings, DirectSS& engine);

// The name of the voice that is stored, "" when there is none such in the engine's list.
[[nodiscard]] std::string StoredVoiceName(const SettingsStore& settings, DirectSS& engine);

}  // namespace lorelin
