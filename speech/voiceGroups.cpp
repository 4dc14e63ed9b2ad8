#include "speech/voiceGroups.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "speech/voiceSettings.h"

namespace lorelin {
namespace {

constexpr std::string_view kBehindLanguage = " – ";
constexpr std::array<std::string_view, 4> kBestFirst{"medium", "high", "low", "x_low"};

struct Known {
  std::int32_t rank = 0;  // by quality
  std::string language;   // as its name begins
  bool german = false;
};

std::int32_t RankOf(std::string_view quality) {
  return static_cast<std::int32_t>(std::find(kBestFirst.begin(), kBestFirst.end(), quality) -
                                   kBestFirst.begin());
}

// What is known of the natural ones, by the names under which the engine offers them.
std::map<std::string, Known> ByName(const std::vector<InstalledVoice>& natural) {
  std::map<std::string, Known> known;
  for (const InstalledVoice& voice : natural) {
    for (const std::string& name : voice.offered) {
      known[name] = {RankOf(voice.quality), name.substr(0, name.find(kBehindLanguage)),
                     voice.language.starts_with("de")};
    }
  }
  return known;
}

constexpr std::string_view kOthers = "Einfache Stimmen: andere Sprachen";

// The languages that the program names, in all their variants.
std::string PlainTitle(std::int32_t languageId) {
  constexpr std::int32_t kPrimary = 0x3FF;
  for (const std::int32_t named : {1031, 1033, 1034, 1040, 1043, 2070}) {
    if ((named & kPrimary) == (languageId & kPrimary) && languageId != 0)
      return "Einfache Stimmen: " + std::string(LanguageName(named));
  }
  return std::string(kOthers);
}

void Add(std::vector<VoiceGroup>& groups, const std::string& title, std::int32_t position) {
  const auto found =
      std::find_if(groups.begin(), groups.end(), [&](const VoiceGroup& g) { return g.title == title; });
  if (found != groups.end()) {
    found->positions.push_back(position);
  } else {
    groups.push_back({title, {position}});
  }
}

}  // namespace

std::vector<VoiceGroup> GroupVoices(DirectSS& engine, const std::vector<InstalledVoice>& natural) {
  const std::map<std::string, Known> known = ByName(natural);
  std::vector<VoiceGroup> first;
  std::vector<VoiceGroup> groups;
  std::map<std::int32_t, std::int32_t> ranks;
  for (std::int32_t position = 0; position < engine.VoiceCount(); ++position) {
    const auto found = known.find(engine.VoiceName(position + 1));
    if (found == known.end()) {
      Add(groups, PlainTitle(engine.VoiceLanguage(position + 1)), position);
    } else {
      ranks[position] = found->second.rank;
      Add(first, "Natürliche Stimmen: " + found->second.language, position);
    }
  }
  for (VoiceGroup& group : first) {
    std::stable_sort(group.positions.begin(), group.positions.end(),
                     [&](std::int32_t a, std::int32_t b) { return ranks[a] < ranks[b]; });
  }
  (void)std::stable_partition(groups.begin(), groups.end(),
                              [](const VoiceGroup& g) { return g.title != kOthers; });
  first.insert(first.end(), groups.begin(), groups.end());
  return first;
}

std::int32_t ProposedVoice(DirectSS& engine, const std::vector<InstalledVoice>& natural,
                           std::int32_t position) {
  const std::map<std::string, Known> known = ByName(natural);
  if (known.count(engine.VoiceName(position + 1)) > 0) return -1;
  std::int32_t best = -1;
  std::int32_t rank = 0;
  for (std::int32_t candidate = 0; candidate < engine.VoiceCount(); ++candidate) {
    const auto found = known.find(engine.VoiceName(candidate + 1));
    if (found == known.end() || !found->second.german) continue;
    if (best >= 0 && found->second.rank >= rank) continue;
    best = candidate;
    rank = found->second.rank;
  }
  return best;
}

}  // namespace lorelin
