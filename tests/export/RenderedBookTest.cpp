#include <gtest/gtest.h>

#include <filesystem>

#include "export/RenderedFile.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeSoundRendering.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class RenderedBooks : public testing::Test {
 protected:
  RenderedBooks() { rendering.writesFiles = true; }

  RenderingResult Render() {
    ExportText text{
        .written = "Eins.\nDas ist es.\nZwei.\nDas auch.", .spoken = TracedText("", 0), .info = {}};
    text.spoken = TracedText(text.written, 0);
    text.info.chapters = {{"Eins.", 1, 0}, {"Zwei.", 1, 18}};
    const PlannedFile file = PlanOneFile(std::make_shared<const ExportText>(std::move(text)),
                                         {.subtitles = {}, .book = true}, folder.File("buch.epub"));
    return RenderFile(file, voice, rendering, files, progress);
  }
  [[nodiscard]] bool NothingIsLeft() const { return std::filesystem::is_empty(folder.Path()); }

  TemporaryFolder folder;
  FakeSoundRendering rendering;
  FakeFileWriter files;
  RenderingProgress progress;
  ExportVoice voice{.profile = {.voice = 1}, .speller = nullptr};
};

TEST_F(RenderedBooks, HoldTheSoundOfEveryChapter) {
  EXPECT_EQ(Render().end, RenderingEnd::Whole);
  const std::string& book = files.files.at(folder.File("buch.epub"));
  EXPECT_EQ(book.find("mimetypeapplication/epub+zip"), 30U);
  EXPECT_NE(book.find("EPUB/audio/0001.mp3Eins.\nDas ist es.\n"), std::string::npos);
  EXPECT_NE(book.find("EPUB/audio/0002.mp3Zwei.\nDas auch."), std::string::npos);
  EXPECT_NE(book.find("<dc:title>buch</dc:title>"), std::string::npos);
  EXPECT_EQ(progress.characters, 33U);
  EXPECT_TRUE(NothingIsLeft());
}

TEST_F(RenderedBooks, AreNotThereWhenAChapterFails) {
  rendering.failsAt = "auch";
  EXPECT_EQ(Render().end, RenderingEnd::CutShort);
  EXPECT_TRUE(files.files.empty());
  EXPECT_TRUE(NothingIsLeft());
}

TEST_F(RenderedBooks, AreNotThereWhenTheyCannotBeWritten) {
  files.error = ErrorNumber::DiskFull;
  EXPECT_EQ(Render().end, RenderingEnd::NotWritten);
  EXPECT_TRUE(NothingIsLeft());
}

TEST_F(RenderedBooks, CanBeGivenUp) {
  rendering.holds = true;
  progress.cancelled = true;
  EXPECT_EQ(Render().end, RenderingEnd::Cancelled);
  EXPECT_TRUE(NothingIsLeft());
}

}  // namespace
}  // namespace lorelin
