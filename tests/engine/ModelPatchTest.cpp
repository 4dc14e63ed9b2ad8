#include "engine/modelPatch.h"

#include <gtest/gtest.h>

#include <random>

#include "engine/protobuf.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/naturalVoices.h"

namespace lorelin::engine {
namespace {

std::string Model(const std::string& name) {
  return ReadFile((TestVoices() / (name + ".onnx")).string());
}

std::string Refusal(const std::string& model) {
  std::string problem;
  return PatchModel(model, problem) ? "(angenommen)" : problem;
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(Protobuf, IsWalkedOverFieldByField) {
  const std::string message = ProtobufNumber(1, 300) + ProtobufBytes(2, "ab") + ProtobufNumber(5, 0);
  ProtobufReader reader(message);
  EXPECT_EQ(reader.Next()->value, 300U);
  const auto bytes = reader.Next();
  EXPECT_EQ(bytes->number, 2U);
  EXPECT_EQ(bytes->content, "ab");
  EXPECT_EQ(bytes->whole,
            "\x12\x02"
            "ab");
  EXPECT_EQ(reader.Next()->number, 5U);
  EXPECT_FALSE(reader.Next());
  EXPECT_FALSE(reader.Broken());
}

TEST(Protobuf, EndsWhereItIsBroken) {
  for (const std::string& message :
       {std::string("\x12\x03") + "ab", std::string("\x12"),
        std::string("\x12\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 10), std::string(20, '\xFF'),
        std::string("\x02\x00", 2), std::string("\x13"), std::string("\x09") + "1234"}) {
    ProtobufReader reader(message);
    while (reader.Next()) {
    }
    EXPECT_TRUE(reader.Broken());
  }
}

TEST(ModelPatch, MakesTheDurationsAnOutput) {
  std::string problem;
  const std::string model = Model("de_DE-probe-medium");
  const auto patched = PatchModel(model, problem);
  ASSERT_TRUE(patched) << problem;
  EXPECT_EQ(patched->durations, "t8");  // what it rounds up
  EXPECT_FALSE(patched->hasSpeakers);
  EXPECT_GT(Count(patched->bytes, "t8"), Count(model, "t8"));
  EXPECT_LT(patched->bytes.size(), model.size() + 40);
  EXPECT_TRUE(PatchModel(Model("de_DE-paar-low"), problem)->hasSpeakers);
}

TEST(ModelPatch, IsDoneOnce) {
  std::string problem;
  const auto patched = PatchModel(Model("de_DE-rausch-medium"), problem);
  EXPECT_EQ(PatchModel(patched->bytes, problem)->bytes, patched->bytes);
}

TEST(ModelPatch, TakesThePlaceOfChance) {
  std::string problem;
  ASSERT_EQ(Count(Model("de_DE-rausch-medium"), "RandomNormalLike"), 1U);
  const auto patched = PatchModel(Model("de_DE-rausch-medium"), problem);
  ASSERT_TRUE(patched) << problem;
  EXPECT_EQ(Count(patched->bytes, "RandomNormalLike"), 0U);
  EXPECT_LT(patched->bytes.size(), std::size_t{2} << 20U);
}

TEST(ModelPatch, RefusesWhatIsNoVoice) {
  const std::string good = Model("de_DE-probe-medium");
  EXPECT_EQ(Refusal(good), "(angenommen)");
  EXPECT_EQ(Refusal(""), "sie ist beschädigt oder kein Modell");
  EXPECT_EQ(Refusal("Das ist kein Modell, sondern ein Text."), "sie ist beschädigt oder kein Modell");
  EXPECT_EQ(Refusal(good.substr(0, good.size() / 2)), "sie ist beschädigt oder kein Modell");
  EXPECT_EQ(Refusal(good + good), "sie ist beschädigt oder kein Modell");
  EXPECT_EQ(Refusal(ProtobufBytes(7, "")), "ihr Modell ist keines für Sprache");
  std::string other = good;
  for (std::size_t at = other.find("scales"); at != std::string::npos; at = other.find("scales"))
    other.replace(at, 6, "skalen");
  EXPECT_EQ(Refusal(other), "ihr Modell ist keines für Sprache");
  const std::string outside = ProtobufBytes(7, ProtobufBytes(5, ProtobufBytes(13, "/etc/passwd")));
  EXPECT_EQ(Refusal(outside), "ihr Modell besteht aus mehreren Dateien");
}

TEST(ModelPatch, SurvivesEveryCutAndManyChangedBytes) {
  const std::string good = Model("de_DE-rausch-medium");
  for (std::size_t size = 0; size < good.size(); size += 7) (void)Refusal(good.substr(0, size));
  std::mt19937 random(4);
  for (int i = 0; i < 300; ++i) {
    std::string changed = good;
    changed[random() % changed.size()] = static_cast<char>(random());
    (void)Refusal(changed);
  }
}

}  // namespace
}  // namespace lorelin::engine
