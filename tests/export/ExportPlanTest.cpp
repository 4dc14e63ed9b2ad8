#include "export/ExportPlan.h"

#include <gtest/gtest.h>

#include "base/paths.h"

namespace lorelin {
namespace {

std::shared_ptr<const ExportText> TextWith(const std::string& written, std::vector<Chapter> chapters) {
  ExportText text{.written = written, .spoken = TracedText(written, 0), .info = {}};
  text.info.title = "Das Buch";
  text.info.author = "Jemand";
  text.info.language = "de";
  text.info.chapters = std::move(chapters);
  text.spoken.Surround("Vor. ", " Nach.");
  return std::make_shared<const ExportText>(std::move(text));
}

std::vector<std::string> TitlesOf(const std::vector<Chapter>& chapters) {
  std::vector<std::string> titles;
  for (const Chapter& chapter : chapters) titles.push_back(chapter.title);
  return titles;
}

constexpr ExportChoices kEach{.fileForEachChapter = true, .subtitles = {}};

TEST(ChaptersForFiles, AreThoseOfTheOutermostLevelThatHasSeveral) {
  const std::vector<Chapter> chapters{{"Buch", 1, 0}, {"Eins", 2, 5}, {"Eins a", 3, 9}, {"Zwei", 2, 20}};
  EXPECT_EQ(TitlesOf(ChaptersForFiles(chapters, "Buch\nEins ....... ........Zwei")),
            (std::vector<std::string>{"Buch", "Eins", "Zwei"}));
}

TEST(ChaptersForFiles, HaveABeginningOfItsOwn) {
  EXPECT_EQ(TitlesOf(ChaptersForFiles({{"Eins", 1, 5}, {"Zwei", 1, 9}}, "Ach.\nEinsZwei")),
            (std::vector<std::string>{"Anfang", "Eins", "Zwei"}));
  const auto chapters = ChaptersForFiles({{"Eins", 1, 2}, {"Zwei", 1, 9}}, " \nEinsZwei");
  EXPECT_EQ(TitlesOf(chapters), (std::vector<std::string>{"Eins", "Zwei"}));
  EXPECT_EQ(chapters.front().position, 0U);
}

TEST(ChaptersForFiles, AtOnePlaceAreOne) {
  EXPECT_EQ(
      TitlesOf(ChaptersForFiles({{"Titel", 1, 0}, {"Untertitel", 1, 0}, {"Zwei", 1, 9}}, "Text ....Zwei")),
      (std::vector<std::string>{"Titel", "Zwei"}));
}

TEST(ChaptersForFiles, OfATextWithoutAnyAreTheWholeText) {
  EXPECT_EQ(ChaptersForFiles({}, "Text").size(), 1U);
}

TEST(ExportPlan, MakesOneFileWithMarks) {
  const auto text = TextWith("Eins.\nZwei.", {{"Eins", 1, 0}, {"Zwei", 1, 6}});
  const auto files = PlanExport(text, {.subtitles = SubtitleFormat::Srt}, "/musik", "datei");
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].target, JoinPath("/musik", {"Das Buch.mp3"}));
  EXPECT_EQ(SubtitlePath(files[0]), "/musik/Das Buch.srt");
  EXPECT_EQ(files[0].tags.title, "Das Buch");
  EXPECT_EQ(files[0].tags.author, "Jemand");
  EXPECT_EQ(files[0].chapters.size(), 2U);
  EXPECT_EQ(files[0].spoken, (CharacterRange{0, 22}));
}

TEST(ExportPlan, MakesAFileForEachChapter) {
  const auto text = TextWith("Eins.\nZwei.\nDrei.", {{"Eins", 1, 0}, {"Zw/ei", 1, 6}, {"Drei", 1, 12}});
  const auto files = PlanExport(text, kEach, "/musik", "datei");
  ASSERT_EQ(files.size(), 3U);
  EXPECT_EQ(files[1].target, JoinPath("/musik", {"02 Zw ei.mp3"}));
  EXPECT_EQ(files[1].tags.title, "Zw/ei");
  EXPECT_EQ(files[1].tags.album, "Das Buch");
  EXPECT_EQ(files[1].tags.track, 2);
  EXPECT_EQ(files[1].tags.tracks, 3);
  EXPECT_TRUE(files[1].chapters.empty());
}

TEST(ExportPlan, SpeaksTheWholeTextOnceWhateverItIsCutInto) {
  const auto text = TextWith("Eins.\nZwei.\nDrei.", {{"Eins", 1, 0}, {"Zwei", 1, 6}, {"Drei", 1, 12}});
  const auto files = PlanExport(text, kEach, "", "datei");
  EXPECT_EQ(files[0].spoken, (CharacterRange{0, 11}));  // with what is put in front
  EXPECT_EQ(files[1].spoken, (CharacterRange{11, 17}));
  EXPECT_EQ(files[2].spoken, (CharacterRange{17, 28}));  // and behind
}

TEST(ExportPlan, MarksTheChaptersWithinAChapter) {
  const auto text =
      TextWith("Eins.\na..\nb..\nZwei.", {{"Eins", 1, 0}, {"a", 2, 6}, {"b", 2, 10}, {"Zwei", 1, 14}});
  const auto files = PlanExport(text, kEach, "", "datei");
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(TitlesOf(files[0].chapters), (std::vector<std::string>{"Eins", "a", "b"}));
}

TEST(ExportPlan, NamesATextWithoutTitleAfterItsFile) {
  auto text = std::make_shared<ExportText>(ExportText{"Text.", TracedText("Text.", 0), {}});
  const auto files = PlanExport(text, kEach, "x", "brief");
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].target, JoinPath("x", {"brief.mp3"}));
  EXPECT_EQ(files[0].tags.title, "brief");
}

TEST(ExportPlan, GivesFilesOfTheSameNameNamesOfTheirOwn) {
  std::vector<PlannedFile> files(4);
  files[0].target = files[1].target = JoinPath("x", {"a.b.mp3"});
  files[2].target = JoinPath("x", {"A.b.mp3"});
  files[3].target = JoinPath("x", {"c.mp3"});
  MakeTargetsDistinct(files);
  EXPECT_EQ(files[0].target, JoinPath("x", {"a.b.mp3"}));
  EXPECT_EQ(files[1].target, JoinPath("x", {"a.b (2).mp3"}));
  EXPECT_EQ(files[2].target, JoinPath("x", {"A.b (3).mp3"}));
  EXPECT_EQ(files[3].target, JoinPath("x", {"c.mp3"}));
}

}  // namespace
}  // namespace lorelin
