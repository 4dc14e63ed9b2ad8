#include "desktop/App.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "app/MainWindow.h"
#include "app/modAppMain.h"
#include "app/modFileReg.h"
#include "base/paths.h"
#include "desktop/frmHelpDialogs.h"
#include "desktop/frmMain.h"
#include "desktop/frmTaskEditor.h"
#include "desktop/frmVoiceDialogs.h"
#include "desktop/toolkit/WxClipboard.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/WxFileDialogs.h"
#include "desktop/toolkit/WxMessageBoxes.h"
#include "desktop/toolkit/WxProgressWindow.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/toolkit.h"
#include "documents/GuardedDocument.h"
#include "documents/RecentFiles.h"
#include "documents/Recovery.h"
#include "help/errorPage.h"
#include "help/launches.h"
#include "ports/Platform.h"
#include "scripts/TaskMenu.h"
#include "scripts/interpreter.h"
#include "speech/modExport.h"

namespace lorelin {

// Everything that lives for the whole run, in the order in which the one needs the other.
class App::Program {
 public:
  Program()
      : services_(MakePlatformServices(false)),
        pump_(*services_.log),
        settings_(*services_.registry),
        voice_(MakeSpeechInstance(services_, pump_, true, Notice())),
        voice2_(MakeSpeechInstance(services_, pump_, false, Notice())),
        extensions_(*services_.registry, *services_.fileWriter, *services_.automation, *services_.log),
        form_(std::make_unique<FrmMain>(
            services_.paths.cacheFolder, [this] { End(); }, *services_.log)),
        recovery_({.editor = form_->Editor(),
                   .files = *services_.fileWriter,
                   .fileSearch = *services_.fileSearch,
                   .clock = *services_.clock,
                   .log = *services_.log,
                   .folder = JoinPath(services_.paths.programFolder, {"recovery"}),
                   .scheduleSnapshot = [this] { form_->EnableTimer(WatchTimer::Snapshot, true); },
                   .leftoversChanged = [this] { window_.OfferLeftovers(); }}),
        document_(form_->Editor(), recovery_),
        recent_(settings_, [this] { form_->SetRecentFiles(recent_.Paths()); }),
        speech_({.voice = *voice_,
                 .voice2 = *voice2_,
                 .document = document_,
                 .statusBar = *form_,
                 .messageBoxes = messageBoxes_,
                 .pump = pump_,
                 .clock = *services_.clock,
                 .fileSearch = *services_.fileSearch,
                 .log = *services_.log,
                 .settings = settings_,
                 .extensions = extensions_,
                 .startup = startup_,
                 .programFolder = services_.paths.programFolder}),
        documents_({.editor = document_,
                    .fileDialogs = fileDialogs_,
                    .files = *services_.fileWriter,
                    .messageBoxes = messageBoxes_,
                    .pump = pump_,
                    .extensions = extensions_,
                    .log = *services_.log,
                    .stateChanged = [this] { form_->SetTitle(documents_.Title()); },
                    .stored = [this] { recovery_.Saved(); },
                    .used = [this](const std::string& path) { recent_.Add(path); }}),
        exporter_({.speech = speech_,
                   .statusBar = *form_,
                   .messageBoxes = messageBoxes_,
                   .fileDialogs = fileDialogs_,
                   .files = *services_.fileWriter,
                   .progress = progress_,
                   .clock = *services_.clock,
                   .extensions = extensions_}),
        voiceDialogs_(speech_, settings_),
        monitor_({.clipboard = clipboard_,
                  .foreground = *services_.foreground,
                  .statusBar = *form_,
                  .speech = speech_}),
        interpreter_({.speech = speech_,
                      .document = document_,
                      .statusBar = *form_,
                      .messageBoxes = messageBoxes_,
                      .clipboard = clipboard_,
                      .pump = pump_,
                      .clock = *services_.clock,
                      .fileSearch = *services_.fileSearch,
                      .launcher = *services_.launcher,
                      .downloader = *services_.downloader,
                      .settings = settings_,
                      .runLog = *services_.scriptLog,
                      .scriptFolder = JoinPath(services_.paths.programFolder, {"scripts"}),
                      .fileOfItem = [this](std::int32_t item) { return tasks_.GetSelectedItem(item); }}),
        errorPage_({.view = *form_,
                    .browser = form_->Browser(),
                    .files = *services_.fileWriter,
                    .log = *services_.log,
                    .programFolder = services_.paths.programFolder}),
        tasks_({.taskPane = form_->Tasks(),
                .fileSearch = *services_.fileSearch,
                .messageBoxes = messageBoxes_,
                .settings = settings_,
                .extensions = extensions_,
                .interpreter = interpreter_,
                .programFolder = services_.paths.programFolder,
                .createScript = [this] { CreateScript(); },
                .reportError =
                    [this](std::int32_t number, const std::string& description) {
                      errorPage_.ShowErrorPage(number, description);
                    }}),
        helpDialogs_(
            {.settings = modSettings_,
             .messageBoxes = messageBoxes_,
             .pictureFile = JoinPath(services_.paths.programFolder, {"hypertext", "farbverlauf.jpg"}),
             .titlesObstacle = [this] { return services_.foreground->Obstacle(); },
             .applied = [this] { window_.SettingsApplied(); },
             .manageExtensions = [this] { launches_.ManageExtensions(); }}),
        launches_(*services_.shell, *services_.log, services_.paths.programFolder),
        window_({.view = *form_,
                 .editor = document_,
                 .browser = form_->Browser(),
                 .taskPane = form_->Tasks(),
                 .statusBar = *form_,
                 .messageBoxes = messageBoxes_,
                 .clipboard = clipboard_,
                 .shell = *services_.shell,
                 .log = *services_.log,
                 .settings = settings_,
                 .documents = documents_,
                 .editing = *form_,
                 .recent = recent_,
                 .recovery = recovery_,
                 .speech = speech_,
                 .exporter = exporter_,
                 .voiceDialogs = voiceDialogs_,
                 .extensions = extensions_,
                 .monitor = monitor_,
                 .interpreter = interpreter_,
                 .tasks = tasks_,
                 .helpDialogs = helpDialogs_,
                 .launches = launches_,
                 .startup = startup_,
                 .programFolder = services_.paths.programFolder,
                 .mayClose = [this] { return taskEditor_ == nullptr || taskEditor_->MayClose(); }}),
        fileTypes_(*services_.registry, messageBoxes_, services_.paths.programFolder,
                   services_.paths.programFile) {
    PrepareToolkit(*services_.log);
    form_->Attach(&window_);
    services_.automation->WhileWaiting([] { WxEventPump::Repaint(); });
    messageBoxes_.SetParent(form_.get());
    fileDialogs_.SetParent(form_.get());
    voiceDialogs_.SetParent(form_.get());
    helpDialogs_.SetParent(form_.get());
  }

