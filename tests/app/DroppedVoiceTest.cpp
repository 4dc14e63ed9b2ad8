#include "app/DroppedVoice.h"

#include <gmock/gmock.h>

#include "base/modFile.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/FakeSystem.h"
#include "tests/support/FakeVoicePorts.h"

namespace lorelin {
namespace {

using testing::HasSubstr;

class Dropped : public testing::Test, protected FakeSystem {
 protected:
  Dropped() {
    WriteFile(model, "Modell");
    WriteFile(model + ".json", "{}");
  }
  bool Take(const std::vector<std::string>& paths) {
    VoiceLibrary library({downloads, checksums, archives, natural, realFiles, settings, clock, log});
    return DroppedVoice({library, messageBoxes, progress, statusBar, [this] { ++renewed; }}).Take(paths);
  }

  SettingsStore settings{registry};
  FakeResumingDownloader downloads;
  FakeChecksums checksums;
  FakeVoiceArchives archives;
  FakeNaturalVoices natural{folder.File("stimmen")};
  AtomicFileWriter realFiles;
  FakeProgressWindow progress;
  FakeStatusBar statusBar;
  const std::string model = folder.File("eigene.onnx");
  int renewed = 0;
};

TEST_F(Dropped, VoicesAreInstalledWhenTheUserWantsThem) {
  messageBoxes.answers = {MessageAnswer::No};
  EXPECT_TRUE(Take({model + ".json", model}));
  EXPECT_FALSE(FileExists(folder.File("stimmen/eigene.onnx")));
  messageBoxes.answers = {MessageAnswer::Yes};
  natural.installed = {{"eigene", folder.File("stimmen"), {"Deutsch – eigene"}, "de-de", "", true}};
  EXPECT_TRUE(Take({model + ".json", model}));
  EXPECT_EQ(ReadFile(folder.File("stimmen/eigene.onnx")), "Modell");
  EXPECT_EQ(renewed, 1);
  EXPECT_EQ(statusBar.Message(),
            "Die Stimme „Deutsch – eigene“ ist installiert. Sie steht unter „Stimme wählen“.");
  EXPECT_EQ(progress.closed, 1);
}

TEST_F(Dropped, ArchivesWithAVoiceAreInstalled) {
  archives.archives[folder.File("a.zip")] = {{"x/eigene.onnx", "Modell"}, {"x/eigene.onnx.json", "{}"}};
  messageBoxes.answers = {MessageAnswer::Yes};
  EXPECT_TRUE(Take({folder.File("a.zip")}));
  EXPECT_EQ(renewed, 1);
}

TEST_F(Dropped, DocumentsAreLeftToOthers) {
  EXPECT_FALSE(Take({folder.File("brief.txt")}));
  EXPECT_FALSE(Take({folder.File("ohne.zip")}));
  EXPECT_EQ(renewed, 0);
}

TEST_F(Dropped, VoicesThatAreNoneAreTold) {
  WriteFile(model + ".json", "nichts");
  messageBoxes.answers = {MessageAnswer::Yes, MessageAnswer::Ok};
  EXPECT_TRUE(Take({model}));
  EXPECT_THAT(messageBoxes.boxes.back().text, HasSubstr("unbrauchbar"));
  EXPECT_EQ(renewed, 0);
  EXPECT_EQ(progress.closed, 1);
}

}  // namespace
}  // namespace lorelin
