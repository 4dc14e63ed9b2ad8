#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/textEncoding.h"
#include "ports/Automation.h"
#include "ports/BrowserPane.h"
#include "ports/Clipboard.h"
#include "ports/Clock.h"
#include "ports/DocumentEditor.h"
#include "ports/Downloader.h"
#include "ports/EditorCommands.h"
#include "ports/EventPump.h"
#include "ports/FileDialogs.h"
#include "ports/FileSearch.h"
#include "ports/FileWriter.h"
#include "ports/ForegroundWindow.h"
#include "ports/HelpDialogs.h"
#include "ports/Log.h"
#include "ports/MainView.h"
#include "ports/MessageBoxes.h"
#include "ports/ProgramLauncher.h"
#include "ports/ProgressWindow.h"
#include "ports/Shell.h"
#include "ports/SingleInstance.h"
#include "ports/StatusBar.h"
#include "ports/TaskPane.h"
#include "ports/VoiceDialogs.h"
#include "richtext/rtf.h"

#include "tests/support/CallLog.h"

namespace lorelin {

// The small fakes of the ports. Those that act write what they do into a CallLog.

class FakeLog final : public Log {
 public:
  void Write(std::string_view line) override { lines.emplace_back(line); }
  std::vector<std::string> lines;
};

class FakeClock final : public Clock {
 public:
  LocalTime Now() override { return now; }
  std::chrono::steady_clock::time_point Steady() override { return steady += step; }
  LocalTime now{2026, 10, 3, 9, 5, 7, 7};
  std::chrono::steady_clock::time_point steady{};
  std::chrono::milliseconds step{0};  // that every look at the clock takes
};

// Runs what was posted; before that, whatever a test wants to happen while the program waits.
class FakeEventPump final : public EventPump {
 public:
  void RunPendingEvents() override {
    ++turns;
    if (onTurn) onTurn();
    while (!tasks.empty()) {
      const auto task = std::move(tasks.front());
      tasks.pop_front();
      task();
    }
  }
  void Post(std::function<void()> task) override { tasks.push_back(std::move(task)); }
  std::function<void()> onTurn;
  std::deque<std::function<void()>> tasks;
  int turns = 0;
};

class FakeMessageBoxes final : public MessageBoxes {
 public:
  struct Box {
    std::string text;
    std::string title;
    MessageIcon icon;
    MessageButtons buttons;
  };
  MessageAnswer Show(std::string_view text, std::string_view title, MessageIcon icon,
                     MessageButtons buttons) override {
    boxes.push_back({std::string(text), std::string(title), icon, buttons});
    if (onShow) onShow();
    if (answers.empty()) return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
    const MessageAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  MessageAnswer Choose(std::string_view text, std::string_view title,
                       const MessageChoices& choices) override {
    choicesOffered.push_back(std::string(choices.yes) + "|" + std::string(choices.no) + "|" +
                             std::string(choices.cancel));
    return Show(text, title, MessageIcon::Question, MessageButtons::YesNoCancel);
  }
  std::vector<Box> boxes;
  std::vector<std::string> choicesOffered;
  std::deque<MessageAnswer> answers;
  std::function<void()> onShow;
};

class FakeDocumentEditor final : public DocumentEditor {
 public:
  explicit FakeDocumentEditor(CallLog& log) : log_(log) {}
  std::string Text() override { return text; }
  bool IsEmpty() const override { return text.empty(); }
  void SetText(std::string_view newText) override {
    if (givenUp) throw RuntimeError(ErrorNumber::Cancelled);
    text = newText;
  }
  std::string RichText() override { return "{\\rtf1 " + text + "}"; }
  LoadedFile LoadFile(const std::string& path) override {
    log_.Add("editor.LoadFile " + path);
    if (const auto reason = unreadable.find(path); reason != unreadable.end())
      throw RuntimeError(reason->second);
    const auto found = files.find(path);
    if (found == files.end()) throw RuntimeError(ErrorNumber::FileNotFound);
    text = found->second;
    return {.format = formats[path], .chapters = chapters[path]};
  }
  void ShowRichText(const std::string& rtf) override {
    if (givenUp) throw RuntimeError(ErrorNumber::Cancelled);
    text = ReadRtf(rtf).text;
  }
  std::size_t SelectionStart() override { return selectionStart; }
  std::string SelectedText() override {
    return std::string(FromCharacter(text, selectionStart)).substr(0, selectionBytes);
  }
  void ReplaceSelection(std::string_view replacement) override {
    text.replace(text.size() - FromCharacter(text, selectionStart).size(), selectionBytes, replacement);
    selectionBytes = 0;
  }
  std::string text;
  bool givenUp = false;  // by Esc, whatever is put there
  std::size_t selectionStart = 0;
  std::size_t selectionBytes = 0;
  std::map<std::string, std::string> files;
  std::map<std::string, TextFormat> formats;  // in which the files store them
  std::map<std::string, std::vector<Chapter>> chapters;
  std::map<std::string, ErrorNumber> unreadable;

