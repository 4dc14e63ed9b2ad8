#include "engine/SpeechModule.h"

#include <gtest/gtest.h>

namespace lorelin::engine {
namespace {

using std::string_literals::operator""s;

std::string Block(const std::string& bytes, const std::string& more = "705-big_endian=0\n") {
  return "705-bits=16\n705-num_channels=1\n705-sample_rate=16000\n705-num_samples=1\n" + more +
         "705-AUDIO\0"s + bytes + "\n705 AUDIO\n";
}

ModuleAnswers Read(std::string bytes) {
  ModuleAnswers answers;
  answers.Read(bytes);
  EXPECT_EQ(bytes, "");
  return answers;
}

TEST(SpeechModule, IsAskedForItsSound) {
  const std::string greeting = ModuleGreeting("de", "");
  EXPECT_TRUE(greeting.starts_with("INIT\nAUDIO\naudio_output_method=server\n.\nSET\n"));
  EXPECT_TRUE(greeting.ends_with("language=de\nvoice=male1\nsynthesis_voice=NULL\n.\n"));
  EXPECT_TRUE(ModuleGreeting("de", "German+Klatt").ends_with("synthesis_voice=German+Klatt\n.\n"));
}

TEST(SpeechModule, GetsASentenceInOneLineWithAMarkBeforeEachPiece) {
  EXPECT_EQ(ModuleSentence({"Max ", "& <Moritz>\n", "\"ja\""}),
            "SPEAK\n<speak><mark name=\"0\"/>Max <mark name=\"1\"/>&amp; &lt;Moritz&gt; "
            "<mark name=\"2\"/>&quot;ja&quot;</speak>\n.\n");
}

TEST(SpeechModule, CountsItsAnswers) {
  auto answers = Read("299-Alles in Ordnung\n299 OK LOADED SUCCESSFULLY\n203 OK\n");
  EXPECT_EQ(answers.Count(), 2U);
  EXPECT_EQ(answers.Refusal(), "");
  EXPECT_FALSE(answers.Ended());
  EXPECT_FALSE(answers.Broken());
}

TEST(SpeechModule, RefusesInItsOwnWords) {
  EXPECT_EQ(Read("399-Nein\n399 ERR CANT INIT MODULE\n").Refusal(), "399 ERR CANT INIT MODULE");
}

TEST(SpeechModule, GivesSoundAndMarks) {
  auto answers = Read("202 OK\n200 OK SPEAKING\n701 BEGIN\n700-0\n700 INDEX MARK\n" + Block("\0\x40"s) +
                      "700-1\n700 INDEX MARK\n" + Block("\0\xC0\0\x40"s) + "702 END\n");
  EXPECT_EQ(answers.Count(), 2U);
  EXPECT_TRUE(answers.Ended());
  EXPECT_EQ(answers.Spoken().sampleRate, 16000);
  EXPECT_EQ(answers.Spoken().samples, (std::vector<float>{0.5F, -0.5F, 0.5F}));
  ASSERT_EQ(answers.Marks().size(), 2U);
  EXPECT_EQ(answers.Marks()[1].piece, 1U);
  EXPECT_EQ(answers.Marks()[1].sample, 1U);
}

TEST(SpeechModule, EscapesEndsOfLinesInTheSound) {
  auto answers = Read(Block("\x7D\x2A\x7D\x5D"));
  ASSERT_EQ(answers.Spoken().samples.size(), 1U);
  EXPECT_EQ(answers.Spoken().samples[0], static_cast<float>(0x7D0A) / 32768);
}

TEST(SpeechModule, MayHaveTwoChannelsAndTheOtherOrder) {
  auto answers = Read(Block("\x40\0\0\0"s, "705-num_channels=2\n705-big_endian=1\n"));
  EXPECT_EQ(answers.Spoken().samples, (std::vector<float>{0.25F}));
}

TEST(SpeechModule, IsReadAsItComes) {
  const std::string whole = "200 OK\n" + Block("\0\x40"s) + "702 END\n";
  ModuleAnswers answers;
  std::string bytes;
  for (const char c : whole) {
    bytes += c;
    answers.Read(bytes);
  }
  EXPECT_EQ(answers.Spoken().samples, (std::vector<float>{0.5F}));
  EXPECT_TRUE(answers.Ended());
}

TEST(SpeechModule, IsNoneWhenItAnswersOtherwise) {
  for (const std::string& bytes :
       {"Guten Tag\n"s, "\n"s, "20 OK\n"s, "200\n"s, "200_OK\n"s, Block("x", "705-bits=8\n"),
        Block("x", "705-num_channels=9\n"), "705-AUDIO\0x\n"s, "705-sample_rate=1\n"s,
        Block("xx") + Block("xx", "705-sample_rate=8000\n")})
    EXPECT_TRUE(Read(bytes).Broken()) << bytes;
}

}  // namespace
}  // namespace lorelin::engine
