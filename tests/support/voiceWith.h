#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "ports/DirectSS.h"

namespace lorelin {

// The number of the first voice with this part in its name.
inline std::int32_t VoiceWith(DirectSS& engine, const std::string& part) {
  for (std::int32_t number = 1; number <= engine.VoiceCount(); ++number) {
    if (engine.VoiceName(number).find(part) != std::string::npos) return number;
  }
  ADD_FAILURE() << "there is no voice " << part;
  return 0;
}

}  // namespace lorelin