 private:
  CallLog& log_;
};

class FakeEditorCommands final : public EditorCommands {
 public:
  bool ShowsPage() override { return showsPage; }
  void CopyFromPage() override { done.emplace_back("CopyFromPage"); }
  bool showsPage = false;
  void Undo() override { done.emplace_back("Undo"); }
  void Redo() override { done.emplace_back("Redo"); }
  bool CanUndo() override { return canUndo; }
  bool CanRedo() override { return canRedo; }
  bool HasSelection() override { return hasSelection; }
  void SelectAll() override { done.emplace_back("SelectAll"); }
  void ShowSearch(bool replace) override { done.emplace_back(replace ? "Replace" : "Search"); }
  void SearchAgain() override { done.emplace_back("SearchAgain"); }
  void SetZoom(int steps) override { done.push_back("Zoom " + std::to_string(steps)); }
  std::vector<std::string> done;
  bool canUndo = false;
  bool canRedo = false;
  bool hasSelection = false;
};

class FakeStatusBar final : public StatusBar {
 public:
  void SetMessage(std::string_view text) override { messages.push_back(message = text); }
  [[nodiscard]] std::string Message() override { return message; }
  void SetNotice(std::string_view name, std::string_view text) override {
    if (text.empty()) {
      notices.erase(std::string(name));
    } else {
      notices[std::string(name)] = text;
    }
  }
  void SetFirstPanel(std::string_view text) override { firstPanel = text; }
  std::map<std::string, std::string> notices;
  std::string message;
  std::vector<std::string> messages;
  std::string firstPanel;
};

class FakeClipboard final : public Clipboard {
 public:
  std::string Text() override { return text; }
  void SetText(std::string_view newText) override { text = newText; }
  std::string text;
};

class FakeForegroundWindow final : public ForegroundWindow {
 public:
  std::string Title() override { return title; }
  std::string Obstacle() override { return obstacle; }
  std::string title;
  std::string obstacle;
};

class FakeShell final : public Shell {
 public:
  bool OpenFolder(const std::string& folder) override { return folders.push_back(folder), works; }
  bool Open(const std::string& item, const std::string& folder, ShowCommand show) override {
    opened.push_back(item + " in " + folder + " as " + std::to_string(static_cast<int>(show)));
    return works;
  }
  std::vector<std::string> opened;
  std::vector<std::string> folders;
  bool works = true;
};

class FakeFileSearch final : public FileSearch {
 public:
  std::vector<std::string> FilesMatching(const std::string& pattern) override {
    patterns.push_back(pattern);
    return names;
  }
  std::vector<std::string> names;
  std::vector<std::string> patterns;
};

class FakeProgramLauncher final : public ProgramLauncher {
 public:
  void Start(const std::vector<std::string>& arguments) override {
    if (error) throw RuntimeError(*error);
    started.push_back(arguments);
  }
  std::vector<std::vector<std::string>> started;
  std::optional<ErrorNumber> error;
};

// Asks `turns` times whether to go on, then keeps what was fetched.
class FakeDownloader final : public Downloader {
 public:
  std::string Download(const std::string& url, const std::string& targetFile,
                       const std::function<bool()>& keepGoing) override {
    for (int turn = 0; turn < turns; ++turn) {
      if (!keepGoing()) return "abgebrochen";
    }
    if (failure.empty()) fetched.emplace_back(url, targetFile);
    return failure;
  }
  Page FetchPage(const std::string& url, const std::string& targetFile, std::uintmax_t mostBytes,
                 const std::function<bool()>& keepGoing) override {
    const bool tooLarge = mostBytes < pageBytes;
    if (tooLarge) return {.problem = "zu groß", .tooLarge = true, .charset = {}};
    return {.problem = Download(url, targetFile, keepGoing), .charset = charset};
  }
  std::string failure;
  std::string charset;           // of the page
  std::uintmax_t pageBytes = 0;  // its size
  std::vector<std::pair<std::string, std::string>> fetched;
  int turns = 1;
};

// Files in memory; `error` is thrown instead of writing.
class FakeFileWriter final : public FileWriter {
 public:
  void Replace(const std::string& path, std::string_view bytes) override {
    if (error) throw RuntimeError(*error);
    if (onReplace) onReplace();
    files[path] = bytes;
  }
  bool Copy(const std::string& from, const std::string& to,
            const std::function<bool(double done)>& keepGoing) override {
    if (error) throw RuntimeError(*error);
    for (const double done : {0.5, 1.0}) {
      if (!keepGoing(done)) return false;
    }
    copies.emplace_back(from, to);
    return true;
  }
  // Of files that are really there.
  void Join(const std::string& path, std::span<const FilePiece> pieces) override {
    if (error) throw RuntimeError(*error);
    std::string whole;
    for (const FilePiece& piece : pieces)
      whole += piece.bytes + (piece.file.empty() ? std::string() : ReadFileBytes(piece.file));
    files[path] = whole;
  }
  std::vector<std::pair<std::string, std::string>> copies;
  std::map<std::string, std::string> files;
  std::optional<ErrorNumber> error;
  std::function<void()> onReplace;  // on the thread that writes
};

// Answers with `answer`; without one the user cancels.
class FakeFileDialogs final : public FileDialogs {
 public:
  std::optional<std::string> AskForFile(const FileDialogRequest& request) override {
    return requests.push_back(request), answer;
  }
  std::optional<std::string> AskForTarget(const FileDialogRequest& request) override {
    return requests.push_back(request), answer;
  }
  std::optional<std::string> AskForAddress(const std::string& newProposal) override {
    proposed = newProposal;
    return answer;
  }
  std::string proposed = "(nicht gefragt)";  // as an address
  std::vector<FileDialogRequest> requests;
  std::optional<std::string> answer;
};

class FakeProgressWindow final : public ProgressWindow {
 public:
  bool Show(std::string_view text, double done) override {
    shown.emplace_back(std::string(text) + " " + std::to_string(static_cast<int>(done * 100)));
    return !cancelled;
  }
  void Close() override { ++closed; }
  std::vector<std::string> shown;
  bool cancelled = false;
  int closed = 0;
};

class FakeVoiceDialogs final : public VoiceDialogs {
 public:
  void ChooseVoice() override { shown.emplace_back("Voice"); }
  void ChangeParameter(VoiceParameter parameter) override {
    shown.push_back(std::to_string(static_cast<int>(parameter)));
  }
  std::vector<std::string> shown;
};

class FakeHelpDialogs final : public HelpDialogs {
 public:
  void ShowAbout() override { shown.emplace_back("About"); }
  void ShowSettings() override { shown.emplace_back("Settings"); }
  SurveyAnswer AskForSurvey() override { return shown.emplace_back("Survey"), answer; }
  std::vector<std::string> shown;
  SurveyAnswer answer = SurveyAnswer::Later;
};

class FakeSingleInstance final : public SingleInstance {
 public:
  bool IsAlreadyRunning() override { return running; }
  bool running = false;
};

class FakeTaskPane final : public TaskPane {
 public:
  explicit FakeTaskPane(CallLog& log) : log_(log) {}
  void AddGroup(std::string_view group) override { log_.Add("pane.group " + std::string(group)); }
  void AddItem(std::string_view group, std::int32_t number, std::string_view caption,
               TaskPaneRequest) override {
    log_.Add("pane.item " + std::string(group) + " " + std::to_string(number) + " " + std::string(caption));
  }
  void OnClick(std::function<void(std::int32_t, TaskPaneRequest)> handler) override {
    handler_ = std::move(handler);
  }
  void Click(std::int32_t number, TaskPaneRequest request = TaskPaneRequest::Item) {
    if (handler_) handler_(number, request);
  }

