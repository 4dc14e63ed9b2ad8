#include "engine/speakers.h"

#include <algorithm>
#include <array>

namespace lorelin::engine {
namespace {

struct Speaker {
  std::string_view name;
  std::int32_t gender;
};

constexpr std::int32_t kMan = 1;
constexpr std::int32_t kWoman = 2;

// By language. Recordings of several people, like "mls" and "vctk", are not in it.
constexpr std::array kSpeakers{
    Speaker{"eva_k", kWoman},
    Speaker{"karlsson", kMan},
    Speaker{"kerstin", kWoman},
    Speaker{"pavoque", kMan},
    Speaker{"ramona", kWoman},
    Speaker{"thorsten", kMan},

    Speaker{"alan", kMan},
    Speaker{"alba", kWoman},
    Speaker{"amy", kWoman},
    Speaker{"hfc_female", kWoman},
    Speaker{"hfc_male", kMan},
    Speaker{"jenny", kWoman},
    Speaker{"joe", kMan},
    Speaker{"john", kMan},
    Speaker{"kathleen", kWoman},
    Speaker{"kristin", kWoman},
    Speaker{"lessac", kWoman},
    Speaker{"ljspeech", kWoman},
    Speaker{"northern_english_male", kMan},
    Speaker{"ryan", kMan},
    Speaker{"southern_english_female", kWoman},

    Speaker{"siwis", kWoman},
};

}  // namespace

std::int32_t GenderOfSpeaker(std::string_view recordings) {
  const auto found = std::find_if(kSpeakers.begin(), kSpeakers.end(), [&](const Speaker& speaker) {
    if (!recordings.starts_with(speaker.name)) return false;
    const std::string_view rest = recordings.substr(speaker.name.size());
    return rest.empty() || rest.front() == '_';
  });
  return found != kSpeakers.end() ? found->gender : 0;
}

}  // namespace lorelin::engine
