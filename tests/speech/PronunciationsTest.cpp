#include "speech/Pronunciations.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "base/RuntimeError.h"
#include "base/paths.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class PronunciationsTest : public testing::Test {
 protected:
  std::string Spoken(std::string_view text) { return pronunciations.Speller()->SpellOut(text).text; }
  std::string WordsFile() { return folder.File("lorelin/abkuerzungen.txt"); }

  TemporaryFolder folder;
  FakeRegistry registry;
  SettingsStore settings{registry};
  AtomicFileWriter files;
  FakeLog log;
  Pronunciations pronunciations{settings, files, log, folder.File("lorelin")};
};

TEST_F(PronunciationsTest, AWordOfOnesOwnCountsAtOnce) {
  pronunciations.SaveWords({{.written = "VBG", .spoken = "Vau Be Ge"}});
  EXPECT_EQ(Spoken("Die VBG zahlt."), "Die Vau Be Ge zahlt.");
  EXPECT_EQ(ReadFile(WordsFile()).substr(ReadFile(WordsFile()).rfind("VBG")), "VBG = Vau Be Ge\n");
}

TEST_F(PronunciationsTest, AnotherProgramReadsTheSameWords) {
  Pronunciations other(settings, files, log, folder.File("lorelin"));
  EXPECT_TRUE(other.Words().empty());
  pronunciations.SaveWords({{.written = "VBG", .spoken = "Vau Be Ge"}});
  EXPECT_EQ(other.Words(), pronunciations.Words());
  EXPECT_EQ(other.Speller()->SpellOut("VBG").text, "Vau Be Ge");
}

TEST_F(PronunciationsTest, AFileFromBeforeIsReadAsItIs) {
  std::filesystem::create_directories(NativePath(folder.File("lorelin")));
  WriteFile(WordsFile(), "# Meine\n\nVBG = Vau Be Ge\nStraßb* = Straßburg\n");
  ASSERT_EQ(pronunciations.Words().size(), 2U);
  EXPECT_FALSE(pronunciations.Words()[0].wholeWord);
  EXPECT_EQ(Spoken("VBG"), "Vau Be Ge");
}

TEST_F(PronunciationsTest, CommentsStayWhenWordsChange) {
  std::filesystem::create_directories(NativePath(folder.File("lorelin")));
  WriteFile(WordsFile(), "# Meine\n\nVBG  =  Vau Be Ge\nXY = Ix\n# Ende");
  pronunciations.SaveWords({{.written = "VBG", .spoken = "Vau Be Ge"},
                            {.written = "neu", .spoken = "Neu", .wholeWord = false, .matchCase = false}});
  EXPECT_EQ(ReadFile(WordsFile()), "# Meine\n\nVBG  =  Vau Be Ge\n# Ende\n~neu* = Neu\n");
}

TEST_F(PronunciationsTest, WhatCannotBeWrittenChangesNothing) {
  WriteFile(folder.File("lorelin"), "eine Datei, kein Ordner");
  EXPECT_THROW(pronunciations.SaveWords({{.written = "VBG", .spoken = "x"}}), RuntimeError);
  EXPECT_TRUE(pronunciations.Words().empty());
}

TEST_F(PronunciationsTest, SaysWhatIsWrongWithAWord) {
  EXPECT_FALSE(WordProblem({.written = "VBG", .spoken = "Vau Be Ge"}));
  EXPECT_FALSE(WordProblem({.written = "VBG", .spoken = ""}));
  EXPECT_FALSE(WordProblem({.written = "a*b", .spoken = "x", .wholeWord = false}));
  EXPECT_TRUE(WordProblem({.written = "", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = "a=b", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = "a\nb", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = "#a", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = "~a", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = "a*", .spoken = "x"}));
  EXPECT_TRUE(WordProblem({.written = " a", .spoken = "x"}));
}

TEST_F(PronunciationsTest, TheExampleRulesAreOff) {
  ASSERT_FALSE(pronunciations.Rules().empty());
  for (const ReadingRule& rule : pronunciations.Rules()) {
    EXPECT_FALSE(rule.on);
    EXPECT_FALSE(RuleProblem(rule)) << rule.pattern;
  }
  EXPECT_EQ(Spoken("Eins [zwei] drei."), "Eins [zwei] drei.");
}

TEST_F(PronunciationsTest, ARuleThatIsSwitchedOnCountsAtOnceAndElsewhere) {
  ReadingRules rules = pronunciations.Rules();
  rules[0].on = true;
  pronunciations.SaveRules(rules);
  EXPECT_EQ(Spoken("Eins [zwei]."), "Eins .");
  Pronunciations other(settings, files, log, folder.File("lorelin"));
  EXPECT_EQ(other.Rules(), rules);
}

TEST_F(PronunciationsTest, ARemovedExampleStaysRemoved) {
  pronunciations.SaveRules({});
  Pronunciations other(settings, files, log, folder.File("lorelin"));
  EXPECT_TRUE(other.Rules().empty());
}

TEST_F(PronunciationsTest, EmojiAreSilentWhenTheUserWantsIt) {
  EXPECT_NE(Spoken("Gut 🙂"), "Gut ");
  pronunciations.SpeakEmoji(false);
  EXPECT_EQ(Spoken("Gut 🙂"), "Gut ");
}

TEST_F(PronunciationsTest, WithoutAFolderThereAreNoWordsAndNothingIsWritten) {
  Pronunciations homeless(settings, files, log, "");
  EXPECT_TRUE(homeless.Words().empty());
  EXPECT_THROW(homeless.SaveWords({}), RuntimeError);
}

}  // namespace
}  // namespace lorelin
