#include "app/MainWindow.h"

#include "app/modAppMain.h"
#include "app/modFileReg.h"
#include "base/version.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

class MainWindowTest : public ScriptFixture {
 protected:
  FakeSingleInstance singleInstance;
  ModFileReg fileTypes{registry, messageBoxes, "C:\\Programme\\X", "C:\\Programme\\X\\prog.exe"};

  StartResult Start(std::string_view commandLine) {
    return Main({.singleInstance = singleInstance,
                 .messageBoxes = messageBoxes,
                 .settings = settings,
                 .startup = startup,
                 .log = log,
                 .registerFileType = [this] { fileTypes.RegisterFileType(".vts"); },
                 .loadMainWindow = [this] { window.Load(); },
                 .textmode = [this] { window.Textmode(); }},
                commandLine);
  }

  std::string ClassString(std::string_view key) {
    const auto value = registry.ReadValue(RegistryHive::ClassesRoot, key, "");
    return value ? value->data : "(fehlt)";
  }
};

using Loading = MainWindowTest;

TEST_F(Loading, WritesFolderAndVersion) {
  window.Load();
  EXPECT_EQ(settings.GetSetting("settings", "path", ""), folder.Path());
  EXPECT_EQ(settings.GetSetting("settings", "version", ""),
            std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor));
}

TEST_F(Loading, StartsInInteractiveModeByDefault) {
  window.Load();
  EXPECT_FALSE(view.editorVisible);
  EXPECT_TRUE(view.browserVisible);
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/home.htm")));
  EXPECT_TRUE(view.checks["mnuInternet"]);
  EXPECT_FALSE(view.checks["mnuTextmode"]);
}

TEST_F(Loading, StartsInTextModeWhenShowWbIsNotOne) {
  for (const auto* const stored : {"0", "true", ""}) {
    Set(setting::ShowWB, stored);
    WindowModules other(modules.edges);
    calls.Clear();
    other.window.Load();
    EXPECT_TRUE(view.editorVisible) << stored;
    EXPECT_FALSE(view.browserVisible) << stored;
    EXPECT_FALSE(calls.Has("browser.navigate " + folder.File("hypertext/home.htm"))) << stored;
  }
}

TEST_F(Loading, GoesInItsOrder) {
  Set(setting::ReadTitleOnAppChange, "1");
  Set(setting::ReadClipboardOnChange, "1");
  window.Load();
  const std::vector<std::string> order{"browser.offline",
                                       "view.stretch",
                                       "tmrWinTasks on",
                                       "tmrClipboard on",
                                       "browser.navigate " + folder.File("hypertext/home.htm"),
                                       "Voice2.WaveFile",
                                       "pane.group Nicht gespeicherte Texte",
                                       "pane.group Weiterlesen",
                                       "pane.group Lorelin",
                                       "pane.item Lorelin 101 Text vorlesen",
                                       "pane.item Lorelin 202 Text abspeichern",
                                       "pane.item Lorelin 404 Stimme wählen",
                                       "pane.item Lorelin 303 Lautstärke ändern",
                                       "pane.item Lorelin 505 Geschwindigkeit ändern",
                                       "pane.item Lorelin 606 Helligkeit ändern",
                                       "pane.group Tasks",
                                       "pane.item Tasks 1000 Taskscript erstellen",
                                       "pane.item Tasks 999 ----------",
                                       "pane.group Export",
                                       "pane.item Export 1001 Sprachausgabe als WAV speichern",
                                       "view.show"};
  EXPECT_EQ(calls.Entries(), order);
}

TEST_F(Loading, LeavesTheTimersOffByDefault) {
  window.Load();
  EXPECT_FALSE(calls.Has("tmrWinTasks on"));
  EXPECT_FALSE(calls.Has("tmrClipboard on"));
}

TEST_F(Loading, CreatesTheFolders) {
  window.Load();
  EXPECT_TRUE(std::filesystem::is_directory(folder.File("scripts")));
  EXPECT_TRUE(std::filesystem::is_directory(folder.File("temp")));
}

