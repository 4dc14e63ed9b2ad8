#include "app/PrivateData.h"

#include "app/MainWindow.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

// A window that has read, with what that leaves behind.
class Privates : public ScriptFixture {
 protected:
  void SetUp() override {
    recent.Add(folder.File("brief.txt"));
    settings.Save(setting::LastDoc, folder.File("brief.txt"));
    settings.Save(setting::Speed, "200");
    for (const auto* const name : {"lorelin.log", "lorelin.log.1", "taskscripts.log", "taskscripts.log.1"})
      WriteFile(folder.File(name), "geheim");
    Make("hypertext/err2.html");
    Make("cache/WebKitCache/seite");
    Make("cache/CacheStorage/seite");
    Make("scripts/probe.vts");
    Make("voices/stimme.onnx");
    Make("recovery/2026-11-21 05-10-00.rtf");
    recoveryFiles.names = {"2026-11-21 05-10-00.rtf"};
    modules.readingPlaces.Keep(folder.File("brief.txt"), "Lieber Leser", 7);
    modules.readingPlaces.FinishWriting();
    window.Load();
    Make("temp/4711.wav");  // the start has cleared the folder
    fileSearch.names = {"4711.wav"};
    messageBoxes.boxes.clear();
  }

  void Make(const std::string& name) {
    std::filesystem::create_directories(std::filesystem::path(folder.File(name)).parent_path());
    WriteFile(folder.File(name), "geheim");
  }
  bool Exists(const std::string& name) { return std::filesystem::exists(folder.File(name)); }
};

TEST_F(Privates, AreListedBeforeTheyGo) {
  messageBoxes.answers = {MessageAnswer::No};
  window.RunCommand("ClearPrivate");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Privates löschen");
  EXPECT_EQ(messageBoxes.boxes[0].buttons, MessageButtons::YesNoWarily);
  for (const auto* const part :
       {"(1 Eintrag)", "(1 Text)", "Stellen", "Ton des", "Protokolle", "Zwischenspeicher", "Einstellungen"})
    EXPECT_NE(messageBoxes.boxes[0].text.find(part), std::string::npos) << part;
  EXPECT_EQ(recent.Paths().size(), 1U);
  EXPECT_TRUE(Exists("lorelin.log"));
  EXPECT_TRUE(Exists("recovery/2026-11-21 05-10-00.rtf"));
}

TEST_F(Privates, GoWhenTheUserAgrees) {
  messageBoxes.answers = {MessageAnswer::Yes};
  window.RunCommand("ClearPrivate");
  EXPECT_TRUE(recent.Paths().empty());
  EXPECT_TRUE(view.recentFiles.empty());
  EXPECT_EQ(settings.Get(setting::LastDoc), "");
  EXPECT_FALSE(modules.readingPlaces.Find(folder.File("brief.txt"), "Lieber Leser"));
  EXPECT_TRUE(recovery.Leftovers().empty());
  for (const auto* const name :
       {"lorelin.log", "lorelin.log.1", "taskscripts.log", "taskscripts.log.1", "hypertext/err2.html",
        "cache/WebKitCache", "cache/CacheStorage", "settings/reading-places", "temp/4711.wav",
        "recovery/2026-11-21 05-10-00.rtf"})
    EXPECT_FALSE(Exists(name)) << name;
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(Privates, AreNotReadOnWhenTheyHaveGone) {
  document.text = "Der offene Text";
  speech.SpeakToolbar();
  messageBoxes.answers = {MessageAnswer::Yes};
  window.RunCommand("ClearPrivate");
  EXPECT_FALSE(voice.Speaking());
}

TEST_F(Privates, LeaveSettingsScriptsVoicesAndTheOpenText) {
  document.text = "Der offene Text";
  messageBoxes.answers = {MessageAnswer::Yes};
  window.RunCommand("ClearPrivate");
  EXPECT_EQ(settings.Get(setting::Speed), "200");
  EXPECT_TRUE(Exists("scripts/probe.vts"));
  EXPECT_TRUE(Exists("voices/stimme.onnx"));
  EXPECT_EQ(document.text, "Der offene Text");
}

TEST_F(Privates, AreNamedWhenTheyCannotBeRemoved) {
  // A folder with something in it cannot be removed as a file.
  std::filesystem::remove(folder.File("lorelin.log"));
  Make("lorelin.log/voll");
  messageBoxes.answers = {MessageAnswer::Yes};
  window.RunCommand("ClearPrivate");
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_NE(messageBoxes.boxes[1].text.find(folder.File("lorelin.log")), std::string::npos);
  EXPECT_FALSE(Exists("taskscripts.log")) << "the others go";
}

TEST_F(Privates, MayBeRemovedTwice) {
  messageBoxes.answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  window.RunCommand("ClearPrivate");
  window.RunCommand("ClearPrivate");
  EXPECT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_NE(messageBoxes.boxes[1].text.find("(0 Einträge)"), std::string::npos);
}

}  // namespace
}  // namespace lorelin
