#include "voices/catalogue.h"

#include <gmock/gmock.h>

#include <set>

#include "base/sizeText.h"
#include "voices/voiceTexts.h"

namespace lorelin {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kGood =
    "de_DE-probe-medium\tde_DE\tprobe\tmedium\t1\tde/de_DE/probe/medium/de_DE-probe-medium.onnx\t1000\t"
    "0123456789abcdef0123456789abcdef\t20\tfedcba9876543210fedcba9876543210";

std::string With(const std::string& from, const std::string& to) {
  std::string line = kGood;
  const auto at = line.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return line.replace(at, from.size(), to);
}

TEST(Catalogue, ReadsAVoiceALine) {
  const Catalogue catalogue = ReadCatalogue(std::string("# Kopf\r\n") + kGood + "\r\n\n");
  EXPECT_THAT(catalogue.problems, IsEmpty());
  ASSERT_THAT(catalogue.voices, SizeIs(1));
  const CatalogueVoice& voice = catalogue.voices.front();
  EXPECT_EQ(voice.name, "de_DE-probe-medium");
  EXPECT_EQ(voice.quality, VoiceQuality::Medium);
  EXPECT_EQ(voice.Bytes(), 1020U);
  EXPECT_EQ(voice.description.path, "de/de_DE/probe/medium/de_DE-probe-medium.onnx.json");
  EXPECT_EQ(voice.CardPath(), "de/de_DE/probe/medium/MODEL_CARD");
  EXPECT_EQ(voice.model.Kind(), ChecksumKind::Md5);
  EXPECT_EQ(VoiceText(voice), "Deutsch – probe (mittel)");
  EXPECT_EQ(catalogue.Find("DE_de-PROBE-medium"), &voice);
  EXPECT_EQ(catalogue.Find("de_DE-probe"), nullptr);
}

TEST(Catalogue, TakesTheLongerChecksumToo) {
  const std::string longer(64, 'a');
  const Catalogue catalogue = ReadCatalogue(With("0123456789abcdef0123456789abcdef", longer));
  ASSERT_THAT(catalogue.voices, SizeIs(1));
  EXPECT_EQ(catalogue.voices.front().model.Kind(), ChecksumKind::Sha256);
}

TEST(Catalogue, LeavesOutAndTellsLinesThatAreNoVoices) {
  const std::string bad[] = {
      "de_DE-probe-medium",
      std::string(kGood) + "\tmehr",
      With("de_DE-probe-medium\t", "../probe\t"),
      With("de_DE-probe-medium\t", ".versteckt\t"),
      With("\tde_DE\t", "\tdeutsch\t"),
      With("\tmedium\t1\t", "\tsuper\t1\t"),
      With("\t1\t", "\t0\t"),
      With("\t1\t", "\t99999\t"),
      With("de/de_DE/probe", "de/../probe"),
      With("de/de_DE/probe", "/etc/probe"),
      With("de/de_DE/probe", "http://anders/probe"),
      With("de_DE-probe-medium\t", "de_DE-andere-medium\t"),
      With(".onnx\t", ".exe\t"),
      With("\t1000\t", "\t99999999999\t"),
      With("\t1000\t", "\t-1\t"),
      With("0123456789abcdef0123", "0123456789ABCDEF0123"),
      With("0123456789abcdef0123", "0123"),
      With("\t20\t", "\t9999999\t"),
  };
  for (const std::string& line : bad) {
    const Catalogue catalogue = ReadCatalogue(line);
    EXPECT_THAT(catalogue.voices, IsEmpty()) << line;
    EXPECT_THAT(catalogue.problems, SizeIs(1)) << line;
  }
  const Catalogue twice = ReadCatalogue(std::string(kGood) + "\n" + kGood + "\n");
  EXPECT_THAT(twice.voices, SizeIs(1));
  EXPECT_THAT(twice.problems, SizeIs(1));
}

TEST(ShippedCatalogue, IsWellFormedThroughout) {
  const Catalogue catalogue = ReadCatalogue(ShippedCatalogueText());
  EXPECT_THAT(catalogue.problems, IsEmpty());
  EXPECT_THAT(catalogue.voices, SizeIs(testing::Ge(160U)));
  std::set<std::string> paths;
  for (const CatalogueVoice& voice : catalogue.voices) {
    EXPECT_TRUE(paths.insert(voice.model.path).second) << voice.name;
    EXPECT_TRUE(voice.name.starts_with(voice.language + "-" + voice.speaker + "-")) << voice.name;
    EXPECT_NE(LanguageText(voice.language), voice.language) << "a language without a German name";
    EXPECT_GT(voice.model.bytes, 10'000'000U) << voice.name;
  }
}

TEST(ShippedCatalogue, BeginsWithGermanAndEnglish) {
  const Catalogue catalogue = ReadCatalogue(ShippedCatalogueText());
  std::size_t german = 0;
  while (catalogue.voices[german].language == "de_DE") ++german;
  EXPECT_EQ(german, 10U);
  EXPECT_TRUE(catalogue.voices[german].language.starts_with("en_"));
  EXPECT_NE(catalogue.Find("de_DE-thorsten-medium"), nullptr);
}

TEST(VoiceTexts, SayWhatIsToBeKnown) {
  EXPECT_EQ(LanguageText("nl_BE"), "Niederländisch (Belgien)");
  EXPECT_EQ(LanguageText("xx_XX"), "xx_XX");
  EXPECT_EQ(SizeText(63'201'294), "63 MB");
  EXPECT_EQ(SizeText(5'040), "0,0 MB");
  EXPECT_EQ(SizeText(1'250'000), "1,3 MB");
  EXPECT_THAT(std::string(QualityAdvice(VoiceQuality::Medium)), testing::HasSubstr("Empfohlen"));
  EXPECT_THAT(std::string(QualityAdvice(VoiceQuality::High)), testing::HasSubstr("länger"));
  CatalogueVoice voice;
  voice.speaker = "mls";
  voice.speakers = 236;
  EXPECT_EQ(SpeakerText(voice), "mls (236 Sprecher)");
}

TEST(VoiceTexts, FindTheLicenceInACard) {
  EXPECT_EQ(LicenceOf("# Card\n\n* License: CC0\r\n* URL: x\n"), "CC0");
  EXPECT_EQ(LicenceOf("  - LICENSE:  https://example.org/LICENSE "), "https://example.org/LICENSE");
  EXPECT_EQ(LicenceOf("ohne"), "");
  EXPECT_EQ(LicenceOf(""), "");
}

}  // namespace
}  // namespace lorelin