TEST_F(Loading, IgnoresRequestsToSpeakUntilItHasFinished) {
  RegisterFilter("Frueh", [this](const std::string& method, auto) {
    if (method != "Startup") return std::string();
    std::string text = "zu früh";
    speech.Speak(text, false, "", false);
    return std::string();
  });
  window.Load();
  EXPECT_FALSE(calls.Has("Voice.Speak"));
  EXPECT_FALSE(startup.loadingInProgress);
  std::string text = "jetzt";
  speech.Speak(text, false, "-1", false);
  EXPECT_TRUE(calls.Has("Voice.Speak"));
}

TEST_F(Loading, CallsStartupOfTheExtensionsWithoutArgument) {
  std::vector<std::string> seen;
  RegisterFilter("Erweiterung", [&](const std::string& method, auto argument) {
    seen.push_back(method + (argument ? " " + *argument : ""));
    return "";
  });
  window.Load();
  EXPECT_EQ(seen, std::vector<std::string>{"Startup"});
}

TEST_F(Loading, HappensOnce) {
  window.Load();
  calls.Clear();
  window.Load();
  EXPECT_TRUE(calls.Entries().empty());
}

TEST_F(Loading, SkipsAFailingStepAndLogsIt) {
  Set(setting::ShowLastDoc, "1");
  Set(setting::LastDoc, "/weg.txt");
  window.Load();
  EXPECT_TRUE(calls.Has("view.show"));
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(log.lines.empty());
}

TEST_F(Loading, OpensTheLastDocumentWhichItFindsUnderTheOtherSpelling) {
  settings.SaveSetting("settings", "LastDoc", "/brief.txt");
  settings.SaveSetting("SETTINGS", "ShowLastDoc", "1");
  document.files["/brief.txt"] = "Lieber Leser";
  window.Load();
  EXPECT_EQ(document.text, "Lieber Leser");
  EXPECT_TRUE(view.editorVisible);
  EXPECT_TRUE(calls.Has("view.focus"));
}

TEST_F(Loading, ShowsTheNameOfADocumentThatCannotBeLoaded) {
  startup.startupFilePath = "/weg.txt";
  window.Load();
  EXPECT_EQ(document.text, "/weg.txt");
  EXPECT_TRUE(view.editorVisible);
}

TEST_F(Loading, TellsOfADocumentThatIsTooLargeOnceThereIsAWindow) {
  startup.startupFilePath = "/riesig.txt";
  document.unreadable["/riesig.txt"] = ErrorNumber::OutOfMemory;
  window.Load();
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(document.text, "/riesig.txt");
  pump.RunPendingEvents();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, ErrorText(ErrorNumber::OutOfMemory));
}

TEST_F(Loading, RefusesScriptsAsParameters) {
  startup.parameterScript = "uhr.vts";
  window.Load();
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Can't start VTS Scripts per Parameter!");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Critical);
}

using Starting = MainWindowTest;

TEST_F(Starting, ASecondTimeSaysSoAndTouchesNothing) {
  singleInstance.running = true;
  EXPECT_EQ(Start("/s"), StartResult::SecondInstance);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Eine Instanz von Lorelin läuft bereits.");
  EXPECT_EQ(messageBoxes.boxes[0].title, "Lorelin");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Information);
  EXPECT_TRUE(calls.Entries().empty());
  EXPECT_FALSE(registry.KeyExists(RegistryHive::ClassesRoot, ".vts"));
  EXPECT_EQ(settings.GetSetting("settings", "path", "nie"), "nie");
}

TEST_F(Starting, RegistersTheScriptsFirst) {
  EXPECT_EQ(Start(""), StartResult::Started);
  EXPECT_EQ(ClassString(".vts"), "vtsfile");
  EXPECT_EQ(ClassString("vtsfile\\shell\\open\\command"), "C:\\Programme\\X\\prog.exe %1");
  EXPECT_EQ(ClassString("vtsfile\\DefaultIcon"), "C:\\Programme\\X\\vts.ico");
}

TEST_F(Starting, OpensTheDocumentOfTheSettings) {
  Set(setting::StartUpFile, "/tagebuch.txt");
  document.files["/tagebuch.txt"] = "Heute";
  (void)Start("");
  EXPECT_EQ(document.text, "Heute");
}

