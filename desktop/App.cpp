#include "desktop/App.h"

#include <wx/timer.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/DroppedVoice.h"
#include "app/RemoteSession.h"
#include "app/WindowModules.h"
#include "app/modAppMain.h"
#include "app/modFileReg.h"
#include "app/readingOrder.h"
#include "base/RuntimeError.h"
#include "base/paths.h"
#include "desktop/frmHelpDialogs.h"
#include "desktop/frmMain.h"
#include "desktop/frmPronunciationDialogs.h"
#include "desktop/frmReadingLook.h"
#include "desktop/frmSoundExports.h"
#include "desktop/frmTaskEditor.h"
#include "desktop/frmVoiceDialogs.h"
#include "desktop/toolkit/ModalDialogs.h"
#include "desktop/toolkit/WxAlarm.h"
#include "desktop/toolkit/WxClipboard.h"
#include "desktop/toolkit/WxEventPump.h"
#include "desktop/toolkit/WxFileDialogs.h"
#include "desktop/toolkit/WxFolderWatch.h"
#include "desktop/toolkit/WxMessageBoxes.h"
#include "desktop/toolkit/WxProgressWindow.h"
#include "desktop/toolkit/icons.h"
#include "desktop/toolkit/mediaKeys.h"
#include "desktop/toolkit/primarySelection.h"
#include "desktop/toolkit/termination.h"
#include "desktop/toolkit/toolkit.h"
#include "documents/GuardedDocument.h"
#include "documents/Recovery.h"
#include "documents/windowTitle.h"
#include "ports/Platform.h"
#include "speech/SpeechModules.h"
#include "speech/temporaryFiles.h"
#include "voices/VoiceLibrary.h"
#include "voices/keptVoice.h"

