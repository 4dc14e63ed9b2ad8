#include "speech/voiceGroups.h"

#include <gmock/gmock.h>

#include "tests/support/FakeDirectSS.h"

namespace lorelin {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class VoiceGroups : public testing::Test {
 protected:
  VoiceGroups() {
    // The voices of the other languages stand between those that are named.
    engine.voices = {{"Deutsch", 1031},
                     {"Deutsch (weiblich)", 1031},
                     {"Englisch (USA)", 1033},
                     {"Englisch (Großbritannien)", 2057},
                     {"Afrikaans", 1078},
                     {"Aragonesisch", 0},
                     {"Deutsch – eva (hoch)", 1031},
                     {"Deutsch – tom (einfach)", 1031},
                     {"Deutsch – zoe (mittel)", 1031},
                     {"Englisch (USA) – amy (mittel)", 1033},
                     {"Italienisch", 1040}};
  }
  static InstalledVoice Natural(const std::string& offered, const std::string& language,
                                const std::string& quality) {
    return {offered, "/x", {offered}, language, quality, true};
  }

  CallLog calls;
  FakeDirectSS engine{"Voice", calls};
  const std::vector<InstalledVoice> natural{Natural("Deutsch – eva (hoch)", "de-de", "high"),
                                            Natural("Deutsch – tom (einfach)", "de-de", "low"),
                                            Natural("Deutsch – zoe (mittel)", "de-de", "medium"),
                                            Natural("Englisch (USA) – amy (mittel)", "en-us", "medium")};
};

TEST_F(VoiceGroups, BeginWithNaturalVoicesByLanguageAndQuality) {
  const auto groups = GroupVoices(engine, natural);
  ASSERT_THAT(groups, SizeIs(6));
  EXPECT_EQ(groups[0].title, "Natürliche Stimmen: Deutsch");
  EXPECT_THAT(groups[0].positions, ElementsAre(8, 6, 7));
  EXPECT_EQ(groups[1].title, "Natürliche Stimmen: Englisch (USA)");
  EXPECT_EQ(groups[2].title, "Einfache Stimmen: Deutsch");
  EXPECT_THAT(groups[2].positions, ElementsAre(0, 1));
  EXPECT_EQ(groups[3].title, "Einfache Stimmen: Englisch");
  EXPECT_THAT(groups[3].positions, ElementsAre(2, 3));
  EXPECT_EQ(groups[4].title, "Einfache Stimmen: Italienisch");
  EXPECT_EQ(groups[5].title, "Einfache Stimmen: andere Sprachen");
  EXPECT_THAT(groups[5].positions, ElementsAre(4, 5));
}

TEST_F(VoiceGroups, HoldEveryVoiceOnce) {
  std::vector<std::int32_t> all;
  for (const auto& group : GroupVoices(engine, natural)) {
    all.insert(all.end(), group.positions.begin(), group.positions.end());
  }
  std::sort(all.begin(), all.end());
  EXPECT_THAT(all, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST_F(VoiceGroups, ProposeAGermanVoiceOfMediumQuality) {
  EXPECT_EQ(ProposedVoice(engine, natural, 1), 8);
  EXPECT_EQ(ProposedVoice(engine, {natural[0], natural[1]}, 1), 6);
  EXPECT_EQ(ProposedVoice(engine, natural, 7), -1) << "a natural voice reads already";
  EXPECT_EQ(ProposedVoice(engine, {natural[3]}, 1), -1) << "it is not German";
  EXPECT_EQ(ProposedVoice(engine, {}, 1), -1);
  EXPECT_EQ(ProposedVoice(engine, natural, 99), 8) << "the stored voice is gone";
}

}  // namespace
}  // namespace lorelin