TEST_F(Starting, OpensAQuotedPathInItsPlace) {
  Set(setting::StartUpFile, "/tagebuch.txt");
  WriteFile(folder.File("brief.txt"), "x");
  document.files[folder.File("brief.txt")] = "Brief";
  (void)Start("\"" + folder.File("brief.txt") + "\"");
  EXPECT_EQ(document.text, "Brief");
  EXPECT_EQ(settings.Get(setting::StartUpFile), "/tagebuch.txt");
}

TEST_F(Starting, RemembersTheDocumentOfTheCommandLineAsRecent) {
  WriteFile(folder.File("brief.txt"), "x");
  document.files[folder.File("brief.txt")] = "Brief";
  (void)Start("\"" + folder.File("brief.txt") + "\"");
  EXPECT_EQ(recent.Paths(), std::vector<std::string>{folder.File("brief.txt")});
}

TEST_F(Starting, DoesNotRememberADocumentThatCouldNotBeLoaded) {
  WriteFile(folder.File("brief.txt"), "x");
  document.unreadable[folder.File("brief.txt")] = ErrorNumber::FileNotFound;
  (void)Start("\"" + folder.File("brief.txt") + "\"");
  EXPECT_TRUE(recent.Paths().empty());
}

TEST_F(Starting, IgnoresAPathWithoutQuotes) {
  Set(setting::StartUpFile, "/tagebuch.txt");
  WriteFile(folder.File("brief.txt"), "x");
  (void)Start(folder.File("brief.txt"));
  EXPECT_EQ(startup.startupFilePath, "/tagebuch.txt");
}

TEST_F(Starting, LosesThePathBehindASwitch) {
  WriteFile(folder.File("brief.txt"), "x");
  (void)Start("/t \"" + folder.File("brief.txt") + "\"");
  EXPECT_EQ(startup.startupFilePath, "");
  EXPECT_TRUE(view.editorVisible);
}

TEST_F(Starting, DropsAPathThatCannotBeRead) {
  Set(setting::StartUpFile, "/tagebuch.txt");
  (void)Start("\"" + folder.Path() + "\"");
  EXPECT_EQ(startup.startupFilePath, "/tagebuch.txt");
}

TEST_F(Starting, InTextModeIgnoresTheBrowserSetting) {
  Set(setting::ShowWB, "1");
  (void)Start("/t");
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(view.browserVisible);
}

TEST_F(Starting, FindsTheSwitchInsideAPath) {
  (void)Start("C:/tmp");
  EXPECT_TRUE(view.editorVisible);
}

TEST_F(Starting, DoesNotKnowTheSwitchInCapitals) {
  document.text = "Text";
  (void)Start("/S");
  EXPECT_FALSE(startup.speakOnStart);
  EXPECT_FALSE(calls.Has("Voice.Speak"));
}

TEST_F(Starting, ReadsTheDocumentAloudOnRequest) {
  std::string path = folder.File("brief.txt");
  WriteFile(path, "x");
  std::replace(path.begin(), path.end(), '/', '\\');
  document.files[path] = "Lieber Leser";
  (void)Start("\"" + path + "\" /s");
  EXPECT_EQ(voice.SpokenText(), " Lieber Leser ");
  EXPECT_TRUE(view.editorVisible);
  EXPECT_LT(calls.Position("Voice.Speak"), calls.Position("view.show"));
}

using Modes = MainWindowTest;

TEST_F(Modes, ShowEitherTheEditorOrTheBrowser) {
  window.Load();
  window.Textmode();
  EXPECT_TRUE(view.editorVisible);
  EXPECT_FALSE(view.browserVisible);
  EXPECT_TRUE(view.checks["mnuTextmode"]);
  EXPECT_FALSE(view.checks["mnuInternet"]);
  window.InteractiveMode();
  EXPECT_FALSE(view.editorVisible);
  EXPECT_TRUE(view.browserVisible);
  EXPECT_FALSE(view.checks["mnuTextmode"]);
  EXPECT_TRUE(view.checks["mnuInternet"]);
}

TEST_F(Modes, IgnoreAFocusThatCannotBeTaken) {
  view.focusFails = true;
  window.Textmode();
  EXPECT_TRUE(view.checks["mnuTextmode"]);
}

using Commands = MainWindowTest;