namespace lorelin {
namespace {

constexpr int kFirstLook = 200;     // milliseconds until a person has seen the window
constexpr int kEnginesStart = 500;  // milliseconds that engines need on a busy machine

}  // namespace

// Everything that lives for the whole run, in the order in which the one needs the other.
class App::Program {
 public:
  Program()
      : services_(MakePlatformServices(false)),
        pump_(*services_.log),
        voice_(MakeSpeechInstance(services_, pump_, true, Notice(0), InstanceStart::WhenNeeded)),
        voice2_(MakeSpeechInstance(services_, pump_, false, Notice(1), InstanceStart::WhenNeeded)),
        form_(std::make_unique<FrmMain>(
            services_.paths.cacheFolder, [this] { End(); }, *services_.log)),
        recovery_({.editor = form_->Editor(),
                   .files = *services_.fileWriter,
                   .fileSearch = *services_.fileSearch,
                   .clock = *services_.clock,
                   .statusBar = *form_,
                   .messageBoxes = messageBoxes_,
                   .log = *services_.log,
                   .folder = JoinPath(services_.paths.programFolder, {"recovery"}),
                   .scheduleSnapshot = [this] { form_->EnableTimer(WatchTimer::Snapshot, true); }}),
        document_(form_->Editor(), recovery_),
        spoken_({.system = services_.Ports(),
                 .voice = *voice_,
                 .voice2 = *voice2_,
                 .document = document_,
                 .statusBar = *form_,
                 .messageBoxes = messageBoxes_,
                 .pump = pump_,
                 .programFolder = services_.paths.programFolder,
                 .settingsFolder = services_.paths.settingsFolder}),
        voiceDialogs_(
            spoken_.speech, spoken_.settings,
            [this] {
              return spoken_.Spelled(MakeSpeechInstance(services_, pump_, true, [](const auto&) {}));
            }),
        helpDialogs_(
            {.settings = modSettings_,
             .messageBoxes = messageBoxes_,
             .pictureFile = JoinPath(services_.paths.programFolder, {"hypertext", "farbverlauf.jpg"}),
             .titlesObstacle = [this] { return services_.foreground->Obstacle(); },
             .applied = [this] { modules_.timers.FollowSettings(); },
             .manageExtensions = [this] { modules_.launches.ManageExtensions(); }}),
        modules_({.system = services_.Ports(),
                  .spoken = spoken_,
                  .document = document_,
                  .recovery = recovery_,
                  .view = *form_,
                  .editing = *form_,
                  .marks = form_->Editor().Marks(),
                  .placeBar = *form_,
                  .lookView = form_->Editor(),
                  .alarm = alarm_,
                  .browser = form_->Browser(),
                  .taskPane = form_->Tasks(),
                  .chapterList = form_->Contents(),
                  .statusBar = *form_,
                  .messageBoxes = messageBoxes_,
                  .fileDialogs = fileDialogs_,
                  .progress = progress_,
                  .clipboard = clipboard_,
                  .pump = pump_,
                  .voiceDialogs = voiceDialogs_,
                  .helpDialogs = helpDialogs_,
                  .pronunciationDialogs = pronunciationDialogs_,
                  .programFolder = services_.paths.programFolder,
                  .settingsFolder = services_.paths.settingsFolder,
                  .createScript = [this] { CreateScript(); },
                  .chooseLook = [this] { ChooseLook(); },
                  .mayClose = [this] { return MayClose(); },
                  .homeFolder = services_.paths.homeFolder,
                  .takeVoice = [this](const auto& paths) { return droppedVoice_.Take(paths); },
                  .exportSound = [this] { exports_.Ask(); },
                  .showExports = [this] { exports_.Show(); },
                  .privateFolders = {.programFolder = services_.paths.programFolder,
                                     .cacheFolder = services_.paths.cacheFolder,
                                     .logFile = services_.paths.logFile,
                                     .scriptLogFile = services_.paths.scriptLogFile}}),
        fileTypes_(*services_.registry, messageBoxes_, services_.paths.programFolder,
                   services_.paths.programFile) {
    PrepareToolkit(*services_.log);
    form_->Attach(&modules_);
    OnTermination([this] { EndNow(); });
    wxTheApp->Bind(wxEVT_END_SESSION, &Program::OnEndSession, this);
    spoken_.extensions.WhileWaiting({.clock = *services_.clock,
                                     .tell = [this](const std::string& text) { form_->SetMessage(text); },
                                     .turn =
                                         [] {
                                           WxEventPump::Repaint();
                                           return !WxEventPump::EscapeIsWaiting();
                                         }});
    messageBoxes_.SetParent(form_.get());
    fileDialogs_.SetParent(form_.get());
    voiceDialogs_.SetParent(form_.get());
    helpDialogs_.SetParent(form_.get());
    pronunciationDialogs_.SetParent(form_.get());
    voiceDialogs_.OfferMore({.list = {library_, messageBoxes_, pump_},
                             .renew = [this] { RenewVoices(); },
                             .chosen = [this] { PrepareVoice(); }});
    firstLook_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { AfterFirstLook(); });
  }

  ~Program() {
    OnTermination({});
    wxTheApp->Unbind(wxEVT_END_SESSION, &Program::OnEndSession, this);
    messageBoxes_.SetParent(nullptr);
    form_->Attach(nullptr);
    ReleaseToolkit();
  }

  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // What is ordered is read by the instance that runs or by this one.
  bool Start(const std::string& commandLine, const std::optional<RemoteOrder>& order) {
    if (order && services_.remote->AskRunning(*order)) return false;
    // The own window comes to the front later.
    const bool readsSelection = order && order->request == RemoteRequest::ReadSelection;
    const std::string selected = readsSelection ? remote_.Selection() : "";
    const MainParts parts{
        .singleInstance = *services_.singleInstance,
        .messageBoxes = messageBoxes_,
        .settings = spoken_.settings,
        .startup = spoken_.startup,
        .log = *services_.log,
        .registerFileType =
            [this] {
              TellRegistryNotice();
              fileTypes_.RegisterFileType(".vts");
              services_.fileAssociation->Publish({.programFile = services_.paths.programFile,
                                                  .programDrawing = IconSource("lorelin"),
                                                  .scriptDrawing = IconSource("vts")});
            },
        .loadMainWindow =
            [this] {
              temporaryFiles_.areOurs = true;
              modules_.window.Load();
            },
        .textmode = [this] { modules_.window.Textmode(); }};
    if (Main(parts, commandLine) != StartResult::Started) return false;
    KeepVoice();
    firstLook_.StartOnce(kFirstLook);
    remote_.Begin();
    OnMediaKeys(*form_, [this](RemoteRequest request) { remote_.Carry(request); });
    if (readsSelection) remote_.ReadAloud(selected);
    if (order && !readsSelection) remote_.Carry(*order);
    return true;
  }

