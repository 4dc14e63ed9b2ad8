#include <wx/button.h>
#include <wx/timer.h>

#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <ctime>
#include <thread>

#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

class MainForm : public FormFixture {};

TEST_F(MainForm, HasTheExportAsItsTenthButton) {
  const wxToolBar& bar = *form.GetToolBar();
  ASSERT_EQ(bar.GetToolsCount(), ToolbarButtons().size());
  const wxToolBarToolBase& button = *bar.GetToolByPos(9);
  EXPECT_EQ(FromWx(button.GetLabel()), "Exportieren");
  EXPECT_EQ(FromWx(button.GetShortHelp()), "Text als *.wav Datei abspeichern");
}

TEST_F(MainForm, HasADrawingOnEveryButton) {
  const wxToolBar& bar = *form.GetToolBar();
  for (std::size_t i = 0; i < ToolbarButtons().size(); ++i) {
    const ToolbarButton& button = ToolbarButtons()[i];
    const wxToolBarToolBase& tool = *bar.GetToolByPos(static_cast<int>(i));
    EXPECT_EQ(tool.IsSeparator(), button.key.empty());
    EXPECT_TRUE(button.key.empty() || tool.GetNormalBitmapBundle().IsOk()) << button.key;
  }
}

TEST_F(MainForm, ShowsExactlyOneOfEditorAndPage) {
  window.Load();
  EXPECT_TRUE(form.IsShown());
  EXPECT_FALSE(form.Editor().IsShown());
  EXPECT_TRUE(form.Browser().IsShown());
  EXPECT_TRUE(Entry("Ansicht", "Interaktivmodus").IsChecked());
  EXPECT_FALSE(Entry("Ansicht", "Textmodus").IsChecked());
  Choose("Ansicht", "Textmodus");
  EXPECT_TRUE(form.Editor().IsShown());
  EXPECT_FALSE(form.Browser().IsShown());
  EXPECT_FALSE(Entry("Ansicht", "Interaktivmodus").IsChecked());
  EXPECT_TRUE(Entry("Ansicht", "Textmodus").IsChecked());
}

TEST_F(MainForm, CountsCharactersWhateverTheirLength) {
  form.Editor().SetText("Zwölf Zeich.");
  EXPECT_EQ(Panel(0), "12 Zeichen.");
  form.Editor().SetText("ä🎉b");
  EXPECT_EQ(Panel(0), "3 Zeichen.");
  form.Editor().SetText("");
  EXPECT_EQ(Panel(0), "0 Zeichen.");
}

TEST_F(MainForm, KeepsEveryCharacterOfTheDocument) {
  for (const auto* const text : {"Grüße – 10 € ♥", "a\nb\n\nc\n", "🎉🎉", "  führend", "\tTab"}) {
    form.Editor().SetText(text);
    EXPECT_EQ(form.Editor().Text(), text);
  }
}

TEST_F(MainForm, ShowsThatAZeroByteStoodInTheFile) {
  form.Editor().SetText(std::string_view("a\0b", 3));
  EXPECT_EQ(form.Editor().Text(),
            "a\uFFFD"
            "b");
}

TEST_F(MainForm, LoadsADocumentOrKeepsTheOldOne) {
  WriteFile(folder.File("alt.txt"),
            "Gr\xFC\xDF"
            "e\r\nLeser");
  form.Editor().LoadFile(folder.File("alt.txt"));
  EXPECT_EQ(form.Editor().Text(), "Grüße\nLeser");
  EXPECT_THROW(form.Editor().LoadFile(folder.File("fehlt.txt")), RuntimeError);
  EXPECT_EQ(form.Editor().Text(), "Grüße\nLeser");
}

TEST_F(MainForm, TellsTheSelectionInCharacters) {
  form.Editor().SetText("ä🎉bc");
  ASSERT_TRUE(
      form.Editor().FindNext("🎉b", true, false));  // positions count differently from system to system
  EXPECT_EQ(form.Editor().SelectionStart(), 1U);
  EXPECT_EQ(form.Editor().SelectedText(), "🎉b");
  form.Editor().ReplaceSelection("X");
  EXPECT_EQ(form.Editor().Text(), "äXc");
}

TEST_F(MainForm, CutsCopiesAndInsertsThroughTheRealClipboard) {
  form.Editor().SetText("Hallo Welt");
  form.Editor().SetSelection(6, 10);
  Choose("Bearbeiten", "Ausschneiden");
  EXPECT_EQ(form.Editor().Text(), "Hallo ");
  EXPECT_EQ(clipboard.Text(), "Welt");
  Choose("Bearbeiten", "Einfügen");
  EXPECT_EQ(form.Editor().Text(), "Hallo Welt");
  form.Editor().SetSelection(0, 5);
  Choose("Bearbeiten", "Kopieren");
  EXPECT_EQ(clipboard.Text(), "Hallo");
  Choose("Bearbeiten", "Löschen");
  EXPECT_EQ(form.Editor().Text(), " Welt");
}

