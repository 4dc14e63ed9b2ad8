#include "export/soundFormats.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

using std::chrono::seconds;

TEST(SoundFormats, AreKnownByWordAndEnding) {
  EXPECT_EQ(SoundFormatNamed("MP3"), SoundFormat::Mp3);
  EXPECT_EQ(SoundFormatNamed(".ogg"), SoundFormat::Vorbis);
  EXPECT_FALSE(SoundFormatNamed("aac"));
  EXPECT_FALSE(SoundFormatNamed(""));
  for (const SoundFormatName& name : SoundFormatNames()) EXPECT_EQ(&NameOf(name.format), &name);
}

TEST(SoundFormats, HaveQualitiesByName) {
  for (const SoundQuality quality : {SoundQuality::Small, SoundQuality::Usual, SoundQuality::High})
    EXPECT_EQ(SoundQualityNamed(NameOf(quality)), quality);
  EXPECT_FALSE(SoundQualityNamed("riesig"));
}

TEST(SoundFormats, GrowWithLengthAndQuality) {
  EXPECT_EQ(EstimatedBytes(seconds(3600), SoundFormat::Wav, SoundQuality::Usual), 158850000U);
  EXPECT_EQ(EstimatedBytes(seconds(60), SoundFormat::Mp3, SoundQuality::Usual), 360000U);
  EXPECT_LT(EstimatedBytes(seconds(60), SoundFormat::Opus, SoundQuality::Small),
            EstimatedBytes(seconds(60), SoundFormat::Opus, SoundQuality::High));
}

TEST(SoundFormats, EstimateTheLengthByTheSpeed) {
  EXPECT_GT(EstimatedLength(10000, 0), EstimatedLength(10000, 25));
  EXPECT_GT(EstimatedLength(10000, 25), EstimatedLength(10000, 100));
  EXPECT_EQ(EstimatedLength(0, 25), seconds(0));
  EXPECT_EQ(EstimatedLength(10000, 200), EstimatedLength(10000, 100));
}

}  // namespace
}  // namespace lorelin
