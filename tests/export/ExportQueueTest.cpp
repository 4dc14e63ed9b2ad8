#include "export/ExportQueue.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/FakePorts.h"
#include "tests/support/FakeSoundRendering.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

std::shared_ptr<const ExportText> TextOf(const std::string& written, std::vector<Chapter> chapters = {}) {
  ExportText text{.written = written, .spoken = TracedText(written, 0), .info = {}};
  text.info.chapters = std::move(chapters);
  return std::make_shared<const ExportText>(std::move(text));
}

// Waits for other threads, however long they take.
bool Within(const std::function<bool()>& done) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::yield();
  }
  return true;
}

class RenderedFiles : public testing::Test {
 protected:
  RenderingResult Render(const PlannedFile& file) {
    return RenderFile(file, voice, rendering, files, progress);
  }

  FakeSoundRendering rendering;
  FakeFileWriter files;
  RenderingProgress progress;
  ExportVoice voice{.profile = {.voice = 1}, .speller = std::make_shared<GermanSpeller>()};
};

TEST_F(RenderedFiles, HaveTagsAndChaptersWhereTheyAreHeard) {
  PlannedFile file =
      PlanOneFile(TextOf("Eins hier.\nZwei dort.", {{"Eins", 1, 0}, {"Zwei", 1, 11}}), {}, "a.mp3");
  file.tags.title = "Titel";
  EXPECT_EQ(Render(file).end, RenderingEnd::Whole);
  const auto made = rendering.Files().at("a.mp3");
  EXPECT_EQ(made.text, "Eins hier.\nZwei dort.");
  EXPECT_EQ(made.format, SoundFormat::Mp3);
  EXPECT_EQ(made.tags.title, "Titel");
  EXPECT_EQ(made.tags.length, milliseconds(210));
  EXPECT_EQ(made.tags.chapters,
            (std::vector<SoundChapter>{{"Eins", milliseconds(0)}, {"Zwei", milliseconds(110)}}));
  EXPECT_EQ(progress.characters, 21U);
}

TEST_F(RenderedFiles, BeginWithAChapterForWhatStandsInFrontOfTheFirst) {
  const auto chaptersOf = [this](const std::string& text, const std::vector<Chapter>& chapters) {
    EXPECT_EQ(Render(PlanOneFile(TextOf(text, chapters), {}, "a.mp3")).end, RenderingEnd::Whole);
    return rendering.Files().at("a.mp3").tags.chapters;
  };
  EXPECT_EQ(chaptersOf("Buch. Eins hier.", {{"Eins", 1, 6}}),
            (std::vector<SoundChapter>{{"Anfang", milliseconds(0)}, {"Eins", milliseconds(60)}}));
  EXPECT_EQ(chaptersOf("\n Eins hier.", {{"Eins", 1, 2}}),
            (std::vector<SoundChapter>{{"Eins", milliseconds(0)}}));
}

TEST_F(RenderedFiles, HaveSubtitlesInTheWordsThatAreWritten) {
  const PlannedFile file =
      PlanOneFile(TextOf("Am 3. Mai kosten 5 kg Mehl 4,50 €."), {.subtitles = SubtitleFormat::Vtt}, "a.mp3");
  EXPECT_EQ(Render(file).end, RenderingEnd::Whole);
  EXPECT_EQ(rendering.Files().at("a.mp3").text,
            "Am dritten Mai kosten fünf Kilogramm Mehl vier Euro fünfzig.");
  EXPECT_EQ(files.files.at("a.vtt"),
            "WEBVTT\n\n00:00:00.000 --> 00:00:00.600\nAm 3. Mai kosten 5 kg Mehl 4,50 €.\n\n");
}

TEST_F(RenderedFiles, AreSpokenAsTheyAreWhereNothingIsSpelledOut) {
  voice.speller = nullptr;
  EXPECT_EQ(Render(PlanOneFile(TextOf("5 kg"), {}, "a.mp3")).end, RenderingEnd::Whole);
  EXPECT_EQ(rendering.Files().at("a.mp3").text, "5 kg");
}

TEST_F(RenderedFiles, ThatAreCutShortAreNone) {
  rendering.failsAt = "Zwei";
  const RenderingResult result =
      Render(PlanOneFile(TextOf("Eins. Zwei."), {.subtitles = SubtitleFormat::Srt}, "a.mp3"));
  EXPECT_EQ(result.end, RenderingEnd::CutShort);
  EXPECT_EQ(result.problem, "Abgebrochen.");
  EXPECT_TRUE(rendering.Files().empty());
  EXPECT_TRUE(files.files.empty());
}

TEST_F(RenderedFiles, ThatCannotTakeTheirPlaceAreNotWritten) {
  rendering.error = ErrorNumber::DiskFull;
  const RenderingResult result = Render(PlanOneFile(TextOf("Eins."), {}, "a.mp3"));
  EXPECT_EQ(result.end, RenderingEnd::NotWritten);
  EXPECT_EQ(result.problem, ErrorText(ErrorNumber::DiskFull));
}

TEST_F(RenderedFiles, TellThatTheirSubtitlesAreMissing) {
  files.error = ErrorNumber::PermissionDenied;
  const RenderingResult result =
      Render(PlanOneFile(TextOf("Eins."), {.subtitles = SubtitleFormat::Srt}, "a.mp3"));
  EXPECT_EQ(result.end, RenderingEnd::NotWritten);
  EXPECT_EQ(rendering.Files().size(), 1U);
}

