#include "speech/modExport.h"

#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class ExportTest : public ScriptFixture {
 protected:
  ExportTest() {
    speech.SetWaveFile("");
    std::filesystem::create_directory(folder.File("temp"));
    RegisterFilter("E", [this](const std::string& method, std::optional<std::string> argument) {
      hooks.push_back(method + " " + argument.value_or("-"));
      return std::string();
    });
  }
  void Render() { WriteFile(speech.TempWavPath(), "RIFF"); }
  std::vector<std::string> hooks;
};

TEST_F(ExportTest, NeedsATextThatWasSpoken) {
  exporter.ExportDoc();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Critical);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Bitte lassen Sie sich den Text mindestens einmal vorlesen, bevor Sie diesen exportieren.");
  EXPECT_TRUE(fileDialogs.requests.empty());
}

TEST_F(ExportTest, CopiesTheFileAndTellsTheExtensions) {
  Render();
  fileDialogs.answer = "/ziel/x.wav";
  exporter.ExportDoc();
  EXPECT_EQ(statusBar.messages,
            (std::vector<std::string>{"Exportiere " + speech.TempWavPath(), "Gespeichert: x.wav"}));
  ASSERT_EQ(fileDialogs.requests.size(), 1U);
  EXPECT_EQ(fileDialogs.requests[0].fileName, "Sprachausgabe.wav");
  EXPECT_EQ(fileDialogs.requests[0].filter, "Audio Dateien (*.wav)|*.wav");
  EXPECT_EQ(fileDialogs.requests[0].defaultExtension, ".wav");
  EXPECT_EQ(files.copies,
            (std::vector<std::pair<std::string, std::string>>{{speech.TempWavPath(), "/ziel/x.wav"}}));
  EXPECT_EQ(hooks, std::vector<std::string>{"Export /ziel/x.wav"});
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_TRUE(progress.shown.empty());
}

TEST_F(ExportTest, SaysNothingWhenTheDialogIsCancelled) {
  Render();
  exporter.ExportDoc();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_TRUE(hooks.empty());
  EXPECT_EQ(statusBar.message, "Exportiere " + speech.TempWavPath());
}

TEST_F(ExportTest, TellsWhyTheCopyFailed) {
  Render();
  fileDialogs.answer = "/ziel/x.wav";
  files.error = ErrorNumber::DiskFull;
  exporter.ExportDoc();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler 61");
  EXPECT_EQ(messageBoxes.boxes[0].text, "Fehler: Datenträger voll");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Critical);
  EXPECT_TRUE(hooks.empty());
}

TEST_F(ExportTest, ShowsHowFarALongCopyIsAndCanBeCancelled) {
  Render();
  fileDialogs.answer = "/ziel/x.wav";
  clock.step = std::chrono::milliseconds(700);
  exporter.ExportDoc();
  EXPECT_EQ(progress.shown, std::vector<std::string>{"Die Sprachausgabe wird gespeichert … 100"});
  EXPECT_EQ(progress.closed, 1);
  progress.cancelled = true;
  hooks.clear();
  exporter.ExportDoc();
  EXPECT_TRUE(hooks.empty());
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

TEST_F(ExportTest, IsEnabledAndDisabledInAllWaysTogether) {
  Spoken("x");
  EXPECT_FALSE(view.enabledCommands.at("ExportDoc"));
  voice2.Finish();
  EXPECT_TRUE(view.enabledCommands.at("ExportDoc"));
}

TEST_F(ExportTest, LooksOnlyAtTheTemporaryFile) {
  Render();
  speech.SetWaveFile("/von/einem/skript.wav");
  fileDialogs.answer = "/ziel/x.wav";
  exporter.ExportDoc();
  ASSERT_EQ(files.copies.size(), 1U);
  EXPECT_EQ(files.copies[0].first, speech.TempWavPath());
}

}  // namespace
}  // namespace lorelin
