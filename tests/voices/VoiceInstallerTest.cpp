#include "voices/VoiceInstaller.h"

#include <gmock/gmock.h>

#include "base/modFile.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeVoicePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = VoiceOutcome::Kind;

constexpr const char* kBase = "https://stimmen.example/";
constexpr const char* kModelPath = "de/probe/de_DE-probe-medium.onnx";

class Installing : public testing::Test {
 protected:
  Installing() {
    voice.name = "de_DE-probe-medium";
    voice.model = {kModelPath, model.size(), FakeChecksums::Of(model)};
    voice.description = {std::string(kModelPath) + ".json", json.size(), FakeChecksums::Of(json)};
    downloader.files[kBase + voice.model.path] = model;
    downloader.files[kBase + voice.description.path] = json;
    downloader.files[kBase + std::string("de/probe/MODEL_CARD")] = "* License: CC0\n";
  }

  VoiceOutcome Install(const VoiceInstaller::KeepGoing& keepGoing = [](auto, auto) { return true; }) {
    VoiceInstaller installer({.downloader = downloader,
                              .checksums = checksums,
                              .log = log,
                              .folder = folder.File("stimmen"),
                              .address = kBase,
                              .room = [this] { return room; }});
    return installer.Install(voice, "* License: CC0\n", keepGoing);
  }
  std::string File(const std::string& ending) { return folder.File("stimmen/" + voice.name + ending); }

  TemporaryFolder folder;
  FakeLog log;
  FakeResumingDownloader downloader;
  FakeChecksums checksums;
  CatalogueVoice voice;
  std::uintmax_t room = 1'000'000'000;
  const std::string model = "das ist das ganze Modell";
  const std::string json = "{\"alles\": 1}";
};

TEST_F(Installing, LeavesModelDescriptionAndCard) {
  std::vector<std::uintmax_t> told;
  const VoiceOutcome outcome = Install([&](auto there, auto all) {
    EXPECT_EQ(all, model.size() + json.size());
    told.push_back(there);
    return true;
  });
  EXPECT_TRUE(outcome.Done()) << outcome.text;
  EXPECT_EQ(ReadFile(File(".onnx")), model);
  EXPECT_EQ(ReadFile(File(".onnx.json")), json);
  EXPECT_EQ(ReadFile(File(".txt")), "* License: CC0\n");
  EXPECT_FALSE(FileExists(File(".onnx.part")));
  EXPECT_FALSE(FileExists(File(".onnx.json.part")));
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_EQ(told.back(), model.size() + json.size());
}

TEST_F(Installing, GoesOnWhereTheConnectionBroke) {
  downloader.cutBehind = 12;
  const VoiceOutcome cut = Install();
  EXPECT_EQ(cut.kind, Kind::Failed);
  EXPECT_THAT(cut.text, HasSubstr("macht dort weiter"));
  EXPECT_FALSE(FileExists(File(".onnx")));
  EXPECT_FALSE(FileExists(File(".onnx.json")));
  downloader.cutBehind.reset();
  downloader.resumedAt.clear();
  EXPECT_TRUE(Install().Done());
  EXPECT_THAT(downloader.resumedAt, ElementsAre(12)) << "what is whole is not fetched again";
  EXPECT_EQ(ReadFile(File(".onnx")), model);
}

TEST_F(Installing, KeepsWhatHasArrivedWhenItIsCancelled) {
  const VoiceOutcome cancelled = Install([&](auto there, auto) { return there < json.size() + 8; });
  EXPECT_EQ(cancelled.kind, Kind::Cancelled);
  EXPECT_EQ(cancelled.text, "");
  EXPECT_EQ(ReadFile(File(".onnx.part")).size(), 8U);
  EXPECT_TRUE(Install().Done());
}

TEST_F(Installing, RefusesAndRemovesAFileWithAnotherChecksum) {
  downloader.files[kBase + voice.model.path] = "das ist ein anderes Ding";
  const VoiceOutcome outcome = Install();
  EXPECT_EQ(outcome.kind, Kind::Failed);
  EXPECT_THAT(outcome.text, HasSubstr("Prüfsumme falsch"));
  EXPECT_FALSE(FileExists(File(".onnx")));
  EXPECT_FALSE(FileExists(File(".onnx.part")));
  EXPECT_THAT(log.lines, testing::Contains(HasSubstr("Prüfsumme")));
}

TEST_F(Installing, RefusesAFileThatIsShorterOrLongerThanTold) {
  downloader.files[kBase + voice.model.path] = "kurz";
  EXPECT_THAT(Install().text, HasSubstr("Prüfsumme falsch"));
  downloader.files[kBase + voice.model.path] = model + "und noch viel mehr";
  EXPECT_THAT(Install().text, HasSubstr("größer"));
}

TEST_F(Installing, AsksForRoomBeforeItFetchesAnything) {
  room = 1000;
  const VoiceOutcome outcome = Install();
  EXPECT_EQ(outcome.kind, Kind::NoRoom);
  EXPECT_THAT(outcome.text, HasSubstr("zu wenig Platz"));
  EXPECT_THAT(downloader.asked, IsEmpty());
}

TEST_F(Installing, TellsAFullDiskAndKeepsWhatIsThere) {
  downloader.cutBehind = 12;
  downloader.cutAs = DownloadEnd::Kind::DiskFull;
  const VoiceOutcome outcome = Install();
  EXPECT_EQ(outcome.kind, Kind::NoRoom);
  EXPECT_THAT(outcome.text, HasSubstr("voll"));
  EXPECT_EQ(ReadFile(File(".onnx.part")).size(), 12U);
}

TEST_F(Installing, TellsWhatTheServerDoesNotHave) {
  downloader.files.clear();
  EXPECT_THAT(Install().text, HasSubstr("404"));
}

TEST_F(Installing, FailsWhereThereCanBeNoFolder) {
  WriteFile(folder.File("stimmen"), "eine Datei");
  const VoiceOutcome outcome = Install();
  EXPECT_EQ(outcome.kind, Kind::NoRoom);
  EXPECT_THAT(outcome.text, HasSubstr("nicht beschreiben"));
}

TEST_F(Installing, FetchesTheCardAlone) {
  VoiceInstaller installer(
      {downloader, checksums, log, folder.File("stimmen"), "https://stimmen.example", {}});
  std::string card;
  EXPECT_TRUE(installer.FetchCard(voice, card, [](auto, auto) { return true; }).Done());
  EXPECT_EQ(card, "* License: CC0\n");
  EXPECT_FALSE(FileExists(File(".txt"))) << "nobody has agreed yet";
  EXPECT_FALSE(FileExists(File(".txt.part")));
}

TEST_F(Installing, RemovesAVoiceAndItsParts) {
  ASSERT_TRUE(Install().Done());
  WriteFile(File(".onnx.part"), "x");
  VoiceInstaller installer({downloader, checksums, log, folder.File("stimmen"), kBase, {}});
  EXPECT_TRUE(installer.Folder().Has(voice.name));
  EXPECT_TRUE(installer.Remove(voice.name).Done());
  EXPECT_FALSE(installer.Folder().Has(voice.name));
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("stimmen")));
}

TEST(AddressPath, SpellsOutWhatAnAddressCannotHold) {
  EXPECT_EQ(AddressPath("pt/tugão/a b.onnx"), "pt/tug%C3%A3o/a%20b.onnx");
}

}  // namespace
}  // namespace lorelin