TEST_F(RenderedFiles, ThatAreCancelledAreNone) {
  rendering.holds = true;
  progress.cancelled = true;
  EXPECT_EQ(Render(PlanOneFile(TextOf("Eins."), {}, "a.mp3")).end, RenderingEnd::Cancelled);
  EXPECT_TRUE(rendering.Files().empty());
}

class ExportQueues : public testing::Test {
 protected:
  void Add(ExportQueue& queue, const std::vector<std::string>& names, const std::string& text = "Text.") {
    std::vector<PlannedFile> planned;
    for (const std::string& name : names) planned.push_back(PlanOneFile(TextOf(text), {}, name));
    queue.Add(std::move(planned), voice);
  }
  static std::vector<ExportState> StatesOf(const ExportQueue& queue) {
    std::vector<ExportState> states;
    for (const ExportItem& item : queue.Items()) states.push_back(item.state);
    return states;
  }
  static bool WaitFor(const ExportQueue& queue) {
    return Within([&] { return !queue.Busy(); });
  }

  FakeSoundRendering rendering;
  FakeFileWriter files;
  FakeClock clock;
  std::shared_ptr<const ExportVoice> voice = std::make_shared<ExportVoice>();
};

TEST_F(ExportQueues, MakeEveryFile) {
  ExportQueue queue(rendering, files, clock, 2);
  EXPECT_FALSE(queue.Busy());
  Add(queue, {"a.mp3", "b.mp3", "c.mp3"});
  Add(queue, {"d.mp3"});
  ASSERT_TRUE(WaitFor(queue));
  EXPECT_EQ(StatesOf(queue), std::vector<ExportState>(4, ExportState::Done));
  EXPECT_EQ(rendering.Files().size(), 4U);
  EXPECT_EQ(queue.Items()[3].name, "d.mp3");
  EXPECT_EQ(queue.Items()[3].done, 1);
}

TEST_F(ExportQueues, GoOnAfterAFailure) {
  rendering.failsAt = "schlimm";
  ExportQueue queue(rendering, files, clock, 1);
  Add(queue, {"a.mp3"}, "Das ist schlimm.");
  Add(queue, {"b.mp3"});
  ASSERT_TRUE(WaitFor(queue));
  EXPECT_EQ(StatesOf(queue), (std::vector<ExportState>{ExportState::Failed, ExportState::Done}));
  EXPECT_EQ(queue.Items()[0].result.problem, "Abgebrochen.");
}

TEST_F(ExportQueues, WorkOnSoManyAtATime) {
  rendering.holds = true;
  ExportQueue queue(rendering, files, clock, 2);
  Add(queue, {"a.mp3", "b.mp3", "c.mp3"});
  ASSERT_TRUE(Within([&] { return StatesOf(queue)[1] == ExportState::Running; }));
  EXPECT_EQ(StatesOf(queue),
            (std::vector<ExportState>{ExportState::Running, ExportState::Running, ExportState::Waiting}));
  EXPECT_TRUE(queue.Busy());
}

TEST_F(ExportQueues, KeepWhatIsDoneWhenTheRestIsCancelled) {
  ExportQueue queue(rendering, files, clock, 1);
  Add(queue, {"a.mp3"});
  ASSERT_TRUE(WaitFor(queue));
  rendering.holds = true;
  Add(queue, {"b.mp3", "c.mp3"});
  ASSERT_TRUE(Within([&] { return StatesOf(queue)[1] == ExportState::Running; }));
  queue.CancelAll();
  ASSERT_TRUE(WaitFor(queue));
  EXPECT_EQ(StatesOf(queue),
            (std::vector<ExportState>{ExportState::Done, ExportState::Cancelled, ExportState::Cancelled}));
  EXPECT_EQ(rendering.Files().size(), 1U);
}

TEST_F(ExportQueues, CancelOneOfThem) {
  rendering.holds = true;
  ExportQueue queue(rendering, files, clock, 1);
  Add(queue, {"a.mp3", "b.mp3"});
  ASSERT_TRUE(Within([&] { return StatesOf(queue)[0] == ExportState::Running; }));
  queue.Cancel(1);
  queue.Cancel(7);
  EXPECT_EQ(StatesOf(queue), (std::vector<ExportState>{ExportState::Running, ExportState::Cancelled}));
}

TEST_F(ExportQueues, EndWithTheObject) {
  rendering.holds = true;
  {
    ExportQueue queue(rendering, files, clock, 2);
    Add(queue, {"a.mp3", "b.mp3", "c.mp3"});
    queue.End();
    EXPECT_FALSE(queue.Busy());
  }
  EXPECT_TRUE(rendering.Files().empty());
}

TEST_F(ExportQueues, EstimateTheTimeByWhatIsDone) {
  rendering.holds = true;
  ExportQueue queue(rendering, files, clock, 1);
  EXPECT_FALSE(queue.TimeLeft());
  Add(queue, {"a.mp3"});
  EXPECT_FALSE(queue.TimeLeft());
  clock.steady += std::chrono::seconds(10);
  EXPECT_FALSE(queue.TimeLeft());  // nothing was heard of it yet
}

}  // namespace
}  // namespace lorelin