TEST_F(Commands, ExistForEveryEntryOfTheWindow) {
  for (const Menu& menu : MainMenus()) {
    for (const MenuEntry& entry : menu.entries) {
      EXPECT_TRUE(entry.command.empty() == (entry.caption == "-")) << entry.name;
      EXPECT_TRUE(entry.command.empty() || modules.commands.Has(entry.command)) << entry.name;
    }
  }
  for (const ToolbarButton& button : ToolbarButtons()) {
    EXPECT_TRUE(button.key.empty() || modules.commands.Has(button.command)) << button.key;
  }
  for (const TaskPaneEntry& task : SpeechTasks())
    EXPECT_TRUE(modules.commands.Has(task.command)) << task.caption;
}

TEST_F(Commands, AreReachedByTheToolbarsExactKeys) {
  document.text = "Dokument";
  window.ToolbarClicked("sprechen");
  window.ToolbarClicked("");
  EXPECT_FALSE(calls.Has("Voice.Speak"));
  window.ToolbarClicked("Sprechen");
  EXPECT_TRUE(calls.Has("Voice.Speak"));
  calls.Clear();
  window.ToolbarClicked("Stop");
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"Voice.ResetAudio", "Voice2.ResetAudio"}));
}

TEST_F(Commands, AreReachedByTheTaskPanesNumbers) {
  document.text = "Dokument";
  pump.onTurn = [&] { voice.Finish(); };
  taskPane.Click(101);
  EXPECT_EQ(voice.SpokenText(), " Dokument ");
  calls.Clear();
  taskPane.Click(999);
  EXPECT_TRUE(calls.Entries().empty());
}

TEST_F(Commands, RunTheScriptsOfTheTaskPane) {
  fileSearch.names = {"a.vts"};
  WriteScript("a.vts", "Meldung(läuft);");
  taskPane.Click(1);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "läuft");
}

TEST_F(Commands, LetEscapeEndAScriptWithItsSpeech) {
  fileSearch.names = {"a.vts"};
  WriteScript("a.vts", "Sprechen2(Hallo);\r\nWarten(1000);\r\nMeldung(nie);");
  pump.onTurn = [&] {
    if (voice.Speaking()) window.KeyPressed(27);
  };
  taskPane.Click(1);
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_EQ(interpreter.LastEnd(), ScriptEnd::Cancelled);
}

TEST_F(Commands, LetClosingEndAScript) {
  fileSearch.names = {"a.vts"};
  WriteScript("a.vts", "Warten(1000);\r\nMeldung(nie);");
  pump.onTurn = [&] { window.CloseRequested(); };
  taskPane.Click(1);
  EXPECT_TRUE(messageBoxes.boxes.empty());
  EXPECT_TRUE(calls.Has("view.end"));
}

TEST_F(Commands, KeepTheWindowOpenForSomethingUndecided) {
  mayClose = false;
  window.CloseRequested();
  EXPECT_FALSE(calls.Has("view.end"));
}

TEST_F(Commands, RefuseTheExportLinkBeforeAnythingWasRendered) {
  speech.SetWaveFile("");
  taskPane.Click(1001, TaskPaneRequest::ExportLink);
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].title, "Information");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Information);
  EXPECT_EQ(messageBoxes.boxes[0].text,
            "Diese Funktion steht Ihnen erst nach einem Exportvorgang zur Verfügung.");
  window.Load();
  WriteFile(speech.TempWavPath(), "RIFF");
  taskPane.Click(1001, TaskPaneRequest::ExportLink);
  EXPECT_EQ(messageBoxes.boxes.size(), 1U);
}

TEST_F(Commands, TellARunTimeErrorWithItsNumber) {
  Set(setting::Voice, "2147483647");
  window.RunCommand("SpeakDocument");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Überlauf (6)");
  EXPECT_EQ(messageBoxes.boxes[0].title, "Fehler");
}

