#include "export/SoundExport.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/FakeSoundRendering.h"
#include "tests/support/FakeSystem.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;

class SoundExports : public testing::Test, protected FakeSystem {
 protected:
  static bool WaitFor(const ExportQueue& queue) {
    const auto until = std::chrono::steady_clock::now() + minutes(1);
    while (queue.Busy() && std::chrono::steady_clock::now() < until) std::this_thread::yield();
    return !queue.Busy();
  }
  ExportOrder Order(const std::string& name = "out") {
    ExportOrder order;
    order.title = "Titel";
    order.author = "Autor";
    order.folder = target.File(name);
    return order;
  }

  TemporaryFolder target;
  FakeSoundRendering rendering;
  FakeDocumentEditor document{calls};
  SettingsStore settings{system.registry};
  ModAddin extensions{system.registry, system.files, system.automation, system.log};
  Pronunciations pronunciations{settings, system.files, system.log, ""};
  DocumentInfo info;
  SoundExport exports{{.document = document,
                       .preparation = {.settings = settings,
                                       .extensions = extensions,
                                       .pronunciations = pronunciations,
                                       .clock = clock},
                       .rendering = rendering,
                       .files = files,
                       .messageBoxes = messageBoxes,
                       .info = [this] { return info; },
                       .name = [] { return NameForFiles("/ordner/brief.rtf"); }}};
};

TEST_F(SoundExports, OfferWhatIsKnownOfTheDocument) {
  document.text = "Eins.\nZwei.";
  info.author = "Jemand";
  info.chapters = {{"Eins", 1, 0}, {"Zwei", 1, 6}};
  const auto offer = exports.Offer();
  ASSERT_TRUE(offer);
  EXPECT_EQ(offer->title, "brief");
  EXPECT_EQ(offer->author, "Jemand");
  EXPECT_EQ(offer->files, 2U);
  EXPECT_GE(offer->length, seconds(0));
}

TEST_F(SoundExports, OfferNothingForAnEmptyDocument) {
  document.text = " \n";
  EXPECT_FALSE(exports.Offer());
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(SoundExports, TellWhyThereIsNoneHere) {
  document.text = "Text.";
  rendering.missing = "Hier nicht.";
  EXPECT_FALSE(exports.Offer());
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Hier nicht.");
}

TEST_F(SoundExports, MakeTheFilesInANewFolder) {
  document.text = "Text.";
  ASSERT_TRUE(exports.Start(Order()));
  ASSERT_TRUE(WaitFor(exports.Queue()));
  const auto made = rendering.Files();
  ASSERT_EQ(made.size(), 1U);
  EXPECT_EQ(made.begin()->first, target.File("out/Titel.mp3"));
  EXPECT_EQ(made.begin()->second.tags.author, "Autor");
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(SoundExports, ReplaceOnlyWhatTheUserLetsThem) {
  document.text = "Text.";
  WriteFile(target.File("Titel.mp3"), "alt");
  ExportOrder order = Order();
  order.folder = target.Path();
  messageBoxes.answers = {MessageAnswer::No};
  EXPECT_FALSE(exports.Start(order));
  EXPECT_TRUE(exports.Queue().Items().empty());
  messageBoxes.answers = {MessageAnswer::Yes};
  EXPECT_TRUE(exports.Start(order));
  EXPECT_EQ(messageBoxes.boxes.size(), 2U);
}

TEST_F(SoundExports, TellThatAFolderCannotBeMade) {
  document.text = "Text.";
  WriteFile(target.File("out"), "eine Datei");
  EXPECT_FALSE(exports.Start(Order()));
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(SoundExports, AskBeforeTheProgramEndsInTheMiddle) {
  document.text = "Text.";
  EXPECT_TRUE(exports.MayClose());
  rendering.holds = true;
  ASSERT_TRUE(exports.Start(Order()));
  messageBoxes.answers = {MessageAnswer::No};
  EXPECT_FALSE(exports.MayClose());
  messageBoxes.answers = {MessageAnswer::Yes};
  EXPECT_TRUE(exports.MayClose());
}

TEST(ExportTexts, NameSizesAndLengths) {
  EXPECT_EQ(QualityText(SoundFormat::Mp3, SoundQuality::Usual, minutes(60)), "mittel, etwa 22 MB");
  EXPECT_EQ(QualityText(SoundFormat::Mp3, SoundQuality::Small, minutes(10)), "klein, etwa 2,5 MB");
  EXPECT_EQ(QualityText(SoundFormat::Flac, SoundQuality::Usual, minutes(60)), "etwa 77 MB");
  EXPECT_EQ(LengthText(seconds(20)), "weniger als eine Minute");
  EXPECT_EQ(LengthText(seconds(60)), "etwa eine Minute");
  EXPECT_EQ(LengthText(minutes(133)), "etwa 2 Stunden 13 Minuten");
  EXPECT_EQ(LengthText(minutes(60)), "etwa eine Stunde");
}

TEST(ExportTexts, TellHowFarItIs) {
  std::vector<ExportItem> items(4);
  items[0].state = ExportState::Done;
  items[0].done = 1;
  items[1].state = ExportState::Running;
  items[1].done = 0.349;
  items[2].state = ExportState::Failed;
  items[2].result.problem = "Kein Platz.";
  EXPECT_EQ(StateText(items[0]), "fertig");
  EXPECT_EQ(StateText(items[1]), "34 %");
  EXPECT_EQ(StateText(items[2]), "Kein Platz.");
  EXPECT_EQ(StateText(items[3]), "wartet");
  EXPECT_EQ(QueueText(items, seconds(200)), "1 von 4 Dateien fertig, 1 nicht gelungen, noch etwa 3 Minuten.");
  EXPECT_NEAR(DoneOf(items), 0.587, 0.001);
  items[0].characters = 97;
  EXPECT_NEAR(DoneOf(items), 0.983, 0.001);
  EXPECT_EQ(DoneOf({}), 1);
  EXPECT_EQ(QueueText({}, std::nullopt), "Es werden keine Tondateien exportiert.");
  EXPECT_EQ(QueueText({items[0]}, std::nullopt), "1 von 1 Datei fertig.");
}

TEST(ExportTexts, NameFilesAfterTheDocument) {
  EXPECT_EQ(NameForFiles(""), "Sprachausgabe");
  EXPECT_EQ(NameForFiles("/a/Mein Brief.v2.txt"), "Mein Brief.v2");
}

}  // namespace
}  // namespace lorelin
