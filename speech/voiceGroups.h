#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/DirectSS.h"
#include "ports/NaturalVoices.h"

namespace lorelin {

// The engine's voices as a person looks for them: natural ones first, by language and quality.

struct VoiceGroup {
  std::string title;                    // "Natürliche Stimmen: Deutsch"
  std::vector<std::int32_t> positions;  // in the engine's list, from 0
};

// Every voice of the engine in one group; groups have one voice at least.
[[nodiscard]] std::vector<VoiceGroup> GroupVoices(DirectSS& engine,
                                                  const std::vector<InstalledVoice>& natural);

// The position of the German natural voice that is worth a proposal to whoever reads with the voice at this
// position: of medium quality if there is one. -1 when there is none, or when a natural voice reads already.
[[nodiscard]] std::int32_t ProposedVoice(DirectSS& engine, const std::vector<InstalledVoice>& natural,
                                         std::int32_t position);

}  // namespace lorelin
