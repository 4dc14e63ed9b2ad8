#include "voices/VoiceLibrary.h"

#include <gmock/gmock.h>

#include "tests/support/FakeSystem.h"
#include "tests/support/FakeVoicePorts.h"
#include "voices/DownloadPace.h"
#include "voices/keptVoice.h"
#include "voices/speedRating.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using State = VoiceLibrary::State;

class Library : public testing::Test, protected FakeSystem {
 protected:
  VoiceLibrary Make() {
    return VoiceLibrary({downloads, checksums, archives, natural, files, settings, clock, log});
  }
  VoiceLibrary::Entry Entry(const std::string& name) {
    VoiceLibrary library = Make();
    for (auto& entry : library.Entries()) {
      if (entry.name == name) return entry;
    }
    ADD_FAILURE() << name;
    return {};
  }

  SettingsStore settings{registry};
  FakeResumingDownloader downloads;
  FakeChecksums checksums;
  FakeVoiceArchives archives;
  FakeNaturalVoices natural{folder.Path()};
};

TEST_F(Library, OffersTheWholeCatalogue) {
  const auto entry = Entry("de_DE-thorsten-medium");
  EXPECT_EQ(entry.language, "Deutsch");
  EXPECT_EQ(entry.speaker, "thorsten");
  EXPECT_EQ(entry.quality, "mittel");
  EXPECT_EQ(entry.size, "63 MB");
  EXPECT_EQ(entry.StateText(), "herunterladbar");
  EXPECT_TRUE(entry.CanInstall());
  EXPECT_FALSE(entry.CanRemove());
}

TEST_F(Library, TellsWhatIsThereAlready) {
  natural.installed = {{"de_DE-thorsten-low", folder.Path(), {"Deutsch – t"}, "de-de", "low", true},
                       {"de_DE-kerstin-low", "/usr/share", {"Deutsch – k"}, "de-de", "low", false},
                       {"eigene", folder.Path(), {"Deutsch – e"}, "de-de", "medium", true}};
  WriteFile(folder.File("de_DE-thorsten-low.txt"), "License: CC0");
  WriteFile(folder.File("de_DE-thorsten-high.onnx.part"), std::string(5'000'000, 'x'));
  EXPECT_EQ(Entry("de_DE-thorsten-low").state, State::Installed);
  EXPECT_EQ(Entry("de_DE-thorsten-low").licence, "CC0");
  EXPECT_EQ(Entry("de_DE-kerstin-low").StateText(), "installiert (für alle)");
  EXPECT_FALSE(Entry("de_DE-kerstin-low").CanRemove());
  EXPECT_EQ(Entry("eigene").language, "Deutsch");
  EXPECT_TRUE(Entry("eigene").CanRemove());
  EXPECT_EQ(Entry("de_DE-thorsten-high").StateText(), "angefangen (5,0 MB)");
  EXPECT_TRUE(Entry("de_DE-thorsten-high").CanInstall());
  EXPECT_EQ(Make().OfferedName("eigene"), "Deutsch – e");
}

TEST_F(Library, FindsByNameLanguageOrSpeaker) {
  VoiceLibrary library = Make();
  EXPECT_THAT(library.Entries("DEUTSCH"), SizeIs(10));
  EXPECT_THAT(library.Entries("thorsten"), SizeIs(testing::Ge(4U)));
  EXPECT_THAT(library.Entries("gibtesnicht"), IsEmpty());
}

TEST_F(Library, TakesAnotherCatalogueFromTheSettings) {
  WriteFile(folder.File("liste.tsv"), "quatsch\n");
  settings.Save(setting::VoiceCatalogue, folder.File("liste.tsv"));
  EXPECT_THAT(Make().Entries(), IsEmpty());
  EXPECT_THAT(Make().Problems(), SizeIs(1));
  settings.Save(setting::VoiceCatalogue, folder.File("fehlt.tsv"));
  EXPECT_THAT(Make().Problems().front(), HasSubstr("lässt sich nicht lesen"));
}

