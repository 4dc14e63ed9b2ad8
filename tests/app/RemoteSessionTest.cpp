#include "app/RemoteSession.h"

#include "tests/support/FakeRemoteControl.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class Remote : public ScriptFixture {
 protected:
  Remote() {
    document.text = "Guten Tag";
    session.Begin();
  }
  [[nodiscard]] Playback Told() const { return remote.told.back().playback; }

  FakeRemoteControl remote;
  FakeSelectedText selectedText;
  std::string own;
  std::string primary;
  int raised = 0;
  bool awaitsAnswer = false;
  RemoteSession session{{.remote = remote,
                         .window = modules.window,
                         .speech = spoken.speech,
                         .clock = clock,
                         .clipboard = clipboard,
                         .selectedText = selectedText,
                         .statusBar = statusBar,
                         .ownSelection = [this] { return own; },
                         .primarySelection = [this] { return primary; },
                         .title = [] { return std::string("Brief - Lorelin"); },
                         .raise = [this] { ++raised; },
                         .awaitsAnswer = [this] { return awaitsAnswer; }}};
};

TEST_F(Remote, ReadsFilesOneBehindTheOther) {
  WriteFile(folder.File("eins.txt"), "Erste Datei.");
  WriteFile(folder.File("zwei.rtf"), "{\\rtf1 Zweite {\\b Datei}.}");
  remote.ask({RemoteRequest::ReadFiles, {folder.File("eins.txt"), folder.File("zwei.rtf")}});
  EXPECT_EQ(voice.SpokenText(), " Erste Datei.\n\nZweite Datei.\n\n ");
  EXPECT_EQ(document.text, "Guten Tag");
}

TEST_F(Remote, TellsOfFilesThatCannotBeRead) {
  remote.ask({RemoteRequest::ReadFiles, {folder.File("fehlt.txt")}});
  EXPECT_EQ(voice.SpokenText(), "");
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
  WriteFile(folder.File("leer.txt"), " ");
  remote.ask({RemoteRequest::ReadFiles, {folder.File("leer.txt")}});
  EXPECT_EQ(statusBar.message, "In den Dateien steht kein Text.");
}

TEST_F(Remote, TellsHowTheReadingGoes) {
  EXPECT_EQ(Told(), Playback::Stopped);
  window.RunCommand("SpeakDocument");
  EXPECT_EQ(Told(), Playback::Playing);
  EXPECT_EQ(remote.told.back().title, "Brief - Lorelin");
  window.RunCommand("Pause");
  EXPECT_EQ(Told(), Playback::Paused);
  window.RunCommand("Pause");
  EXPECT_EQ(Told(), Playback::Playing);
  voice.Finish();
  EXPECT_EQ(Told(), Playback::Stopped);
}

TEST_F(Remote, PlaysHoldsGoesOnAndStops) {
  remote.ask(RemoteRequest::Play);
  EXPECT_EQ(voice.SpokenText(), " Guten Tag ");
  remote.ask(RemoteRequest::Play);
  EXPECT_EQ(Told(), Playback::Playing);
  remote.ask(RemoteRequest::Pause);
  EXPECT_EQ(Told(), Playback::Paused);
  remote.ask(RemoteRequest::Pause);
  EXPECT_EQ(Told(), Playback::Paused);
  remote.ask(RemoteRequest::PlayPause);
  EXPECT_EQ(Told(), Playback::Playing);
  remote.ask(RemoteRequest::PlayPause);
  EXPECT_EQ(Told(), Playback::Paused);
  remote.ask(RemoteRequest::Play);
  EXPECT_EQ(Told(), Playback::Playing);
  remote.ask(RemoteRequest::Stop);
  EXPECT_EQ(Told(), Playback::Stopped);
}

TEST_F(Remote, GoesASentenceOnAndBack) {
  for (const auto* const command : {"SentenceOn", "SentenceBack"}) {
    EXPECT_TRUE(modules.commands.Has(command));
    modules.commands.Add(command, [this, command] { calls.Add(command); });
  }
  remote.ask(RemoteRequest::Next);
  remote.ask(RemoteRequest::Previous);
  EXPECT_TRUE(calls.Has("SentenceOn"));
  EXPECT_TRUE(calls.Has("SentenceBack"));
}

TEST_F(Remote, CountsTheTimeThatIsHeardAndNoPause) {
  remote.ask(RemoteRequest::Play);
  clock.steady += std::chrono::seconds(3);
  remote.ask(RemoteRequest::Pause);
  EXPECT_EQ(remote.told.back().position, std::chrono::seconds(3));
  clock.steady += std::chrono::seconds(60);
  remote.ask(RemoteRequest::Play);
  EXPECT_EQ(remote.told.back().position, std::chrono::seconds(3));
  clock.steady += std::chrono::seconds(2);
  remote.ask(RemoteRequest::Stop);
  remote.ask(RemoteRequest::Play);
  EXPECT_EQ(remote.told.back().position, std::chrono::seconds(0));
}

TEST_F(Remote, ReadsWhatIsSelectedNearest) {
  clipboard.text = "Ablage";
  EXPECT_EQ(session.Selection(), "Ablage");
  primary = "zuletzt";
  EXPECT_EQ(session.Selection(), "zuletzt");
  selectedText.text = "vorn";
  EXPECT_EQ(session.Selection(), "vorn");
  own = " \n";
  EXPECT_EQ(session.Selection(), "vorn");
  own = "eigen";
  remote.ask(RemoteRequest::ReadSelection);
  EXPECT_EQ(voice.SpokenText(), " eigen ");
}

TEST_F(Remote, SaysThatNothingIsSelectedAndReadsNotTheDocumentInstead) {
  remote.ask(RemoteRequest::ReadSelection);
  EXPECT_EQ(statusBar.message, "Es ist nirgends Text markiert.");
  EXPECT_FALSE(calls.Has("Voice.Speak"));
}

TEST_F(Remote, BringsTheWindowToTheFrontAndEndsTheProgram) {
  remote.ask(RemoteRequest::Raise);
  EXPECT_EQ(raised, 1);
  remote.ask(RemoteRequest::Quit);
  EXPECT_TRUE(calls.Has("view.end"));
}

TEST_F(Remote, ShowsTheDialogThatHasToBeAnsweredBeforeItEnds) {
  awaitsAnswer = true;
  remote.ask(RemoteRequest::Quit);
  EXPECT_EQ(raised, 1);
  EXPECT_FALSE(calls.Has("view.end"));
}

// A settings store may hold anything.
TEST_F(Remote, TellsWhatIsWrongInsteadOfFailing) {
  spoken.settings.Save(setting::Speed, "schnell");
  primary = "Text";
  remote.ask(RemoteRequest::Play);
  remote.ask(RemoteRequest::ReadSelection);
  ASSERT_EQ(messageBoxes.boxes.size(), 2U);
  EXPECT_EQ(messageBoxes.boxes.back().title, "Fehler");
}

}  // namespace
}  // namespace lorelin
