#pragma once

#include <optional>
#include <string_view>

#include "ports/Clock.h"
#include "voices/catalogue.h"

namespace lorelin {

// How fast a voice of a quality computes on this machine: the time that a second of speech takes, estimated
// from a piece of the same kind of work that is timed here.

// Multiplications and additions a second of one core, in billions, as they occur in the voices' models; takes
// a tenth of a second at most. None when the clock stands still.
[[nodiscard]] std::optional<double> MeasureMachine(Clock& clock);

// Seconds of computing for a second of speech.
[[nodiscard]] double ComputingTime(VoiceQuality quality, double machine);

// "sehr schnell", "schnell", "knapp", "zu langsam"; "" when nothing was measured.
[[nodiscard]] std::string_view SpeedText(VoiceQuality quality, std::optional<double> machine);

}  // namespace lorelin