  ~Program() {
    messageBoxes_.SetParent(nullptr);
    form_->Attach(nullptr);
    ReleaseToolkit();
  }

  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool Start(const std::string& commandLine) {
    const MainParts parts{
        .singleInstance = *services_.singleInstance,
        .messageBoxes = messageBoxes_,
        .settings = settings_,
        .startup = startup_,
        .log = *services_.log,
        .registerFileType =
            [this] {
              TellRegistryNotice();
              fileTypes_.RegisterFileType(".vts");
              services_.fileAssociation->Publish({.programFile = services_.paths.programFile,
                                                  .programDrawing = IconSource("lorelin"),
                                                  .scriptDrawing = IconSource("vts")});
            },
        .loadMainWindow = [this] { window_.Load(); },
        .textmode = [this] { window_.Textmode(); }};
    return Main(parts, commandLine) == StartResult::Started;
  }

  [[nodiscard]] bool Ending() const { return ending_; }

 private:
  void CreateScript() {
    if (taskEditor_ == nullptr) {
      taskEditor_ =
          new FrmTaskEditor(form_.get(), {.fileDialogs = fileDialogs_,
                                          .files = *services_.fileWriter,
                                          .messageBoxes = messageBoxes_,
                                          .programFolder = services_.paths.programFolder,
                                          .scriptsChanged = [this] { tasks_.AddUserdefinedScripts(); },
                                          .showHelp = [this] { ShowScriptHelp(); }});
    }
    taskEditor_->Open();
  }

  void ShowScriptHelp() {
    window_.ShowPage("taskscripts.htm");
    form_->Raise();
  }

  std::function<void(const std::string&)> Notice() {
    return [this](const std::string& text) { form_->SetMessage(text); };
  }

  void TellRegistryNotice() {
    if (services_.registryNotice.empty()) return;
    services_.log->Write(services_.registryNotice);
    if (!services_.settingsLost) {
      form_->SetMessage(services_.registryNotice);
      return;
    }
    messageBoxes_.Show(services_.registryNotice, "Lorelin", MessageIcon::Exclamation, MessageButtons::Ok);
  }

  // A routine that waits somewhere down the stack cannot be unwound; then the engines are let go and the
  // process ends.
  void End() {
    if (std::exchange(ending_, true)) return;
    voice_->ResetAudio();
    voice2_->ResetAudio();
    if (pump_.IsWaiting()) {
      voice_.reset();
      voice2_.reset();
      services_.registry.reset();
      std::_Exit(EXIT_SUCCESS);
    }
    wxTheApp->ExitMainLoop();
  }

  PlatformServices services_;
  WxEventPump pump_;
  WxMessageBoxes messageBoxes_;
  WxFileDialogs fileDialogs_{messageBoxes_};
  WxProgressWindow progress_;
  WxClipboard clipboard_;
  StartupState startup_;
  SettingsStore settings_;
  std::unique_ptr<DirectSS> voice_;
  std::unique_ptr<DirectSS> voice2_;
  ModAddin extensions_;
  std::unique_ptr<FrmMain> form_;
  Recovery recovery_;
  GuardedDocument document_;
  RecentFiles recent_;
  ModSpeak speech_;
  Documents documents_;
  ModExport exporter_;
  FrmVoiceDialogs voiceDialogs_;
  DesktopMonitor monitor_;
  Interpreter interpreter_;
  ErrorPage errorPage_;
  TaskMenu tasks_;
  ModSettings modSettings_{settings_};
  FrmHelpDialogs helpDialogs_;
  Launches launches_;
  MainWindow window_;
  ModFileReg fileTypes_;
  FrmTaskEditor* taskEditor_ = nullptr;  // goes with the main form
  bool ending_ = false;
};

App::App(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}
App::~App() = default;

bool App::Initialize(int& argc, wxChar** argv) {
  SetAppName("lorelin");
  SetAppDisplayName("Lorelin");
  return wxApp::Initialize(argc, argv);
}

// The base class would take a document's name for an option of the toolkit.
bool App::OnInit() {
  SetExitOnFrameDelete(false);
  program_ = std::make_unique<Program>();
  std::vector<char*> pointers;
  for (std::string& argument : arguments_) pointers.push_back(argument.data());
  if (!program_->Start(CommandLineText(pointers))) program_.reset();
  return true;
}

int App::OnRun() {
  return program_ && !program_->Ending() ? wxApp::OnRun() : EXIT_SUCCESS;
}

int App::OnExit() {
  program_.reset();
  return wxApp::OnExit();
}

}  // namespace lorelin