void Press(FrmMain& form, long key, int modifiers = 0) {
  wxKeyEvent event(wxEVT_CHAR_HOOK);
  event.m_keyCode = key;
  event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
  event.SetAltDown((modifiers & wxMOD_ALT) != 0);
  form.ProcessWindowEvent(event);
}

TEST_F(MainForm, HandsEscapeAndF4ToTheWindow) {
  Press(form, WXK_ESCAPE);
  EXPECT_TRUE(calls.Has("Voice.ResetAudio"));
  Press(form, WXK_F4, wxMOD_ALT);
  EXPECT_TRUE(shell.folders.empty());
  Press(form, WXK_F4);
  EXPECT_EQ(shell.folders.size(), 1U);
}

TEST_F(MainForm, RunsTheToolbarsCommands) {
  form.Editor().SetText("Guten Tag");
  const wxToolBarToolBase& button = *form.GetToolBar()->GetToolByPos(5);
  ASSERT_EQ(FromWx(button.GetLabel()), "Sprechen");
  wxCommandEvent event(wxEVT_TOOL, button.GetId());
  form.ProcessWindowEvent(event);
  EXPECT_EQ(voice.SpokenText(), " Guten Tag ");
  EXPECT_FALSE(form.GetToolBar()->GetToolEnabled(form.GetToolBar()->GetToolByPos(9)->GetId()));
  voice2.Finish();
  EXPECT_TRUE(form.GetToolBar()->GetToolEnabled(form.GetToolBar()->GetToolByPos(9)->GetId()));
  EXPECT_EQ(Panel(1), "Der Text wurde vollständig vorgelesen.");
}

TEST_F(MainForm, OffersItsTasksAsButtonsThatTheKeyboardReaches) {
  window.Load();
  std::vector<std::string> captions;
  for (wxWindow* child : form.Tasks().GetChildren()) {
    if (auto* const button = dynamic_cast<wxButton*>(child)) {
      EXPECT_TRUE(button->IsFocusable());
      captions.push_back(FromWx(button->GetLabelText()));
    }
  }
  EXPECT_EQ(captions,
            (std::vector<std::string>{"Text vorlesen", "Text abspeichern", "Stimme wählen",
                                      "Lautstärke ändern", "Geschwindigkeit ändern", "Helligkeit ändern",
                                      "Taskscript erstellen", "Sprachausgabe als WAV speichern"}));
}

TEST_F(MainForm, EmptiesAGroupOfTasksThatIsAddedAgain) {
  form.Tasks().AddGroup("Tasks");
  form.Tasks().AddItem("Tasks", 1, "eins", TaskPaneRequest::Item);
  const auto before = form.Tasks().GetChildren().size();
  form.Tasks().AddGroup("Tasks");
  form.Tasks().AddItem("Tasks", 2, "zwei", TaskPaneRequest::Item);
  EXPECT_EQ(form.Tasks().GetChildren().size(), before);
}

TEST_F(MainForm, EndsThroughTheModuleWhenItIsClosed) {
  window.Load();
  form.Close();
  EXPECT_TRUE(ended);
  EXPECT_FALSE(form.IsShown());
  EXPECT_EQ(settings.GetSetting("settings", "LastDoc", "fehlt"), "");
}

TEST_F(MainForm, StaysUsableWhileAMenuCommandWaitsForTheSpeech) {
  window.Load();
  form.Editor().SetText("Guten Tag");
  bool stopped = false;
  // A key that comes while the command has been waiting for some time.
  wxTimer user;
  user.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
    if (!voice.Speaking()) return;
    Press(form, WXK_ESCAPE);
    stopped = true;
  });
  user.Start(50);
  Choose("Aktion", "Sprechen");
  EXPECT_TRUE(stopped);
  EXPECT_FALSE(voice.Speaking());
}

class Pump : public FormFixture {};

TEST_F(Pump, IsWokenByAPostFromAnotherThread) {
  bool done = false;
  std::thread other([&] { pump.Post([&] { done = true; }); });
  EXPECT_TRUE(WaitUntil([&] { return done; }));
  other.join();
}

TEST_F(Pump, RunsTasksInTheirOrderAndNested) {
  std::vector<int> order;
  pump.Post([&] {
    order.push_back(1);
    pump.Post([&] { order.push_back(2); });
    pump.WaitForEvents();
    order.push_back(3);
  });
  EXPECT_TRUE(WaitUntil([&] { return order.size() == 3; }));
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(Pump, LetsEventsInBetweenTheStepsOfLongWork) {
  int steps = 0;
  const std::function<void()> step = [&] {
    if (++steps < 100) pump.Post(step);
  };
  pump.Post(step);
  pump.RunPendingEvents();
  EXPECT_LE(steps, 2);
  // A timer of the window comes to its turn before the work is done.
  bool ticked = false;
  wxTimer timer;
  timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { ticked = steps < 100; });
  timer.StartOnce(1);
  EXPECT_TRUE(WaitUntil([&] { return steps == 100; }));
  EXPECT_TRUE(ticked);
}