TEST_F(Commands, EditTheSelectionThroughTheClipboard) {
  document.text = "Hallo Welt";
  document.selectionStart = 6;
  document.selectionBytes = 4;
  window.RunCommand("Copy");
  EXPECT_EQ(clipboard.text, "Welt");
  EXPECT_EQ(document.text, "Hallo Welt");
  window.RunCommand("Cut");
  EXPECT_EQ(document.text, "Hallo ");
  window.RunCommand("Insert");
  EXPECT_EQ(document.text, "Hallo Welt");
  document.selectionStart = 0;
  document.selectionBytes = 6;
  window.RunCommand("Delete");
  EXPECT_EQ(document.text, "Welt");
  EXPECT_EQ(clipboard.text, "Welt");
}

TEST_F(Commands, KeepTheClipboardWhenNothingIsSelected) {
  clipboard.text = "wertvoll";
  window.RunCommand("Cut");
  window.RunCommand("Copy");
  EXPECT_EQ(clipboard.text, "wertvoll");
}

TEST_F(Commands, DisableTheExportUntilTheTextWasRendered) {
  document.text = "x";
  window.ToolbarClicked("Sprechen");
  EXPECT_FALSE(view.enabledCommands.at("ExportDoc"));
  voice2.Finish();
  EXPECT_TRUE(view.enabledCommands.at("ExportDoc"));
}

using Keys = MainWindowTest;

TEST_F(Keys, EscapeStopsBothInstances) {
  EXPECT_TRUE(window.KeyPressed(27));
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"Voice.ResetAudio", "Voice2.ResetAudio"}));
}

TEST_F(Keys, F4OpensTheProgramFolder) {
  EXPECT_TRUE(window.KeyPressed(115));
  EXPECT_EQ(shell.folders, std::vector<std::string>{folder.Path()});
}

TEST_F(Keys, OthersAreLeftToTheControls) {
  EXPECT_FALSE(window.KeyPressed('A'));
}

using Editing = MainWindowTest;

TEST_F(Editing, ShowsTheNumberOfCharacters) {
  window.EditorChanged(12);
  EXPECT_EQ(statusBar.firstPanel, "12 Zeichen.");
}

using Closing = MainWindowTest;

TEST_F(Closing, GoesInItsOrder) {
  settings.SaveSetting("settings", "LastDoc", "alt");
  RegisterFilter("Erweiterung", [&](const std::string& method, auto) {
    calls.Add("extension " + method);
    EXPECT_EQ(settings.Get(setting::LastDoc), "alt");
    return "";
  });
  window.CloseRequested();
  EXPECT_EQ(calls.Entries(), (std::vector<std::string>{"extension Close", "view.hide", "view.end"}));
  EXPECT_EQ(settings.GetSetting("settings", "LastDoc", "fehlt"), "");
}

TEST_F(Closing, RemembersTheLastDocument) {
  Set(setting::ShowLastDoc, "1");
  Set(setting::LastDoc, "/brief.txt");
  window.Load();
  window.CloseRequested();
  EXPECT_EQ(settings.Get(setting::LastDoc), "/brief.txt");
}

TEST_F(Closing, HappensOnce) {
  window.CloseRequested();
  window.CloseRequested();
  window.Unloaded();
  EXPECT_EQ(std::count(calls.Entries().begin(), calls.Entries().end(), "view.end"), 1);
}

TEST_F(Closing, ByOtherMeansEndsAtOnce) {
  window.Unloaded();
  EXPECT_EQ(calls.Entries(), std::vector<std::string>{"view.end"});
}

using FileTypes = MainWindowTest;

TEST_F(FileTypes, AcceptAnyCaseAndAMissingDot) {
  for (const auto* const extension : {"VTS", ".VTS", "vts"}) {
    FakeRegistry fresh;
    ModFileReg(fresh, messageBoxes, "/opt/x", "/opt/x/prog").RegisterFileType(extension);
    const auto value = fresh.ReadValue(RegistryHive::ClassesRoot, ".vts", "");
    ASSERT_TRUE(value) << extension;
    EXPECT_EQ(value->data, "vtsfile");
  }
}

TEST_F(FileTypes, RefuseAnEmptyExtension) {
  fileTypes.RegisterFileType("");
  ASSERT_EQ(messageBoxes.boxes.size(), 1U);
  EXPECT_EQ(messageBoxes.boxes[0].text, "Dateiendung benötigt.");
  EXPECT_EQ(messageBoxes.boxes[0].icon, MessageIcon::Critical);
}

}  // namespace
}  // namespace lorelin