 private:
  std::function<void(std::int32_t, TaskPaneRequest)> handler_;
  CallLog& log_;
};

class FakeBrowserPane final : public BrowserPane {
 public:
  explicit FakeBrowserPane(CallLog& log) : log_(log) {}
  void SetOffline() override { log_.Add("browser.offline"); }
  void Focus() override { log_.Add("browser.focus"); }
  void Navigate(const std::string& path) override { log_.Add("browser.navigate " + path); }
  void OnNavigate(std::function<bool(std::string&)> handler) override { onNavigate = std::move(handler); }
  std::function<bool(std::string&)> onNavigate;

 private:
  CallLog& log_;
};

class FakeMainView final : public MainView {
 public:
  explicit FakeMainView(CallLog& log) : log_(log) {}
  void ShowEditor(bool visible) override { editorVisible = visible; }
  void ShowBrowser(bool visible) override { browserVisible = visible; }
  void FocusEditor() override {
    log_.Add("view.focus");
    if (focusFails) throw RuntimeError(ErrorNumber::InvalidCall);
  }
  void CheckMenuEntry(std::string_view name, bool checked) override { checks[std::string(name)] = checked; }
  void EnableCommand(std::string_view command, bool enabled) override {
    enabledCommands[std::string(command)] = enabled;
  }
  void StretchToolbar() override { log_.Add("view.stretch"); }
  void EnableTimer(WatchTimer timer, bool enabled) override {
    log_.Add(std::string(timer == WatchTimer::Clipboard ? "tmrClipboard" : "tmrWinTasks") +
             (enabled ? " on" : " off"));
  }
  void SetTitle(std::string_view text) override { title = text; }
  void SetRecentFiles(const std::vector<std::string>& paths) override { recentFiles = paths; }
  std::string Placement() override { return placement; }
  void Place(std::string_view text) override { placement = text; }
  std::string placement = "1 2 3 4 0 5";
  void ShowWindow() override { log_.Add("view.show"); }
  void HideWindow() override { log_.Add("view.hide"); }
  void EndProgram() override { log_.Add("view.end"); }
  bool editorVisible = false;
  bool browserVisible = false;
  bool focusFails = false;
  std::string title;
  std::vector<std::string> recentFiles;
  std::map<std::string, bool> checks;
  std::map<std::string, bool> enabledCommands;

 private:
  CallLog& log_;
};

// Objects by identifier; each is a function of method and argument.
class FakeAutomation final : public Automation {
 public:
  using Object = std::function<std::optional<std::string>(const std::string& method,
                                                          std::optional<std::string> argument)>;

  std::unique_ptr<AutomationObject> CreateObject(std::string_view identifier) override {
    created.emplace_back(identifier);
    const auto found = objects.find(std::string(identifier));
    if (found == objects.end()) throw RuntimeError(ErrorNumber::CannotCreateObject);
    return std::make_unique<Instance>(found->second);
  }
  void WhileWaiting(const std::function<bool()>& goOn) override { turn = goOn; }
  std::map<std::string, Object> objects;
  std::vector<std::string> created;  // what anybody tried to create
  std::function<bool()> turn = [] { return true; };

 private:
  class Instance final : public AutomationObject {
   public:
    explicit Instance(Object object) : object_(std::move(object)) {}
    std::optional<std::string> Invoke(std::string_view method,
                                      std::optional<std::string_view> argument) override {
      return object_(std::string(method), argument ? std::optional<std::string>(*argument) : std::nullopt);
    }

   private:
    Object object_;
  };
};

}  // namespace lorelin