TEST_F(Pump, SurvivesATaskThatThrows) {
  bool after = false;
  pump.Post([] { throw RuntimeError(ErrorNumber::Overflow); });
  pump.Post([&] { after = true; });
  EXPECT_TRUE(WaitUntil([&] { return after; }));
  EXPECT_EQ(log.lines, std::vector<std::string>{"Überlauf"});
}

// std::clock tells the time of day on some systems.
double ProcessorSeconds() {
#ifdef __WXMSW__
  FILETIME created{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const auto seconds = [](const FILETIME& time) {
    return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) / 1e7;
  };
  return seconds(kernel) + seconds(user);
#else
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

TEST_F(Pump, SleepsWhenNothingHappens) {
  window.Load();
  const auto settled = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  (void)WaitUntil([&] { return std::chrono::steady_clock::now() > settled; });
  const double before = ProcessorSeconds();
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  (void)WaitUntil([&] { return std::chrono::steady_clock::now() > end; });
  EXPECT_LT(ProcessorSeconds() - before, 0.2);
}

TEST_F(Pump, DrawsWithoutLettingAnythingElseIn) {
  window.Load();
  window.Textmode();
  for (int i = 0; i < 10; ++i) pump.WaitForEvents();
  int painted = 0;
  form.Tasks().Bind(wxEVT_PAINT, [&](wxPaintEvent& event) {
    ++painted;
    event.Skip();
  });
  bool posted = false;
  bool done = false;
  pump.Post([&] {
    pump.Post([&] { posted = true; });
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    while (std::chrono::steady_clock::now() < end && painted == 0) {
      form.Tasks().Refresh();
      WxEventPump::Repaint();
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_FALSE(posted);
    done = true;
  });
  EXPECT_TRUE(WaitUntil([&] { return done && posted; }));
  EXPECT_GT(painted, 0);
}

TEST_F(Pump, TellsThatItWaitsOnlyInside) {
  bool inside = false;
  pump.Post([&] { inside = pump.IsWaiting(); });
  EXPECT_TRUE(WaitUntil([&] { return inside; }));
  EXPECT_FALSE(pump.IsWaiting());
}

TEST_F(MainForm, RunsAScriptFromItsItem) {
  fileSearch.names = {"a.vts"};
  std::filesystem::create_directories(folder.File("scripts"));
  WriteFile(folder.File("scripts/a.vts"), "Dokument(Guten Tag,0);\r\nText(fertig);\r\nMeldung(x);");
  window.Load();
  std::string status;
  messageBoxes.onShow = [&] { status = Panel(1); };
  PressTask("a");
  ASSERT_TRUE(WaitUntil([&] { return !status.empty(); }));
  EXPECT_EQ(form.Editor().Text(), "Guten Tag");
  EXPECT_EQ(status, "fertig");
  EXPECT_EQ(Panel(1), "Ausführung des Taskscripts beendet.");
}

TEST_F(MainForm, BuildsTheTasksAnewInTheirPlace) {
  fileSearch.names = {"a.vts"};
  window.Load();
  const std::size_t before = form.Tasks().GetChildren().size();
  fileSearch.names = {"a.vts", "b.vts"};
  tasks.AddUserdefinedScripts();
  EXPECT_EQ(form.Tasks().GetChildren().size(), before + 1);
  tasks.AddUserdefinedScripts();
  EXPECT_EQ(form.Tasks().GetChildren().size(), before + 1);
}

// Its own item is gone when the script ends.
TEST_F(MainForm, SurvivesThatAScriptsListIsBuiltAnewWhileItRuns) {
  fileSearch.names = {"a.vts"};
  std::filesystem::create_directories(folder.File("scripts"));
  WriteFile(folder.File("scripts/a.vts"), "Meldung(x);\r\nText(danach);\r\nMeldung(y);");
  window.Load();
  messageBoxes.onShow = [&] { tasks.AddUserdefinedScripts(); };
  PressTask("a");
  EXPECT_TRUE(WaitUntil([&] { return messageBoxes.boxes.size() == 2; }));
}

TEST_F(MainForm, OpensTheScriptEditorFromItsItem) {
  window.Load();
  PressTask("Taskscript erstellen");
  EXPECT_TRUE(WaitUntil([&] { return editorsOpened == 1; }));
}

TEST_F(MainForm, EndsAWaitingScriptWithEscape) {
  fileSearch.names = {"a.vts"};
  std::filesystem::create_directories(folder.File("scripts"));
  WriteFile(folder.File("scripts/a.vts"), "Warten(100000);\r\nMeldung(nie);");
  window.Load();
  wxTimer escape;
  escape.Bind(wxEVT_TIMER, [&](wxTimerEvent&) { window.KeyPressed(27); });
  escape.StartOnce(200);
  PressTask("a");
  EXPECT_TRUE(WaitUntil([&] { return Panel(1) == "Ausführung des Taskscripts beendet."; }));
  EXPECT_TRUE(messageBoxes.boxes.empty());
}

}  // namespace
}  // namespace lorelin