TEST(SpeedRating, FollowsTheMachine) {
  EXPECT_EQ(SpeedText(VoiceQuality::Medium, std::nullopt), "");
  EXPECT_EQ(SpeedText(VoiceQuality::Medium, 3.7), "sehr schnell");
  EXPECT_EQ(SpeedText(VoiceQuality::High, 3.7), "knapp");
  EXPECT_EQ(SpeedText(VoiceQuality::High, 20), "sehr schnell");
  EXPECT_EQ(SpeedText(VoiceQuality::High, 0.5), "zu langsam");
  EXPECT_EQ(SpeedText(VoiceQuality::VeryLow, 0.5), "schnell");
}

TEST(SpeedRating, IsMeasuredByTheClock) {
  FakeClock standing;
  EXPECT_FALSE(MeasureMachine(standing));
  FakeClock slow;
  slow.step = milliseconds(50);
  FakeClock fast;
  fast.step = milliseconds(1);
  ASSERT_TRUE(MeasureMachine(slow));
  EXPECT_NEAR(*MeasureMachine(fast) / *MeasureMachine(slow), 50, 1);
}

TEST(DownloadPace, TellsSpeedAndWhatIsLeft) {
  FakeClock clock;
  DownloadPace pace(clock);
  pace.Turn(10'000'000, 60'000'000);
  EXPECT_EQ(pace.Text(), "10,0 von 60 MB");
  clock.steady += milliseconds(2000);
  pace.Turn(20'000'000, 60'000'000);
  EXPECT_EQ(pace.Text(), "20,0 von 60 MB, 5,0 MB/s, noch 8 Sekunden");
  EXPECT_EQ(pace.Percent(), 33);
  pace.Turn(60'000'000, 60'000'000);
  EXPECT_EQ(pace.Percent(), 100);
}

TEST(DownloadPace, BeginsAnewWithTheDownload) {
  FakeClock clock;
  DownloadPace pace(clock);
  pace.Turn(30'000'000, 60'000'000);
  clock.steady += milliseconds(1000);
  pace.Turn(0, 60'000'000);
  clock.steady += milliseconds(1000);
  pace.Turn(1'000'000, 60'000'000);
  EXPECT_THAT(pace.Text(), HasSubstr("1,0 MB/s, noch 59 Sekunden"));
}

class Kept : public testing::Test, protected FakeSystem {
 protected:
  SettingsStore settings{registry};
};

TEST_F(Kept, FollowsItsNameWhenOthersCome) {
  voice.voices = {{"Anna"}, {"Bernd"}};
  StoreVoice(settings, 1, "Bernd");
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::There);
  voice.voices = {{"Anna"}, {"Aron"}, {"Bernd"}};
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::Moved);
  EXPECT_EQ(settings.Get(setting::Voice), "2");
  EXPECT_EQ(StoredVoiceName(settings, voice), "Bernd");
}

TEST_F(Kept, IsTheUsualOneUntilItIsThereAgain) {
  voice.voices = {{"Anna"}, {"Bernd"}, {"Carla"}};
  StoreVoice(settings, 2, "Carla");
  voice.voices = {{"Anna"}, {"Bernd"}, {"Doris"}};
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::Gone);
  EXPECT_EQ(settings.Get(setting::Voice), "1");
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::Gone);
  voice.voices = {{"Anna"}, {"Carla"}, {"Doris"}};
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::There);
  voice.voices = {{"Carla"}, {"Anna"}, {"Doris"}};
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::Moved);
  EXPECT_EQ(settings.Get(setting::Voice), "0");
}

TEST_F(Kept, LetsThePlaceCountThatSomebodyElseStored) {
  voice.voices = {{"Anna"}, {"Bernd"}, {"Carla"}};
  StoreVoice(settings, 2, "Carla");
  settings.Save(setting::Voice, "0");
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::There);
  EXPECT_EQ(settings.Get(setting::Voice), "0");
  settings.Save(setting::Voice, "Anna");
  EXPECT_EQ(KeepVoice(settings, voice), KeptVoice::There);
}

}  // namespace
}  // namespace lorelin
