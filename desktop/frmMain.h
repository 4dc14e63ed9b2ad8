#pragma once

#include <wx/frame.h>
#include <wx/splitter.h>
#include <wx/timer.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/MainMenu.h"
#include "desktop/toolkit/PlaceLine.h"
#include "desktop/toolkit/WxBrowserPane.h"
#include "desktop/toolkit/WxChapterPane.h"
#include "desktop/toolkit/WxDocumentEditor.h"
#include "desktop/toolkit/WxTaskPane.h"
#include "ports/EditorCommands.h"
#include "ports/MainView.h"
#include "ports/PlaceBar.h"
#include "ports/StatusBar.h"

namespace lorelin {

class FrmFind;
struct WindowModules;

// The main window as controls. It builds them from the tables in app/commands.h, hands every event to
// the window's modules and shows what it is told.
class FrmMain final : public wxFrame,
                      public MainView,
                      public StatusBar,
                      public EditorCommands,
                      public PlaceBar {
 public:
  // `filterFolder` is the browser pane's; `endProgram` ends the process once the window has gone.
  FrmMain(const std::string& filterFolder, std::function<void()> endProgram, Log& log);
  // Where the events go; nullptr when it goes before the window does.
  void Attach(WindowModules* modules) { modules_ = modules; }
  ~FrmMain() override;
  FrmMain(const FrmMain&) = delete;
  FrmMain& operator=(const FrmMain&) = delete;

  [[nodiscard]] WxDocumentEditor& Editor() { return *rtfText_; }
  [[nodiscard]] WxBrowserPane& Browser() { return *wbBrowser_; }
  [[nodiscard]] WxTaskPane& Tasks() { return *ctlTask_; }
  [[nodiscard]] ChapterList& Contents() { return *chapters_; }

  void ShowEditor(bool visible) override;
  void ShowBrowser(bool visible) override;
  void FocusEditor() override;
  void CheckMenuEntry(std::string_view name, bool checked) override;
  void EnableCommand(std::string_view command, bool enabled) override;
  void StretchToolbar() override;
  void EnableTimer(WatchTimer timer, bool enabled) override;
  void SetTitle(std::string_view title) override;
  void SetRecentFiles(const std::vector<std::string>& paths) override;
  bool ShowsPage() override { return !rtfText_->IsShown(); }
  void CopyFromPage() override { wbBrowser_->Copy(); }
  void Undo() override;
  void Redo() override;
  bool CanUndo() override;
  bool CanRedo() override;
  bool HasSelection() override;
  void SelectAll() override;
  void ShowSearch(bool replace) override;
  void SearchAgain() override;
  void SetZoom(int steps) override;
  std::string Placement() override;
  void Place(std::string_view placement) override;
  void ShowWindow() override;
  void HideWindow() override;
  void EndProgram() override { endProgram_(); }
  void SetMessage(std::string_view text) override;
  std::string Message() override;
  void SetNotice(std::string_view name, std::string_view text) override;
  void SetFirstPanel(std::string_view text) override;
  void ShowPlace(const ShownPlace& place) override { placeLine_->Show(place); }
  void HidePlace() override { placeLine_->Hide(); }
  void FocusPlace() override { placeLine_->Focus(); }
  void OnPlaceChosen(std::function<void(std::size_t)> handler) override {
    placeLine_->OnChosen(std::move(handler));
  }

 private:
  MainMenu::Commands MenuCommands();
  void BuildToolbar();
  void BuildStatusBar();
  void BuildPanes(const std::string& filterFolder, Log& log);
  [[nodiscard]] wxWindow* BuildSide();
  void FollowText();
  void AcceptFiles(wxWindow& window);
  void TakeText(const std::string& text);
  void TakeFiles(const std::vector<std::string>& paths);
  void ShowEditorMenu(const wxContextMenuEvent& event);
  void PointAt(const wxPoint& place);
  void OnEditorClick(wxMouseEvent& event);
  void OnCharHook(wxKeyEvent& event);
  void OnActivate(wxActivateEvent& event);
  void OnClose(wxCloseEvent& event);

  std::function<void()> endProgram_;
  WindowModules* modules_ = nullptr;
  std::map<std::string, int, std::less<>> toolIds_;
  wxSplitterWindow* splitter_ = nullptr;
  std::map<std::string, std::string, std::less<>> notices_;
  WxDocumentEditor* rtfText_ = nullptr;
  WxBrowserPane* wbBrowser_ = nullptr;
  WxTaskPane* ctlTask_ = nullptr;
  WxChapterPane* chapters_ = nullptr;
  std::unique_ptr<PlaceLine> placeLine_;
  wxTimer tmrClipboard_;
  wxTimer tmrWinTasks_;
  wxTimer snapshot_;
  MainMenu menu_;
  FrmFind* frmFind_ = nullptr;  // owned by this window; made when it is first needed
};

}  // namespace lorelin