  [[nodiscard]] bool Ending() const { return ending_; }

 private:
  void CreateScript() {
    if (taskEditor_ == nullptr) {
      taskEditor_ = new FrmTaskEditor(form_.get(),
                                      {.fileDialogs = fileDialogs_,
                                       .files = *services_.fileWriter,
                                       .messageBoxes = messageBoxes_,
                                       .programFolder = services_.paths.programFolder,
                                       .scriptsChanged = [this] { modules_.tasks.AddUserdefinedScripts(); },
                                       .showHelp = [this] { ShowScriptHelp(); }});
    }
    taskEditor_->Open();
  }

  bool MayClose() { return (taskEditor_ == nullptr || taskEditor_->MayClose()) && exports_.MayClose(); }

  // Chapters move with what is typed.
  DocumentInfo CurrentInfo() {
    DocumentInfo info = modules_.documents.Current().info;
    info.chapters = modules_.chapters.Current();
    return info;
  }

  void ChooseLook() {
    ChooseReadingLook(form_.get(), spoken_.settings, form_->Editor(), form_->Editor().UsualPoints());
  }

  void ShowScriptHelp() {
    modules_.modes.ShowPage("taskscripts.htm");
    form_->Raise();
  }

  void Raise() {
    form_->Iconize(false);
    form_->Raise();
  }

  // Engines that start hold up the first picture, and who waits for them the first keys.
  void AfterFirstLook() {
    if (std::exchange(enginesStart_, true)) return PrepareVoice();
    StartInstance(*voice_);
    StartInstance(*voice2_);
    firstLook_.StartOnce(kEnginesStart);
  }

  // A voice that takes its time to load is ready when the next text is read.
  void PrepareVoice() {
    if (services_.preparesVoices) spoken_.speech.PrepareVoice();
  }

  // Voices came or went: the instances look for them, and the chosen one may have another place in the list.
  void RenewVoices() {
    lorelin::RenewVoices(*voice_);
    lorelin::RenewVoices(*voice2_);
    KeepVoice();
    PrepareVoice();
  }

  void KeepVoice() {
    try {
      if (lorelin::KeepVoice(spoken_.settings, *voice_) != KeptVoice::Gone) return;
      form_->SetMessage("Die gewählte Stimme ist nicht mehr da. Es liest „" +
                        StoredVoiceName(spoken_.settings, *voice_) + "“.");
    } catch (const RuntimeError& error) {
      services_.log->Write(std::string("Stimme: ") + error.what());  // whoever speaks is told
    }
  }

  std::function<void(const std::string&)> Notice(std::size_t instance) {
    return
        [this, instance](const std::string& text) { spoken_.speech.Status().SetCondition(instance, text); };
  }

  void TellRegistryNotice() {
    if (services_.registryNotice.empty()) return;
    services_.log->Write(services_.registryNotice);
    if (!services_.settingsLost) {
      form_->SetMessage(services_.registryNotice);
      return;
    }
    messageBoxes_.Show(services_.registryNotice, "Lorelin", MessageIcon::Exclamation, MessageButtons::Ok);
    services_.registry->ConfirmLoss();
  }

  // Nobody is asked anything, and a dialog that is open does not hold it up.
  void EndNow() {
    atOnce_ = true;
    modules_.window.CloseRequested(true);
    End();
  }

  void OnEndSession(wxCloseEvent& event) {
    modules_.window.CloseRequested(true);
    event.Skip();
  }

  // A routine that waits somewhere down the stack cannot be unwound; then the engines are let go and the
  // process ends.
  void End() {
    if (std::exchange(ending_, true)) return;
    voice_->ResetAudio();
    voice2_->ResetAudio();
    exports_.End();
    if (pump_.IsWaiting() || atOnce_) {
      voice_.reset();
      voice2_.reset();
      services_.registry.reset();
      temporaryFiles_.Remove();
      std::_Exit(EXIT_SUCCESS);
    }
    wxTheApp->ExitMainLoop();
  }

