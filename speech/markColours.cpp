#include "speech/markColours.h"

#include <array>

#include "base/contrast.h"

namespace lorelin {
namespace {

struct Candidate {
  MarkColour colour;
  double least;  // contrast to the ground, with which it is taken
};
using Candidates = std::array<Candidate, 3>;

// The last one is for every ground that is like the others.
constexpr Candidates kLightWords{Candidate{{.background = 0xFFB000, .foreground = 0x000000}, 1.5},
                                 Candidate{{.background = 0x1A3E8C, .foreground = 0xFFFFFF}, 1.5},
                                 Candidate{{.background = 0x000000, .foreground = 0xFFFFFF}, 1}};
constexpr Candidates kLightSentences{Candidate{{.background = 0xFFF1B8, .foreground = 0x1A1A1A}, 1.1},
                                     Candidate{{.background = 0xFFDF85, .foreground = 0x1A1A1A}, 1.15},
                                     Candidate{{.background = 0xFFFFFF, .foreground = 0x1A1A1A}, 1}};
constexpr Candidates kDarkWords{Candidate{{.background = 0xFFC233, .foreground = 0x000000}, 1.5},
                                Candidate{{.background = 0xFFFFFF, .foreground = 0x000000}, 1.5},
                                Candidate{{.background = 0xFFFFFF, .foreground = 0x000000}, 1}};
constexpr Candidates kDarkSentences{Candidate{{.background = 0x4A4220, .foreground = 0xFFF6D6}, 1.3},
                                    Candidate{{.background = 0x6B5D1F, .foreground = 0xFFFBEB}, 1.3},
                                    Candidate{{.background = 0x000000, .foreground = 0xFFF6D6}, 1}};

MarkColour FirstThatIsSeen(const Candidates& candidates, std::uint32_t ground) {
  for (const Candidate& candidate : candidates) {
    if (ContrastOf(candidate.colour.background, ground) >= candidate.least) return candidate.colour;
  }
  return candidates.back().colour;
}

}  // namespace

MarkColours MarkColoursOn(std::uint32_t ground) {
  const bool dark = ContrastOf(ground, 0xFFFFFF) > ContrastOf(ground, 0x000000);
  return {.word = FirstThatIsSeen(dark ? kDarkWords : kLightWords, ground),
          .sentence = FirstThatIsSeen(dark ? kDarkSentences : kLightSentences, ground)};
}

}  // namespace lorelin
