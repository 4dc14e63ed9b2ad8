#pragma once

#include <cstdint>

#include "ports/DirectSS.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// How the user has set the voice, for an instance that another thread speaks with.
struct VoiceProfile {
  std::int32_t voice = 1;   // from 1
  std::int32_t pitch = 50;  // per cent
  std::int32_t speed = 50;
  std::int32_t volume = 100;

  bool operator==(const VoiceProfile&) const = default;
};

// Throws RuntimeError 13 or 6 when a stored value is no number.
[[nodiscard]] VoiceProfile StoredVoiceProfile(const SettingsStore& settings);

// Throws what the instance throws.
void ApplyVoiceProfile(const VoiceProfile& profile, DirectSS& instance);

}  // namespace lorelin