  // What was read aloud does not stay on the disk. An instance that was refused must not take away the files
  // of the one that runs.
  struct TemporaryFiles {
    PlatformServices& services;
    bool areOurs = false;
    void Remove() const {
      if (areOurs) RemoveTemporaryFiles(services.paths.programFolder, *services.fileSearch, *services.log);
    }
    ~TemporaryFiles() { Remove(); }
  };

  PlatformServices services_;
  TemporaryFiles temporaryFiles_{services_};  // goes after the engines
  WxEventPump pump_;
  WxMessageBoxes messageBoxes_;
  WxFileDialogs fileDialogs_{messageBoxes_};
  WxProgressWindow progress_;
  WxClipboard clipboard_;
  WxAlarm alarm_;
  std::unique_ptr<DirectSS> voice_;
  std::unique_ptr<DirectSS> voice2_;
  std::unique_ptr<FrmMain> form_;
  Recovery recovery_;
  GuardedDocument document_;
  SpeechModules spoken_;
  FrmVoiceDialogs voiceDialogs_;
  ModSettings modSettings_{spoken_.settings};
  FrmHelpDialogs helpDialogs_;
  FrmPronunciationDialogs pronunciationDialogs_{
      spoken_, messageBoxes_,
      [this] { return MakeSpeechInstance(services_, pump_, true, [](const auto&) {}); }};
  VoiceLibrary library_{{.downloader = *services_.voiceDownloads,
                         .checksums = *services_.checksums,
                         .archives = *services_.voiceArchives,
                         .natural = *services_.naturalVoices,
                         .files = *services_.fileWriter,
                         .settings = spoken_.settings,
                         .clock = *services_.clock,
                         .log = *services_.log}};
  DroppedVoice droppedVoice_{{.voiceLibrary = library_,
                              .messageBoxes = messageBoxes_,
                              .progress = progress_,
                              .statusBar = *form_,
                              .renew = [this] { RenewVoices(); }}};
  WindowModules modules_;
  FrmSoundExports exports_{*form_,
                           {.document = document_,
                            .preparation = {.settings = spoken_.settings,
                                            .extensions = spoken_.extensions,
                                            .pronunciations = spoken_.pronunciations,
                                            .clock = *services_.clock},
                            .rendering = *services_.soundRendering,
                            .files = *services_.fileWriter,
                            .messageBoxes = messageBoxes_,
                            .info = [this] { return CurrentInfo(); },
                            .name = [this] { return NameForFiles(modules_.documents.Current().shown); }},
                           [this](const std::string& text) { form_->SetMessage(text); }};
  ModalDialogs dialogs_;
  RemoteSession remote_{
      {.remote = *services_.remote,
       .window = modules_.window,
       .speech = spoken_.speech,
       .clock = *services_.clock,
       .clipboard = clipboard_,
       .selectedText = *services_.selectedText,
       .statusBar = *form_,
       .ownSelection = [this] { return form_->IsActive() ? document_.SelectedText() : ""; },
       .primarySelection = &PrimarySelection,
       .title = [this] { return std::string(WithoutChangeMark(modules_.documents.Title())); },
       .raise = [this] { Raise(); },
       .awaitsAnswer = [this] { return dialogs_.AwaitAnswer(); }}};
  wxTimer firstLook_;
  bool enginesStart_ = false;
  ModFileReg fileTypes_;
  WxFolderWatch scriptsWatch_{JoinPath(services_.paths.programFolder, {"scripts"}),
                              [this] { modules_.tasks.FollowFolder(); }};
  FrmTaskEditor* taskEditor_ = nullptr;  // goes with the main form
  bool ending_ = false;
  bool atOnce_ = false;
};

App::App(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}
App::~App() = default;

bool App::Initialize(int& argc, wxChar** argv) {
  SetAppName("lorelin");
  SetAppDisplayName("Lorelin");
  return wxApp::Initialize(argc, argv);
}

// The base class would take a document's name for an option of the toolkit. The option that is none of the
// command line's is taken out of it.
bool App::OnInit() {
  SetExitOnFrameDelete(false);
  program_ = std::make_unique<Program>();
  const std::optional<RemoteOrder> order = TakeReadingOrder(arguments_);
  std::vector<char*> pointers;
  for (std::string& argument : arguments_) pointers.push_back(argument.data());
  if (!program_->Start(CommandLineText(pointers), order)) program_.reset();
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
