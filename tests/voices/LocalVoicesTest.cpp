#include "voices/localVoices.h"

#include <gmock/gmock.h>

#include "base/modFile.h"
#include "platform/common/AtomicFileWriter.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeVoicePorts.h"

namespace lorelin {
namespace {

using testing::HasSubstr;

class LocalVoiceFiles : public testing::Test {
 protected:
  LocalVoiceFiles() {
    WriteFile(model, "Modell");
    WriteFile(model + ".json", "{}");
  }
  VoiceOutcome Install(
      const LocalVoice& voice, const std::function<bool()>& keepGoing = [] { return true; }) {
    return LocalVoices({files, archives, natural, log}).Install(voice, keepGoing);
  }
  std::string Installed(const std::string& ending) { return folder.File("stimmen/eigene" + ending); }

  TemporaryFolder folder;
  FakeLog log;
  AtomicFileWriter files;
  FakeVoiceArchives archives;
  FakeNaturalVoices natural{folder.File("stimmen")};
  const std::string model = folder.File("eigene.onnx");
};

TEST_F(LocalVoiceFiles, AreFoundByTheModelOrItsDescription) {
  for (const auto& paths :
       {std::vector{model}, std::vector{model + ".json"}, std::vector{model + ".json", model}}) {
    const auto voice = FindLocalVoice(paths, archives);
    ASSERT_TRUE(voice);
    EXPECT_EQ(voice->name, "eigene");
    EXPECT_EQ(voice->model, model);
    EXPECT_EQ(voice->description, model + ".json");
  }
  EXPECT_FALSE(FindLocalVoice({"/x/brief.txt", "/x/daten.json", "/x/.onnx"}, archives));
}

TEST_F(LocalVoiceFiles, AreTakenOver) {
  const auto voice = FindLocalVoice({model}, archives);
  EXPECT_TRUE(Install(*voice).Done());
  EXPECT_EQ(ReadFile(Installed(".onnx")), "Modell");
  EXPECT_EQ(ReadFile(Installed(".onnx.json")), "{}");
  EXPECT_TRUE(FileExists(model)) << "what was given stays";
  EXPECT_THAT(Install(*voice).text, HasSubstr("schon installiert"));
}

TEST_F(LocalVoiceFiles, LeaveNothingBehindWhenTheyAreNoVoice) {
  WriteFile(model + ".json", "nichts");
  EXPECT_THAT(Install(*FindLocalVoice({model}, archives)).text, HasSubstr("kein JSON"));
  WriteFile(model + ".json", "{}");
  WriteFile(model, "");
  EXPECT_THAT(Install(*FindLocalVoice({model}, archives)).text, HasSubstr("leer"));
  std::filesystem::remove(model);
  EXPECT_THAT(Install(*FindLocalVoice({model + ".json"}, archives)).text, HasSubstr("nicht übernehmen"));
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("stimmen")));
}

TEST_F(LocalVoiceFiles, LeaveNothingBehindWhenItIsCancelled) {
  EXPECT_EQ(Install(*FindLocalVoice({model}, archives), [] { return false; }).kind,
            VoiceOutcome::Kind::Cancelled);
  EXPECT_TRUE(std::filesystem::is_empty(folder.File("stimmen")));
}

TEST_F(LocalVoiceFiles, AreNotTakenWhereNoNaturalVoiceSpeaks) {
  natural.supported = false;
  natural.obstacle = "Das gibt es hier nicht.";
  EXPECT_EQ(Install(*FindLocalVoice({model}, archives)).text, "Das gibt es hier nicht.");
}

TEST_F(LocalVoiceFiles, ComeOutOfAnArchive) {
  const std::string path = folder.File("stimme.tar.gz");
  archives.archives[path] = {
      {"liesmich.txt", "x"}, {"../../eigene.onnx", "Modell"}, {"../../eigene.onnx.json", "{}"}};
  const auto voice = FindLocalVoice({path}, archives);
  ASSERT_TRUE(voice);
  EXPECT_EQ(voice->name, "eigene") << "no path of the archive counts";
  EXPECT_TRUE(Install(*voice).Done());
  EXPECT_EQ(ReadFile(Installed(".onnx")), "Modell");
}

TEST_F(LocalVoiceFiles, AreNotInAnyArchive) {
  const std::string path = folder.File("bilder.zip");
  archives.archives[path] = {{"a.onnx", "Modell"}, {"b.onnx.json", "{}"}};
  EXPECT_FALSE(FindLocalVoice({path}, archives));
  archives.archives[path] = {{"x/-rf.onnx", "Modell"}, {"x/-rf.onnx.json", "{}"}};
  EXPECT_THAT(Install(*FindLocalVoice({path}, archives)).text, HasSubstr("kann nicht der Name"));
}

}  // namespace
}  // namespace lorelin
